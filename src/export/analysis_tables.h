// The tables of an analysis: a row for each drawdown, month, group of closed positions, ... Their columns are the
// fields of its results.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <string_view>
#include <variant>
#include <vector>

#include "analysis/analysis.h"
#include "analysis/analysis_fields.h"
#include "analysis/margin_results.h"
#include "export/table.h"

namespace tradebill {

namespace analysis_tables {

constexpr ColumnKind KindOf(AnalysisType type) {
    switch (type) {
        case AnalysisType::Day:
            return ColumnKind::Day;
        case AnalysisType::Number:
            return ColumnKind::Number;
        case AnalysisType::Whole:
            return ColumnKind::Count;
        case AnalysisType::Text:
            break;
    }
    return ColumnKind::Text;
}

/// Rows are looked for by their first field, and by the currency where they have one.
template <const auto& Fields>
constexpr auto ColumnsOf() {
    std::array<ExportColumn, std::size(Fields)> columns{};
    std::ranges::transform(Fields, columns.begin(), [](const auto& field) {
        return ExportColumn{.name = field.name, .kind = KindOf(field.type), .isKey = field.name == "currency"};
    });
    columns.front().isKey = true;
    return columns;
}

inline const std::vector<ProductMargin>& ProductMargins(const Analysis& analysis) {
    return analysis.margin.products;
}

inline const std::vector<ProductMarginDay>& ProductMarginDays(const Analysis& analysis) {
    return analysis.margin.productDays;
}

}  // namespace analysis_tables

template <const auto& Fields>
inline constexpr auto kAnalysisColumns = analysis_tables::ColumnsOf<Fields>();

/// What stands for a figure of an analysis under a column of this kind.
[[nodiscard]] inline ExportCell CellOf(const AnalysisValue& value, ColumnKind kind) {
    if (const auto* const text = std::get_if<std::string_view>(&value)) {
        return kind == ColumnKind::Day ? ExportCell(DayCell{*text}) : ExportCell(GbkCell{*text});
    }
    if (const auto* const number = std::get_if<double>(&value)) return *number;
    if (const auto* const count = std::get_if<std::int64_t>(&value)) return *count;
    return {};
}

/// Walks through a list of an analysis: WalkAnalysis<kMonthFields, &Analysis::months>.
template <const auto& Fields, auto List>
void WalkAnalysis(const ExportSource& source, CRowSink& sink) {
    constexpr auto& kColumns = kAnalysisColumns<Fields>;
    std::array<ExportCell, kColumns.size()> cells;
    for (const auto& row : std::invoke(List, source.analysis)) {
        for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = CellOf(Fields[i].value(row), kColumns[i].kind);
        sink.OnRow(cells);
    }
}

}  // namespace tradebill
