// A statement template: an INI file that describes a broker's layout, once as it was and once as it is from a change
// date on. Parsed into the same layouts and columns that the fixed readers are made of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/ini_file.h"
#include "platform/file.h"
#include "readers/columns.h"
#include "readers/money_labels.h"
#include "readers/money_row.h"
#include "readers/scan_listener.h"
#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {

/// Where a section begins and ends, as its template says it. Texts of at most 31 bytes, which point into the template.
struct TemplateSection {
    bool isEnabled = false;
    std::string name;  ///< of the INI section
    std::string_view title = {};
    std::string_view terminator = {};
    std::string_view delimiter = {};
    std::int32_t firstRow = -1;
    std::int32_t endOffset = -1;

    /// The key without which the section can't be read, or an empty text.
    [[nodiscard]] std::string_view MissingKey() const;
};

template <class Record>
struct TemplateTable {
    TemplateSection section;
    std::vector<Column<Record>> columns;
};

/// One side of rows that hold both. Without a lots column it makes no records.
struct TemplateSide {
    std::size_t lotsColumn = kNoColumn;
    std::string_view side;
    std::vector<Column<OpiSum>> columns;
};

enum TemplateMoneyMode : std::int32_t { kMoneyLabelled = 0, kMoneyInOneRow = 1 };

/// How the money section of mode 0 is cut, beside its frame.
struct TemplateLabels {
    std::int32_t firstRow = 2;       ///< begins this many rows below the title
    std::int32_t endOffset = 0;      ///< ends this many rows above the terminator
    std::string_view labelEnd = {};  ///< parts label and value of one column; empty: each is a column
    std::string_view premiumReceived = {};
    std::string_view premiumPaid = {};
};

/// One of the two descriptions in a template.
struct TemplateScheme {
    std::string_view dateWord;
    std::int32_t moneyMode = kMoneyLabelled;
    TemplateSection money;
    TemplateLabels labels;
    std::vector<MoneyLabel> moneyLabels;  ///< of mode 0
    std::string_view depositsLabel;
    std::string_view withdrawalsLabel;
    std::vector<Column<MoneyRecord>> moneyColumns;  ///< of mode 1
    CashFlowColumns cashFlow;
    TemplateTable<MatchRecord> trades;
    TemplateTable<PingDetail> closed;
    std::size_t closedSideColumn = kNoColumn;
    TemplateTable<OpiDetail> open;           ///< of the formats that name contract and delivery apart
    std::vector<Column<OpiSum>> openShared;  ///< of all others; the section is that of `open`
    TemplateSide openSides[2];
    std::size_t openPLColumn = kNoColumn;
    TemplateSection summary;
    std::vector<Column<OpiSum>> summaryShared;
    TemplateSide summarySides[2];

    [[nodiscard]] const TemplateSection& Section(SectionKind kind) const;
};

class CStatementTemplate {
public:
    explicit CStatementTemplate(CIniFile file);
    CStatementTemplate(const CStatementTemplate&) = delete;
    CStatementTemplate& operator=(const CStatementTemplate&) = delete;

    /// Whether `day` (yyyymmdd) is at or behind the change date. Throws CReportError for a change date, or a day, that
    /// is no date.
    [[nodiscard]] bool HoldsNewScheme(std::string_view day) const;

    /// Trimmed; empty: the old scheme holds always.
    [[nodiscard]] std::string_view ChangeDate() const { return changeDate_; }

    [[nodiscard]] const TemplateScheme& Scheme(bool isNew) const { return isNew ? newScheme_ : oldScheme_; }

private:
    CIniFile file_;  // the schemes' texts point into it
    std::string_view changeDate_;
    TemplateScheme oldScheme_;
    TemplateScheme newScheme_;
};

/// The template of a run, which may be written while statements are read.
class CTemplateFile {
public:
    /// Of the file `path`, which needn't be there; an empty path is none. `carried` is the text of the template where
    /// there is no file, and outlives this; empty: there is none then.
    explicit CTemplateFile(std::string path, std::string_view carried = {})
        : path_(std::move(path)), carried_(carried) {}

    /// The template, or null if there is none. Parsed when first asked for, and again when the file changed; valid
    /// until the next call.
    [[nodiscard]] const CStatementTemplate* Present();

    /// The file, if it was there and couldn't be read when it was asked for: it counted as none then.
    [[nodiscard]] const std::optional<UnreadFile>& Problem() const { return problem_; }

private:
    [[nodiscard]] const CStatementTemplate* Carried();

    std::string path_;
    std::string_view carried_;
    std::unique_ptr<CStatementTemplate> parsedCarried_;
    std::optional<FileStamp> stamp_;  ///< of what was parsed, if it could be told
    std::optional<UnreadFile> problem_;
    std::unique_ptr<CStatementTemplate> parsed_;
};

}  // namespace tradebill
