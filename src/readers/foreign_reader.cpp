#include <cstddef>
#include <string_view>

#include "base/gbk.h"
#include "base/text.h"
#include "readers/columns.h"
#include "readers/fixed_readers.h"
#include "readers/foreign_money.h"
#include "readers/gap_side.h"
#include "readers/record_sink.h"
#include "readers/scan_listener.h"
#include "readers/section_scan.h"
#include "readers/seen_columns.h"
#include "readers/statement_text.h"
#include "report/records.h"

namespace tradebill {
namespace {

constexpr std::string_view kSubtotals[] = {"计"_gbk, "共"_gbk};
constexpr std::size_t kLeastColumns = 7;
constexpr std::size_t kLotsColumn = 4;

// clang-format off
constexpr Column<MatchRecord> kTradeColumns[] = {
    {Slot<&MatchRecord::MATCH_DATE>,  0},
    {Slot<&MatchRecord::CONTRACT>,    1},
    {Slot<&MatchRecord::MATCH_PRICE>, 5},
    {Slot<&MatchRecord::POUNDAGE>,    6},
    {Slot<&MatchRecord::CURRENCY>,    7, Treatment::KeepIfPresent},
};

constexpr Column<PingDetail> kOpenedColumns[] = {
    {Slot<&PingDetail::OPEN_DATE>,    0},
    {Slot<&PingDetail::CONTRACT>,     1},
};

constexpr Column<PingDetail> kClosedColumns[] = {
    {Slot<&PingDetail::MATCH_DATE>,   0},
    {Slot<&PingDetail::CONTRACT>,     1},
    {Slot<&PingDetail::MATCH_PRICE>,  5},
    {Slot<&PingDetail::OFFSETPL>,     6},
    {Slot<&PingDetail::CURRENCY>,     7, Treatment::KeepIfPresent},
};

constexpr Column<OpiDetail> kOpenColumns[] = {
    {Slot<&OpiDetail::OPEN_DATE>,     0},
    {Slot<&OpiDetail::CONTRACT>,      1},
    {Slot<&OpiDetail::POSITION_VOL>,  4},
    {Slot<&OpiDetail::OPEN_PRICE>,    5},
    {Slot<&OpiDetail::SETTLE_PRICE>,  6},
    {Slot<&OpiDetail::FLOATPL>,       7, Treatment::KeepIfPresent},
    {Slot<&OpiDetail::CURRENCY>,      8, Treatment::KeepIfPresent},
};
// clang-format on
static_assert(LastColumn(kTradeColumns) < kLeastColumns && LastColumn(kOpenColumns) < kLeastColumns);
static_assert(LastColumn(kClosedColumns) < kLeastColumns);

/// A table ends above the title of one of its neighbours.
constexpr SectionLayout Table(SectionKind kind, std::string_view title, std::string_view neighbour,
                              std::string_view otherNeighbour, int terminatorOffset, std::size_t minColumns) {
    return {.kind = kind,
            .title = title,
            .terminator = neighbour,
            .otherTerminator = otherNeighbour,
            .terminatorOffset = terminatorOffset,
            .firstRow = 4,
            .endOffset = 1,
            .minColumns = minColumns,
            .subtotals = kSubtotals};
}

// Short rows of trades and open positions are looked at too: one word alone is a heading.
constexpr SectionLayout kTrades = Table(SectionKind::Trades, "成交记录"_gbk, "平仓明细"_gbk, "持仓明细"_gbk, 2, 1);
constexpr SectionLayout kClosed =
    Table(SectionKind::Closed, "平仓明细"_gbk, "持仓明细"_gbk, "资金汇总"_gbk, 3, kLeastColumns);
constexpr SectionLayout kOpen = Table(SectionKind::Open, "持仓明细"_gbk, "资金汇总"_gbk, "平仓明细"_gbk, 2, 1);

// The column of the lots, where the gap before it tells the side.
constexpr ColumnSeen kTradeLots[] = {{.column = kLotsColumn, .field = "MATCH_VOL", .isAmount = true}};

/// What BID becomes; empty if the gap doesn't tell.
std::string_view SideText(GapSide side) {
    switch (side) {
        case GapSide::Buy:
            return "买"_gbk;
        case GapSide::Sell:
            return "卖"_gbk;
        case GapSide::Undecided:
            break;
    }
    return {};
}

/// Side and lots of a trade; both stay empty if the gap doesn't tell the side.
template <class Record>
void SetSideAndLots(std::string_view rowText, Row row, Record& record) {
    const GapSide side = ClassifySideByGap(rowText, row);
    CopyField(record.BID, SideText(side));
    if (side != GapSide::Undecided) CopyField(record.MATCH_VOL, row[kLotsColumn]);
}

/// Reads a table whose rows stand below headings that name their exchange. `onRow(Row, std::string_view exchange)`
/// makes the record. A rule counts as a heading too.
template <class OnRow>
void ReadUnderHeadings(CSectionScan& scan, const SectionLayout& layout, const SectionRows& rows, OnRow onRow) {
    std::string_view heading;
    scan.ReadRows(layout, rows, [&](Row row) -> RowVerdict {
        if (row.size() == 1) {
            heading = row.front();
            return {IsRule(heading) ? RowFate::Rule : RowFate::Heading};
        }
        if (row.size() < kLeastColumns) return ShortRow(scan.CurrentRow(), kLeastColumns);
        onRow(row, heading);
        return {};
    });
}

void ReadTrades(std::string_view day, CSectionScan& scan, CRecordSink& sink) {
    const auto rows = scan.Find(kTrades);
    if (!rows) return;
    TellColumns<MatchRecord>(kTradeColumns, scan.Listener(), kTradeLots);
    ReadUnderHeadings(scan, kTrades, *rows, [&](Row row, std::string_view exchange) {
        MatchRecord& record = sink.NewRow<MatchRecord>();
        FillRecord<MatchRecord>(record, day, row, kTradeColumns);
        CopyField(record.EXCH_NAME, exchange);
        SetSideAndLots(scan.CurrentRow(), row, record);
        sink.Add(record);
    });
}

/// The day of opening, if `opening` is of the same contract as the closed `record`.
void TakeOpenDate(const PingDetail& opening, PingDetail& record) {
    if (FieldText(opening.CONTRACT) == FieldText(record.CONTRACT))
        CopyField(record.OPEN_DATE, FieldText(opening.OPEN_DATE));
}

/// A closed position takes two rows; the second is the one that counts.
void ReadClosed(std::string_view day, CSectionScan& scan, CRecordSink& sink) {
    const auto rows = scan.Find(kClosed);
    if (!rows) return;
    TellColumns<PingDetail>(kClosedColumns, scan.Listener(), kTradeLots);
    PingDetail opening{};
    bool isSecond = false;
    scan.ReadRows(kClosed, *rows, [&](Row row) -> RowVerdict {
        const bool counts = isSecond;
        isSecond = !isSecond;
        if (!counts) {
            FillRecord<PingDetail>(opening, row, kOpenedColumns);
            return {RowFate::FirstOfPair};
        }
        PingDetail record{};
        FillRecord<PingDetail>(record, day, row, kClosedColumns);
        SetSideAndLots(scan.CurrentRow(), row, record);
        TakeOpenDate(opening, record);
        sink.AddForeignClosed(record);
        return {};
    });
}

void ReadOpen(std::string_view day, CSectionScan& scan, CRecordSink& sink) {
    const auto rows = scan.Find(kOpen);
    if (!rows) return;
    TellColumns<OpiDetail>(kOpenColumns, scan.Listener());
    ReadUnderHeadings(scan, kOpen, *rows, [&](Row row, std::string_view exchange) {
        OpiDetail& record = sink.NewRow<OpiDetail>();
        FillRecord<OpiDetail>(record, day, row, kOpenColumns);
        CopyField(record.EXCH_NAME, exchange);
        CopyField(record.BID, SideText(ClassifySideByGap(scan.CurrentRow(), row)));
        sink.Add(record);
    });
}

}  // namespace

void ReadForeignStatement(const StatementText& statement, CReport& report) {
    CSectionScan scan(statement, SearchFrom::Top);
    CRecordSink sink(report, statement.listener);
    ReadForeignMoney(statement.day, scan, sink);
    ReadTrades(statement.day, scan, sink);
    ReadClosed(statement.day, scan, sink);
    ReadOpen(statement.day, scan, sink);
}

}  // namespace tradebill
