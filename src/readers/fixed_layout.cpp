#include "readers/fixed_layout.h"

#include <memory>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "readers/date_scan.h"
#include "readers/hand_over.h"
#include "report/money_store.h"

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

void ReadMoney(const FixedLayout& layout, std::string_view billDate, CSectionScan& scan) {
    const auto rows = scan.Find(layout.money);
    if (!rows) return;
    auto record = ReadMoneyBlock(layout, *rows, scan);
    CopyField(record->BILL_DATE, billDate);
    HandOver(std::move(record), scan.Listener());
}

std::string_view BillDateOf(const FixedLayout& layout, std::string_view day, std::string_view text,
                            CScanListener* listener) {
    if (layout.dateWord.empty()) return day;
    const std::string_view date = ScanDate(text, layout.dateWord);
    if (listener != nullptr) listener->OnDate(layout.dateWord, date);
    return date;
}

}  // namespace

void ReadFixedLayout(const FixedLayout& layout, std::string_view day, std::string_view text, CScanListener* listener) {
    const std::string_view billDate = BillDateOf(layout, day, text, listener);
    if (layout.skipsStoredDay && MoneyStore.HasDay(billDate)) return;
    CSectionScan scan(text, layout.searchFrom, listener);
    ReadMoney(layout, billDate, scan);
    ReadTable(scan, layout.trades, billDate);
    ReadTable(scan, layout.closed, billDate);
    ReadTable(scan, layout.open, billDate);
    if (layout.summarySides.empty()) return;
    scan.Read(layout.summary, [&](Row row) {
        return ReadBothSides(row, layout.summarySides, billDate, SumFeed::No, listener, [](const OpiSum&) {});
    });
}

}  // namespace tradebill
