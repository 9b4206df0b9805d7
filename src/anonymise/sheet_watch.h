// Listens to the reading of one statement and keeps where its reader found what: places in the text, by field.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "readers/scan_listener.h"
#include "report/money_record.h"

namespace tradebill {

/// A value that a field is filled from.
struct WatchedCell {
    std::size_t at;  ///< in the statement's text
    std::size_t size;
    std::string_view field;  ///< a name of report/record_fields.h
};

/// A row that was looked at.
struct WatchedRow {
    std::size_t at;  ///< of its first byte that isn't blank
    SectionKind kind;
    RowFate fate;
    std::size_t title = 0;  ///< where the title of its section stands; 0 without one
    bool isOption = false;  ///< a trade of one
    bool isBuy = false;     ///< a trade that buys
};

/// Amounts of a foreign account: rows of values, a column for each currency.
struct CurrencyBlock {
    struct Value {
        std::string_view field;
        std::size_t column;
        std::size_t at;
    };
    std::vector<Value> values;
    std::vector<std::string> currencies;  ///< GBK, by column
};

class CSheetWatch final : public CScanListener {
public:
    explicit CSheetWatch(std::string_view text) : text_(text) {}

    /// Both by their places.
    [[nodiscard]] const std::vector<WatchedCell>& Cells() const { return cells_; }
    [[nodiscard]] const std::vector<WatchedRow>& Rows() const { return rows_; }
    [[nodiscard]] const std::vector<CurrencyBlock>& Blocks() const { return blocks_; }
    /// Of a domestic statement; nothing if none was made.
    [[nodiscard]] const std::optional<MoneyRecord>& Money() const { return money_; }
    /// Title and end of the money section; both empty if it wasn't found.
    [[nodiscard]] std::string_view MoneyTitle() const { return moneyTitle_; }
    [[nodiscard]] std::string_view MoneyEnd() const { return moneyEnd_; }

    /// Whether anything was recognised.
    [[nodiscard]] bool HasFound() const { return hasFound_; }
    /// The section that begins and doesn't end, or ends behind the title of another; nothing if there is none.
    [[nodiscard]] const std::optional<SectionKind>& CutSection() const { return cut_; }
    /// What the reader made of the statement, amounts and names aside: two statements of one shape have the same.
    [[nodiscard]] const std::string& Shape() const { return shape_; }

    /// REQUIRES: the reading is over; needed once before anything is asked.
    void Finish();

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

private:
    [[nodiscard]] bool IsInText(std::string_view part) const;
    void AddCell(std::string_view part, std::string_view field);
    [[nodiscard]] bool IsOfNextSection(const WatchedRow& row) const;
    void TakeTrade(const MatchRecord& trade);

    std::string_view text_;
    std::vector<WatchedCell> cells_;
    std::vector<WatchedRow> rows_;
    std::vector<CurrencyBlock> blocks_;
    std::vector<std::size_t> titles_;      // where those of sections stand
    std::vector<std::string> lostTitles_;  // those that weren't found
    std::optional<MoneyRecord> money_;
    std::string_view moneyTitle_;
    std::string_view moneyEnd_;
    std::optional<SectionKind> cut_;
    std::string shape_;
    bool hasFound_ = false;

    // Of the section and row at hand.
    SectionKind kind_ = SectionKind::Money;
    std::size_t title_ = 0;
    std::vector<ColumnSeen> columns_;
    WatchedRow next_{};
    CurrencyBlock::Value lastValue_{};
    bool isBlockOpen_ = false;
};

}  // namespace tradebill
