#include "export/store_tables.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>

#include "analysis/account_days.h"
#include "analysis/analysis.h"
#include "analysis/analysis_fields.h"
#include "analysis/closed_row.h"
#include "analysis/day_results.h"
#include "analysis/product_names.h"
#include "analysis/trade_tally.h"
#include "base/number.h"
#include "base/text.h"
#include "export/analysis_tables.h"
#include "export/plain_decimal.h"
#include "export/table.h"
#include "report/closed_rows.h"
#include "report/currency_money_store.h"
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/product_text.h"
#include "report/record_fields.h"
#include "report/records.h"
#include "report/report.h"
#include "report/side_records.h"

namespace tradebill {
namespace {

ExportCell CellOf(const ExportColumn& column, std::string_view text) {
    if (column.kind == ColumnKind::Day) return DayCell{text};
    if (column.kind == ColumnKind::Text) return GbkCell{text};
    const CPlainDecimal amount(text);
    return amount.IsNumber() ? ExportCell(ParseAmount(amount.View())) : ExportCell();
}

/// The cells of a record's fields, from the first column on.
template <class Record, class Field, std::size_t N>
void FillCells(const Record& record, const Field (&fields)[N], std::span<const ExportColumn> columns,
               std::span<ExportCell> cells) {
    for (std::size_t i = 0; i < N; ++i) cells[i] = CellOf(columns[i], fields[i].Text(record));
}

template <class Rows, class Field, std::size_t N>
void WalkRows(const Rows& rows, const Field (&fields)[N], const std::array<ExportColumn, N>& columns, CRowSink& sink) {
    std::array<ExportCell, N> cells;
    for (const auto& record : rows) {
        FillCells(record, fields, columns, cells);
        sink.OnRow(cells);
    }
}

/// Under what the rows of a report are counted.
class CRowProducts {
public:
    explicit CRowProducts(const CReport& report)
        : names_(report), namesDeliveryApart_(report.Format().namesDeliveryApart) {}

    /// Fills the cells of kProductColumns. They are valid until the next row.
    template <class Row>
    void Fill(const Row& row, std::span<ExportCell, store_tables::kProductColumns.size()> cells) {
        const std::string_view contract = FieldText(row.CONTRACT);
        const std::string_view delivery = FieldText(row.DELIVERY);
        const ProductName& product = names_.Of(contract, delivery);
        contract_ = ContractKey(contract, delivery, namesDeliveryApart_);
        cells[0] = GbkCell{product.key};
        cells[1] = GbkCell{product.name};
        cells[2] = GbkCell{contract_};
    }

