// From a day's statement file to the records of a report. The loader brings the text into memory and picks the reader
// of its layout (layout_table.h); the reader cuts the text into sections (section_scan.h), makes records of their rows
// (columns.h) and hands them over (record_sink.h). What doesn't fit is passed over in silence, unless a listener wants
// to know (scan_listener.h).
//
// fixed_layout.h is the engine of the layouts with a block of money labels; their tables stand in *_reader.cpp. The
// template reader makes the same tables from a file (statement_template.h).
#pragma once

#include <string>
#include <string_view>

#include "platform/file.h"
#include "readers/statement_template.h"

namespace tradebill {

class CReport;
class CScanListener;

/// Reads the statements of one run into its report, which must outlive it.
///
/// REQUIRES: the report's request, range and template path are set before, and stay.
class CStatementLoader {
public:
    explicit CStatementLoader(CReport& report);

    /// Reads the statement `path` of `day` (yyyymmdd). Returns whether there was a file to read. Throws CReportError,
    /// with what came before in the report, where a template asks for what isn't there.
    bool Load(std::string_view day, const std::string& path);

    /// Hands `text` to the reader of the request's layout: the foreign one, the template's, or the format's. Throws
    /// likewise.
    void Read(std::string_view day, std::string_view text, CScanListener* listener = nullptr);

private:
    CReport& report_;
    CTemplateFile template_;
    CFileBuffer buffer_;
};

}  // namespace tradebill
