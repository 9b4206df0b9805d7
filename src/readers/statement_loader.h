// From a day's statement file to the records of a report. The loader brings the text into memory and picks the reader
// of its layout (layout_table.h); the reader cuts the text into sections (section_scan.h), makes records of their rows
// (columns.h) and hands them over (record_sink.h). What doesn't fit is passed over in silence, unless a listener wants
// to know (scan_listener.h).
//
// fixed_layout.h is the engine of the layouts with a block of money labels; their tables stand in *_reader.cpp. The
// template reader makes the same tables from a file (statement_template.h).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/file.h"
#include "readers/scan_listener.h"
#include "readers/statement_limit.h"
#include "readers/statement_template.h"

namespace tradebill {

class CReport;

/// What became of a day's file. One is missing where there was no trading day, most often.
using StatementState = FileState;

/// A day's file, as it was found.
struct StatementFile {
    StatementState state = StatementState::Missing;
    /// Why it is unreadable, or counts as missing though it is there, in the system's words where it has some; UTF-8.
    std::string reason = {};
    std::string_view bytes = {};  ///< all of them; of a file that was read
    std::string_view text = {};   ///< those before the first zero byte, which are what readers see
};

/// Hears of all statements of a run: of each day's file first, then of what its reader sees in it.
class CStatementListener : public CScanListener {
public:
    /// `file` is valid until the next call, or OnStatementEnd.
    virtual void OnStatement(std::string_view day, const std::string& path, const StatementFile& file) = 0;

    /// All of a statement has been read. Not told if an error leaves.
    virtual void OnStatementEnd() = 0;
};

/// What a loader asks of its files.
enum class StatementAccess {
    ReadAndWrite,  ///< one that can't be written counts as missing, as hosts expect it
    ReadAlone,
};

/// Reads the statements of one run into its report, which must outlive it.
///
/// REQUIRES: the report's request, range and template path are set before, and stay.
class CStatementLoader {
public:
    /// A file beyond `limit` is unreadable.
    explicit CStatementLoader(CReport& report, StatementAccess access = StatementAccess::ReadAndWrite,
                              const StatementLimit& limit = {});

    /// Passes over the rows of all tables but those of `kind` from now on (StatementText::onlyRows).
    void WantOnlyRows(SectionKind kind) { onlyRows_ = kind; }

    /// Reads the statement `path` of `day` (yyyymmdd), and tells `listener`, which may be null. Returns the file as it
    /// was found, valid until the next call. Throws CReportError, with what came before in the report, where a template
    /// asks for what isn't there.
    StatementFile Load(std::string_view day, const std::string& path, CStatementListener* listener = nullptr);

    /// The template, if it is there and couldn't be read for a statement, which was read without it.
    [[nodiscard]] const std::optional<UnreadFile>& TemplateProblem() const { return template_.Problem(); }

    /// Hands `text` to the reader of the request's layout: the foreign one, the template's, or the format's. Throws
    /// likewise.
    void Read(std::string_view day, std::string_view text, CScanListener* listener = nullptr);

private:
    CReport& report_;
    CTemplateFile template_;
    StatementAccess access_;
    StatementLimit limit_;
    std::optional<SectionKind> onlyRows_;
    CFileBuffer buffer_;
};

}  // namespace tradebill