    [[nodiscard]] CProductNames& Names() { return names_; }

private:
    CProductNames names_;
    bool namesDeliveryApart_;
    std::string contract_;
};

/// Rows of positions or trades, with what they are counted under.
template <class Rows, class Field, std::size_t N, std::size_t Columns>
void WalkProductRows(const ExportSource& source, const Rows& rows, const Field (&fields)[N],
                     const std::array<ExportColumn, Columns>& columns, CRowSink& sink) {
    constexpr std::size_t kProductCells = store_tables::kProductColumns.size();
    static_assert(Columns == N + kProductCells);
    CRowProducts products(source.report);
    std::array<ExportCell, Columns> cells;
    for (const auto& record : rows) {
        FillCells(record, fields, columns, cells);
        products.Fill(record, std::span(cells).template subspan<N, kProductCells>());
        sink.OnRow(cells);
    }
}

constexpr std::size_t kPingTexts = std::size(kPingFields);

constexpr std::size_t kResultCells = 3;

template <class Value>
ExportCell CellOf(const std::optional<Value>& value) {
    return value ? ExportCell(*value) : ExportCell();
}

/// pl, holdingDays and fees of a row; none of a row that names no side.
void FillResults(const std::optional<GroupedRow>& closed, std::span<ExportCell, kResultCells> cells) {
    cells[0] = closed ? ExportCell(closed->row.pl) : ExportCell();
    cells[1] = closed ? CellOf(closed->row.holdingDays) : ExportCell();
    cells[2] = closed ? CellOf(closed->row.fees) : ExportCell();
}

constexpr std::size_t kMoneyTexts = std::size(kMoneyFields);
constexpr std::size_t kMoneyCells = kMoneyTexts + 1;

void FillMoneyCells(const MoneyRecord& record, std::span<ExportCell, kMoneyCells> cells) {
    FillCells(record, kMoneyFields, kCurrencyDayColumns, cells);
    cells[kMoneyTexts] = record.EXCHANGE_RATE;
}

constexpr auto kCurrencyAt = static_cast<std::size_t>(
    std::ranges::find(kMoneyFields, std::string_view("CURRENCY"), &TextField<MoneyRecord>::name) - kMoneyFields);

}  // namespace

void WalkDays(const ExportSource& source, CRowSink& sink) {
    std::array<ExportCell, kDayColumns.size()> cells;
    const auto money = std::span(cells).subspan<1, kMoneyCells>();
    const auto results = std::span(cells).subspan<1 + kMoneyCells>();
    std::unordered_set<const MoneyRecord*> ofDays;
    std::size_t at = 0;
    for (const AccountDay& day : AccountDaysOf(source.report)) {
        const DayResult& result = source.analysis.days[at++];
        cells.front() = DayCell{result.day};
        FillMoneyCells(*day.record, money);
        for (std::size_t i = 0; i < results.size(); ++i) {
            results[i] = CellOf(kDayResultFields[i + 1].value(result), ColumnKind::Number);
        }
        sink.OnRow(cells);
        ofDays.insert(day.record);
    }
    cells = {};
    for (const auto& record : source.report.MoneyStore.Records) {
        if (ofDays.contains(record.get())) continue;
        FillMoneyCells(*record, money);
        sink.OnRow(cells);
    }
}

void WalkCurrencyDays(const ExportSource& source, CRowSink& sink) {
    const CCurrencyMoneyStore& stores = source.report.CurrencyMoneyStore;
    std::array<ExportCell, kMoneyCells> cells;
    for (const std::string& name : stores.Names) {
        for (const auto& record : stores.Find(name)->Records) {
            FillMoneyCells(*record, cells);
            cells[kCurrencyAt] = GbkCell{name};
            sink.OnRow(cells);
        }
    }
}

void WalkTrades(const ExportSource& source, CRowSink& sink) {
    WalkProductRows(source, source.report.MatchStore.Rows, kMatchFields, kTradeColumns, sink);
}

void WalkClosed(const ExportSource& source, CRowSink& sink) {
    const CReport& report = source.report;
    CRowProducts products(report);
    const CTradeTally trades(report, products.Names());
    const CClosedRows closed(report, trades, products.Names());
    std::array<ExportCell, kClosedColumns.size()> cells;
    const auto more = std::span(cells).subspan<kPingTexts>();
    for (const PingDetail& row : report.ClosedStore().Rows) {
        FillCells(row, kPingFields, kClosedColumns, cells);
        const ClosedSides sides = ClosedSidesOf(row, report.IsForeign());
        more[0] = Utf8Cell{sides.position};
        more[1] = Utf8Cell{sides.trade};
        products.Fill(row, more.subspan<2, store_tables::kProductColumns.size()>());
        FillResults(report.IsForeign() ? closed.OfForeign(row) : closed.OfDomestic(row), more.last<kResultCells>());
        sink.OnRow(cells);
    }
}

void WalkPositions(const ExportSource& source, CRowSink& sink) {
    WalkProductRows(source, source.report.OpiDetailStore.Rows, kOpiDetailFields, kPositionColumns, sink);
}

void WalkPositionSums(const ExportSource& source, CRowSink& sink) {
    WalkProductRows(source, source.report.OpiSumStore.Rows, kOpiSumFields, kPositionSumColumns, sink);
}

void WalkCash(const ExportSource& source, CRowSink& sink) {
    WalkRows(source.report.SideRecords.Cash, kCashFields, kCashColumns, sink);
}

void WalkExercises(const ExportSource& source, CRowSink& sink) {
    WalkRows(source.report.SideRecords.Exercises, kExerciseFields, kExerciseColumns, sink);
}

void WalkDeliveries(const ExportSource& source, CRowSink& sink) {
    WalkRows(source.report.SideRecords.Deliveries, kDeliveryFields, kDeliveryColumns, sink);
}

}  // namespace tradebill
