#include "readers/fixed_layout.h"

#include <memory>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "readers/columns.h"
#include "readers/money_labels.h"
#include "readers/record_sink.h"
#include "readers/scan_listener.h"
#include "readers/section_scan.h"
#include "readers/statement_text.h"
#include "readers/table_layout.h"
#include "report/money_record.h"
#include "report/records.h"
#include "report/report.h"

namespace tradebill {
namespace {

/// The record of a found section, whatever its rows hold.
std::unique_ptr<MoneyRecord> ReadMoneyBlock(const FixedLayout& layout, const SectionRows& rows, CSectionScan& scan) {
    CScanListener* const listener = scan.Listener();
    auto record = MakeCleared<MoneyRecord>();
    TellLabels(layout.labels, listener);
    if (layout.premium.income.empty()) {
        scan.ReadRows(layout.money, rows, [&](Row row) { ReadMoneyRow(row, layout.labels, *record, listener); });
        return record;
    }
    CLabelledAmount income(layout.premium.match, layout.premium.income, listener);
    CLabelledAmount payment(layout.premium.match, layout.premium.payment, listener);
    scan.ReadRows(layout.money, rows, [&](Row row) {
        ReadMoneyRow(row, layout.labels, *record, listener);
        income.ReadRow(row);
        payment.ReadRow(row);
    });
    CopyField(record->QLJSZ, CNumberText(income.Amount() - payment.Amount()).View());
    return record;
}

void ReadMoney(const FixedLayout& layout, std::string_view billDate, CSectionScan& scan, CRecordSink& sink) {
    const auto rows = scan.Find(layout.money);
    if (!rows) return;
    auto record = ReadMoneyBlock(layout, *rows, scan);
    CopyField(record->BILL_DATE, billDate);
    sink.Add(std::move(record));
}

std::string_view BillDateOf(const FixedLayout& layout, const StatementText& statement) {
    if (layout.dateWord.empty()) return statement.day;
    const std::string_view date = ScanDate(statement.text, layout.dateWord);
    if (statement.listener != nullptr) statement.listener->OnDate(layout.dateWord, date);
    return date;
}

}  // namespace

void ReadFixedLayout(const FixedLayout& layout, const StatementText& statement, CReport& report) {
    const std::string_view billDate = BillDateOf(layout, statement);
    if (layout.skipsStoredDay && report.MoneyStore.HasDay(billDate)) return;
    CSectionScan scan(statement, layout.searchFrom);
    CRecordSink sink(report, statement.listener);
    ReadMoney(layout, billDate, scan, sink);
    ReadTable(scan, layout.trades, billDate, sink);
    ReadTable(scan, layout.closed, billDate, sink);
    ReadTable(scan, layout.open, billDate, sink);
    if (layout.summarySides.sides.empty()) return;
    const auto rows = scan.Find(layout.summary);
    if (!rows) return;
    TellColumns(layout.summarySides, statement.listener);
    scan.ReadRows(layout.summary, *rows, [&](Row row) {
        return ReadBothSides(row, layout.summarySides, billDate, SumFeed::No, sink, [](const OpiSum&) {});
    });
}

}  // namespace tradebill
