// What the readers saw in one statement, kept for `tradebill explain`. All texts are UTF-8, lines count from 1.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "readers/scan_listener.h"
#include "report/money_record.h"

namespace tradebill {

struct PassedOverRow {
    int line;
    RowFate fate;
    std::size_t columns;
    std::size_t needed;
};

struct MoneySeen {
    std::string currency;                                     ///< empty: the account
    std::vector<std::pair<std::string, std::string>> fields;  ///< those that aren't empty
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

    [[nodiscard]] bool IsFound() const { return titleLine && (endLine || !needsEnd); }
};

/// One reader's way through the statement.
struct ReaderPass {
    std::string layout;  ///< a name of the layout table, or "template"
    std::string dateWord;
    std::string date;
    std::vector<SectionReport> sections;  ///< in file order, those without a title last
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
    [[nodiscard]] int LineCount() const { return static_cast<int>(lineStarts_.size()); }
    [[nodiscard]] int FoundSections() const;
    [[nodiscard]] int MoneyRecords() const;

    void OnTemplate(const TemplateSeen& seen) override;
    void OnReader(std::string_view layout) override;
    void OnDate(std::string_view dateWord, std::string_view date) override;
    void OnSection(const SectionSeen& seen) override;
    void OnRow(std::string_view row, Row columns, const RowVerdict& verdict) override;
    void OnLabelWanted(std::string_view label) override;
    void OnLabelMet(std::string_view label) override;
    void OnMoney(const MoneyRecord& record, std::string_view currency) override;
    void OnRecord(const RecordSeen& record) override;

private:
    [[nodiscard]] int LineOf(std::string_view row) const;
    ReaderPass& Pass();
    SectionReport& Section() { return Pass().sections.back(); }

    std::string_view text_;
    std::vector<std::size_t> lineStarts_;
    std::vector<ReaderPass> passes_;
    std::optional<TemplateReport> template_;
};

}  // namespace tradebill
