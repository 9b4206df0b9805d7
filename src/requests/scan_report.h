// What the readers saw in one statement, kept for `tradebill explain`. All texts are UTF-8, lines count from 1.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/line_counter.h"
#include "readers/scan_listener.h"
#include "report/money_record.h"

namespace tradebill {

inline constexpr std::string_view kTemplatePass = "template";  ///< the name of a template's pass

struct PassedOverRow {
    int line;
    RowFate fate;
    std::size_t columns;
    std::size_t needed;
};

using NamedTexts = std::vector<std::pair<std::string, std::string>>;

struct MoneySeen {
    std::string currency;  ///< empty: the account
    NamedTexts fields;     ///< those that aren't empty
};

/// The first record of a section, as it was made of its row.
struct FirstRecord {
    std::optional<int> line;
    NamedTexts fields;  ///< those that aren't empty
};

/// What stands where an amount should, and is none.
struct WrongAmount {
    int line;
    std::string field;
    std::string text;
    double readAs;
};

/// A column that rows of the section lack.
struct LackedColumn {
    std::size_t column;  ///< counted from 0
    std::string field;
    bool mayLack;   ///< the layout prints it in some statements only
    int rows;       ///< that were looked at
    int lacking;    ///< of them
    int firstLine;  ///< of those that lack it
};

struct SectionReport {
    SectionKind kind = SectionKind::Money;
    std::string titleWord;
    bool needsEnd = true;
    std::string terminatorWord;  ///< two of them with " or "; empty if the section's end isn't looked for
    std::optional<int> titleLine;
    std::optional<int> endLine;
    /// Of a section that isn't found: a title that stands where it isn't looked for.
    std::optional<int> unseenTitleLine;
    int rowsRead = 0;
    std::vector<PassedOverRow> passedOver;
    int records = 0;
    std::vector<std::string> labelsMet;
    std::vector<std::string> labelsNotMet;
    std::vector<MoneySeen> money;
    std::optional<FirstRecord> firstRecord;  ///< of a section other than money
    std::vector<WrongAmount> wrongAmounts;
    std::vector<LackedColumn> columns;  ///< those that rows lack; while it is read, all of them
    std::size_t widestRow = 0;          ///< columns

    [[nodiscard]] bool IsFound() const { return titleLine && (endLine || !needsEnd); }
};

/// One reader's way through the statement.
struct ReaderPass {
    std::string layout;  ///< a name of the layout table, or kTemplatePass
    std::string dateWord;
    std::string date;
    std::vector<SectionReport> sections;  ///< in file order, those without a title last
};

/// Where the reading stands, or stopped.
struct ReadingPlace {
    SectionKind section;
    std::optional<int> line;  ///< nothing: at no row, or at one that the text doesn't have
};

struct TemplateReport {
    TemplateSeen::Outcome outcome;
    bool newScheme;
    std::string section;
    std::string missingKey;
};

/// Listens to the reading of one statement.
class CScanReport final : public CScanListener {
public:
    /// `text` must outlive the reading.
    explicit CScanReport(std::string_view text);

    /// To be called when all is read, before anything is asked: puts the sections into file order.
    void Finish();

    [[nodiscard]] const std::vector<ReaderPass>& Passes() const { return passes_; }
    [[nodiscard]] const std::optional<TemplateReport>& Template() const { return template_; }
    /// Whether a template has read the statement to its end.
    [[nodiscard]] bool IsReadByTemplate() const {
        return template_ && template_->outcome == TemplateSeen::Outcome::Read;
    }
    /// Whether the reader of this layout had the last word.
    [[nodiscard]] bool IsReadAs(std::string_view layout) const {
        return !passes_.empty() && passes_.back().layout == layout;
    }
    /// The sections of which a template has made records before it declined.
    ///
    /// REQUIRES: it has declined.
    [[nodiscard]] std::vector<SectionKind> ReadBeforeDeclining() const;
    [[nodiscard]] int LineCount() const;
    [[nodiscard]] int FoundSections() const;
    [[nodiscard]] int MoneyRecords() const;
    /// The section looked at last, and the row in it; nothing before the first.
    [[nodiscard]] const std::optional<ReadingPlace>& Place() const { return place_; }

    void OnTemplate(const TemplateSeen& seen) override;
    void OnReader(std::string_view layout) override;
    void OnDate(std::string_view dateWord, std::string_view date) override;
    void OnSection(const SectionSeen& seen) override;
    void OnColumns(std::span<const ColumnSeen> columns) override;
    void OnRow(std::string_view row, Row columns, const RowVerdict& verdict) override;
    void OnLabelWanted(std::string_view label) override;
    void OnLabelMet(std::string_view label) override;
    void OnLabelledValue(const LabelledValue& value) override;
    void OnMoney(const MoneyRecord& record, std::string_view currency) override;
    void OnRecord(const RecordSeen& record) override;
    void OnStop(std::string_view row) override;

private:
    ReaderPass& Pass();
    SectionReport& Section() { return Pass().sections.back(); }
    void LookAtColumns(int line, Row columns);

    std::string_view text_;
    CLineCounter lines_;
    std::vector<ReaderPass> passes_;
    std::optional<TemplateReport> template_;
    std::optional<ReadingPlace> place_;
    std::vector<ColumnSeen> columns_;    // of the rows that are being read
    std::size_t firstLackedColumn_ = 0;  // the first of them in the section's list
};

}  // namespace tradebill
