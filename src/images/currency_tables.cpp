#include "images/currency_tables.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "base/text.h"
#include "images/money_figures.h"
#include "images/painted_table.h"
#include "paint/canvas.h"
#include "report/money_store.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr int kMostBlocks = 11;
constexpr int kColumnWidth = 160;
constexpr std::string_view kTitleLabel = "币种"_gbk;
constexpr std::string_view kTotalMark = "(总)"_gbk;

// clang-format off
constexpr MoneyRow kRows[] = {
    {"期初账户净值"_gbk,   MoneyFigure<&CMoneyStore::OpeningEquity>},
    {"手续费"_gbk,         MoneyFigure<&CMoneyStore::TotalFees>},
    {"盯市平仓盈亏"_gbk,   MoneyFigure<&CMoneyStore::TotalClosedPL>},
    {"出入金"_gbk,         MoneyFigure<&CMoneyStore::TotalCashFlow>},
    {"持仓盈亏"_gbk,       MoneyFigure<&CMoneyStore::LastHostCurrent>},  // not the sum that the account table shows
    {"期末账户净值"_gbk,   MoneyFigure<&CMoneyStore::ClosingEquity>},
    {"持仓占用保证金"_gbk, MoneyFigure<&CMoneyStore::PositionMargin>},
    {"挂单冻结"_gbk,       FrozenByOrders},
    {"可用资金"_gbk,       MoneyFigure<&CMoneyStore::Available>},
};
// clang-format on

/// Columns side by side, that of the labels among them. Below 0 for a negative width. No resolution makes a column
/// narrower than a pixel.
std::int64_t ColumnsWithin(const CReport& report, std::int64_t width) {
    return width / report.Scaled(kColumnWidth);
}

/// The first currency stands for all. Statements mark the place of the word in its name with a star.
std::string TotalTitle(std::string_view name) {
    if (!Contains(name, "*")) return std::string(name).append(kTotalMark);
    std::string title;
    for (const char byte : name) title.append(byte == '*' ? kTotalMark : std::string_view(&byte, 1));
    return title;
}

/// A block of columns whose first text stands at `top`.
class CCurrencyBlock {
public:
    CCurrencyBlock(CCanvas& canvas, const CReport& report, std::int64_t top)
        : canvas_(canvas),
          top_(top),
          rowHeight_(report.Scaled(22)),
          column_(report.Scaled(kColumnWidth)),
          padding_(report.Scaled(5)) {}

    [[nodiscard]] bool IsEmpty() const { return columns_ == 0; }

    /// The first column brings the labels along.
    void AddColumn(std::string_view title, const CMoneyStore& store) {
        row_ = 0;
        DrawLineAbove();
        AddRow(kTitleLabel, title);
        for (const MoneyRow& row : kRows) AddRow(row.label, FigureText(row, store));
        if (IsEmpty()) DrawEdge(kTableLeft - padding_);
        DrawEdge(ColumnEdge());
        ++columns_;
    }

    /// The right edge; nothing if there is no column that it could close.
    void Close() const {
        if (!IsEmpty()) DrawEdge(ColumnEdge());
    }

private:
    void AddRow(std::string_view label, std::string_view value) {
        const std::int64_t y = top_ + row_ * rowHeight_;
        if (IsEmpty()) WriteTableText(canvas_, {kTableLeft, y}, label);
        WriteTableText(canvas_, {ColumnEdge() + padding_, y}, value);
        ++row_;
        DrawLineAbove();
    }

    /// Above the present row, over the labels too if this is the first column.
    void DrawLineAbove() const {
        const std::int64_t left = IsEmpty() ? kTableLeft - padding_ : ColumnEdge();
        const std::int64_t right = left + (IsEmpty() ? 2 * column_ : column_);
        const std::int64_t y = top_ - padding_ + row_ * rowHeight_;
        DrawTableLine(canvas_, {left, y}, {right, y});
    }

    void DrawEdge(std::int64_t x) const {
        constexpr std::int64_t kAllRows = std::ssize(kRows) + 1;
        const std::int64_t top = top_ - padding_;
        DrawTableLine(canvas_, {x, top}, {x, top + kAllRows * rowHeight_});
    }

    /// Left edge of the present column; the labels have a column of their own before the first.
    [[nodiscard]] std::int64_t ColumnEdge() const { return (columns_ + 1) * column_ - padding_ + kTableLeft; }

    CCanvas& canvas_;
    std::int64_t top_;
    std::int64_t rowHeight_;
    std::int64_t column_;
    std::int64_t padding_;
    std::int64_t columns_ = 0;
    std::int64_t row_ = 0;
};

/// Up to `count` of `names` from `first` on.
std::span<const std::string> NamesFrom(std::span<const std::string> names, std::int64_t first, std::int64_t count) {
    const auto all = std::ssize(names);
    const std::int64_t begin = std::clamp<std::int64_t>(first, 0, all);
    const std::int64_t size = std::clamp<std::int64_t>(count, 0, all - begin);
    return names.subspan(static_cast<std::size_t>(begin), static_cast<std::size_t>(size));
}

}  // namespace

int CountCurrencyBlocks(const CReport& report, int width) {
    const std::int64_t columns = ColumnsWithin(report, width);
    const std::int64_t currencies = std::ssize(report.CurrencyMoneyStore.Names);
    if (columns >= currencies + 1) return 1;
    int blocks = 2;
    while (blocks < kMostBlocks && blocks * columns < blocks + currencies) ++blocks;
    return blocks;
}

void PaintCurrencyTables(CCanvas& canvas, const CReport& report, const CurrencyTablesSize& size) {
    const CTableTools tools(canvas, report.Request.Dpi);
    const CCurrencyMoneyStore& currencies = report.CurrencyMoneyStore;
    const int blocks = CountCurrencyBlocks(report, size.width);
    const std::int64_t perBlock = std::max<std::int64_t>(ColumnsWithin(report, size.width) - 1, 0);
    for (int number = 0; number < blocks; ++number) {
        CCurrencyBlock block(canvas, report, std::int64_t{number} * size.blockHeight + kTableTop);
        for (const std::string& name : NamesFrom(currencies.Names, number * perBlock, perBlock)) {
            const CMoneyStore* const store = currencies.Find(name);
            if (store == nullptr) continue;
            const bool isTotal = number == 0 && block.IsEmpty();
            block.AddColumn(isTotal ? TotalTitle(name) : name, *store);
        }
        block.Close();
    }
}

}  // namespace tradebill
