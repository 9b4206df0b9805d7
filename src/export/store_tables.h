// The tables of the stores: what statements say, a row each. An amount is the number that its text is, and nothing
// where the text is no plain decimal. Days have their analysis beside it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "analysis/analysis_fields.h"
#include "export/analysis_tables.h"
#include "export/table.h"
#include "report/record_fields.h"
#include "report/records.h"
#include "report/side_records.h"

namespace tradebill {

namespace store_tables {

/// `Field` is a TextField or a SideField.
template <class Field>
constexpr ExportColumn ColumnOf(const Field& field) {
    const bool isDay = field.name.ends_with("_DATE");
    return {.name = field.name,
            .kind = field.isAmount ? ColumnKind::Number : (isDay ? ColumnKind::Day : ColumnKind::Text),
            .isKey = field.name == "BILL_DATE"};
}

/// A day is looked for by itself: a record of the host's live figures has no other.
template <std::size_t N>
constexpr auto DayColumns(const std::array<ExportColumn, N>& record) {
    constexpr auto& kResults = kAnalysisColumns<kDayResultFields>;
    std::array<ExportColumn, N + kResults.size()> columns{};
    columns.front() = kResults.front();
    std::ranges::transform(record, columns.begin() + 1, [](ExportColumn column) {
        column.isKey = false;
        return column;
    });
    std::copy(kResults.begin() + 1, kResults.end(), columns.begin() + 1 + N);
    return columns;
}

/// The columns of a record's fields, with `More` behind them.
template <std::size_t More = 0, class Field, std::size_t N>
constexpr std::array<ExportColumn, N + More> ColumnsOf(const Field (&fields)[N],
                                                       const std::array<ExportColumn, More>& more = {}) {
    std::array<ExportColumn, N + More> columns{};
    std::ranges::transform(fields, columns.begin(), ColumnOf<Field>);
    std::ranges::copy(more, columns.begin() + N);
    return columns;
}

/// What a row is counted under: the product's code or printed name, that name if it isn't the code, and the contract
/// with its month.
constexpr std::array<ExportColumn, 3> kProductColumns{{{"product"}, {"productName"}, {"fullContract"}}};

constexpr std::array<ExportColumn, 8> kClosedMoreColumns{{{"side"},
                                                          {"tradeSide"},
                                                          kProductColumns[0],
                                                          kProductColumns[1],
                                                          kProductColumns[2],
                                                          {"pl", ColumnKind::Number},
                                                          {"holdingDays", ColumnKind::Count},
                                                          {"fees", ColumnKind::Number}}};

constexpr std::array<ExportColumn, 1> kRateColumn{{{"EXCHANGE_RATE", ColumnKind::Number}}};

/// A day of a currency is looked for by both.
constexpr auto CurrencyDayColumns() {
    auto columns = ColumnsOf(kMoneyFields, kRateColumn);
    std::ranges::find(columns, std::string_view("CURRENCY"), &ExportColumn::name)->isKey = true;
    return columns;
}

}  // namespace store_tables

inline constexpr auto kDayColumns =
    store_tables::DayColumns(store_tables::ColumnsOf(kMoneyFields, store_tables::kRateColumn));
inline constexpr auto kCurrencyDayColumns = store_tables::CurrencyDayColumns();
inline constexpr auto kTradeColumns = store_tables::ColumnsOf(kMatchFields, store_tables::kProductColumns);
inline constexpr auto kClosedColumns = store_tables::ColumnsOf(kPingFields, store_tables::kClosedMoreColumns);
inline constexpr auto kPositionColumns = store_tables::ColumnsOf(kOpiDetailFields, store_tables::kProductColumns);
inline constexpr auto kPositionSumColumns = store_tables::ColumnsOf(kOpiSumFields, store_tables::kProductColumns);
inline constexpr auto kCashColumns = store_tables::ColumnsOf(kCashFields);
inline constexpr auto kExerciseColumns = store_tables::ColumnsOf(kExerciseFields);
inline constexpr auto kDeliveryColumns = store_tables::ColumnsOf(kDeliveryFields);

/// Oldest first; records that are no day of the analysis come behind the others, without one.
void WalkDays(const ExportSource& source, CRowSink& sink);
/// `CURRENCY` is the name of the store that a record is in.
void WalkCurrencyDays(const ExportSource& source, CRowSink& sink);
void WalkTrades(const ExportSource& source, CRowSink& sink);
/// Of the account's family.
void WalkClosed(const ExportSource& source, CRowSink& sink);
void WalkPositions(const ExportSource& source, CRowSink& sink);
void WalkPositionSums(const ExportSource& source, CRowSink& sink);
void WalkCash(const ExportSource& source, CRowSink& sink);
void WalkExercises(const ExportSource& source, CRowSink& sink);
void WalkDeliveries(const ExportSource& source, CRowSink& sink);

}  // namespace tradebill
