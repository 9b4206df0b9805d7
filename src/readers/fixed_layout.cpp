#include "readers/fixed_layout.h"

#include <memory>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "readers/date_scan.h"
#include "readers/hand_over.h"
#include "statement/money_store.h"

namespace tradebill {
namespace {

/// The amount behind the last label of `word`, if the row has one.
void TakeAmount(Row row, std::string_view word, double& amount) {
    for (std::size_t column = 0; column + 1 < row.size(); ++column) {
        if (Contains(row[column], word)) amount = ParseAmount(row[column + 1]);
    }
}

void ReadMoney(const FixedLayout& layout, std::string_view billDate, CSectionScan& scan) {
    auto record = std::make_unique<MoneyRecord>(ClearedMoneyRecord());
    CopyField(record->BILL_DATE, billDate);
    const bool hasPremium = !layout.premium.income.empty();
    double income = 0;
    double payment = 0;
    const bool found = scan.Read(layout.money, [&](Row row) {
        ReadMoneyRow(row, layout.labels, *record);
        if (!hasPremium) return;
        TakeAmount(row, layout.premium.income, income);
        TakeAmount(row, layout.premium.payment, payment);
    });
    if (!found) return;
    if (hasPremium) CopyField(record->QLJSZ, CNumberText(income - payment).View());
    HandOver(std::move(record));
}

template <class Record>
void ReadTable(const TableLayout<Record>& table, std::string_view billDate, CSectionScan& scan) {
    scan.Read(table.section, [&](Row row) { HandOver(MakeRecord(billDate, row, table.columns)); });
}

void ReadSummary(const FixedLayout& layout, std::string_view billDate, CSectionScan& scan) {
    scan.Read(layout.summary, [&](Row row) {
        for (const SummarySide& side : layout.summarySides) {
            if (ParseInteger(row[side.lotsColumn]) <= 0) continue;
            auto record = MakeRecord(billDate, row, side.columns);
            CopyField(record->BID, side.side);
            HandOver(std::move(record));
        }
    });
}

}  // namespace

void ReadFixedLayout(const FixedLayout& layout, std::string_view day, std::string_view text) {
    const std::string_view billDate = layout.dateWord.empty() ? day : ScanDate(text, layout.dateWord);
    if (layout.skipsStoredDay && MoneyStore.HasDay(billDate)) return;
    CSectionScan scan(text, layout.searchFrom);
    ReadMoney(layout, billDate, scan);
    ReadTable(layout.trades, billDate, scan);
    ReadTable(layout.closed, billDate, scan);
    ReadTable(layout.open, billDate, scan);
    if (!layout.summarySides.empty()) ReadSummary(layout, billDate, scan);
}

}  // namespace tradebill
