#include "readers/foreign_money.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "base/gbk.h"
#include "base/text.h"
#include "readers/columns.h"
#include "readers/record_sink.h"
#include "readers/scan_listener.h"
#include "readers/section_scan.h"
#include "readers/seen_columns.h"
#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {
namespace {

// Rows are cut only where their values begin.
constexpr SectionLayout kSummaryBlock{
    .title = "资金汇总"_gbk, .terminator = "追加保证金"_gbk, .terminatorOffset = 2, .firstRow = 2, .delimiter = ""};
constexpr SectionLayout kLaterBlock{
    .title = "借贷成本"_gbk, .terminator = "追加保证金"_gbk, .terminatorOffset = 2, .firstRow = 2, .delimiter = ""};

constexpr std::string_view kEquity = "当前权益"_gbk;
constexpr std::string_view kClosedPL = "平仓盈亏 Realized P/L"_gbk;
constexpr std::string_view kFloatingPL = "浮动盈亏"_gbk;

struct RowLabel {
    std::string_view word;
    FieldSlot<MoneyRecord> field;
};

// The first that a row contains takes it.
constexpr RowLabel kLabels[] = {
    {"维持保证金"_gbk, Slot<&MoneyRecord::BZJZY>}, {"手续费"_gbk, Slot<&MoneyRecord::SXF>},
    {"可用资金"_gbk, Slot<&MoneyRecord::KYZJ>},    {"出入金"_gbk, Slot<&MoneyRecord::CRJ>},
    {"期初资金"_gbk, Slot<&MoneyRecord::QCQY>},
};

using Records = std::vector<MoneyRecord>;  // one per currency

/// The currencies' names in the row below a block's title: behind "Base" and one character, later from a fixed place
/// on.
std::string_view NamesIn(std::string_view heading, bool isFirstBlock) {
    constexpr std::string_view kBase = "Base";
    constexpr std::size_t kLaterNames = 20;
    std::size_t at = kLaterNames;
    if (isFirstBlock) {
        const std::size_t base = heading.find(kBase);
        if (base == std::string_view::npos) return {};
        at = base + kBase.size() + 1;
    }
    return heading.substr(std::min(at, heading.size()));
}

/// The values of a row go to the currencies in their order; what a row has too much is dropped.
void SetValues(Row values, FieldSlot<MoneyRecord> field, Records& records, CScanListener* listener) {
    std::string text;
    for (std::size_t i = 0; i < std::min(values.size(), records.size()); ++i) {
        text.clear();
        std::ranges::copy_if(values[i], std::back_inserter(text), [](char byte) { return byte != ','; });
        field.Set(records[i], text);
        if (listener != nullptr) listener->OnLabelledValue({FieldAt(field).name, values[i], text});
    }
}

/// What stands from the row's first digit or "-" on.
std::string_view ValuesOf(std::string_view row) {
    const std::size_t at = row.find_first_of("0123456789-");
    return at == std::string_view::npos ? std::string_view() : row.substr(at);
}

class CBlockReader {
public:
    CBlockReader(Records& records, CScanListener* listener) : records_(records), listener_(listener) {
        if (listener_ == nullptr) return;
        for (const RowLabel& label : kLabels) listener_->OnLabelWanted(label.word);
        for (const std::string_view word : {kEquity, kClosedPL, kFloatingPL}) listener_->OnLabelWanted(word);
    }

    void ReadRow(std::string_view row) {
        row_ = row;
        SplitText(ValuesOf(row), " ", values_);
        const bool isEquity = Contains(row, kEquity);
        if (isEquity) Set(kEquity, Slot<&MoneyRecord::KHQY>);
        for (const RowLabel& label : kLabels) {
            if (!Contains(row, label.word)) continue;
            Set(label.word, label.field);
            return;
        }
        if (isEquity) Set(kEquity, Slot<&MoneyRecord::QMJC>);
        if (Contains(row, kClosedPL)) {
            Set(kClosedPL, Slot<&MoneyRecord::PCYK>);
        } else if (Contains(row, kFloatingPL)) {
            Set(kFloatingPL, Slot<&MoneyRecord::HOST_CURRENT>);
        }
    }

private:
    void Set(std::string_view label, FieldSlot<MoneyRecord> field) {
        if (listener_ != nullptr) listener_->OnLabelMet(label);
        SetValues(values_, field, records_, listener_);
    }

    Records& records_;
    CScanListener* listener_;
    std::string_view row_;
    std::vector<std::string_view> values_;
};

void HandOver(const Records& records, Row names, bool isFirstBlock, CRecordSink& sink) {
    if (isFirstBlock) sink.AddForeignAccount(records.front());
    for (std::size_t i = 0; i < records.size(); ++i) sink.AddCurrency(records[i], names[i]);
}

/// Returns false if the block names no currencies.
bool ReadBlock(std::string_view day, const SectionLayout& layout, const SectionRows& rows, bool isFirstBlock,
               CSectionScan& scan, CRecordSink& sink) {
    std::vector<std::string_view> names;
    const auto heading = static_cast<std::int64_t>(rows.title) + 1;
    if (SplitText(NamesIn(scan.RowText(heading), isFirstBlock), " ", names) == 0) return false;

    MoneyRecord cleared = ClearedMoneyRecord();
    CopyField(cleared.BILL_DATE, day);
    Records records(names.size(), cleared);
    CBlockReader block(records, scan.Listener());
    scan.ReadRows(layout, rows, [&](Row) { block.ReadRow(scan.CurrentRow()); });
    HandOver(records, names, isFirstBlock, sink);
    return true;
}

}  // namespace

void ReadForeignMoney(std::string_view day, CSectionScan& scan, CRecordSink& sink) {
    std::size_t from = 0;
    for (bool isFirstBlock = true;; isFirstBlock = false) {
        const SectionLayout& layout = isFirstBlock ? kSummaryBlock : kLaterBlock;
        const auto rows = scan.FindBehind(from, layout);
        if (!rows || !ReadBlock(day, layout, *rows, isFirstBlock, scan, sink)) return;
        from = rows->terminator;
    }
}

}  // namespace tradebill
