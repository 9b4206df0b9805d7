#include "report/money_store.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "report/money_record.h"
#include "report/statement_format.h"

namespace tradebill {

namespace {

constexpr std::size_t kKeyLength = 14;

std::string KeyOf(std::string_view day) {
    return std::string(day.substr(0, kKeyLength));
}

/// For statements that print margin and free funds, but no equity.
void FillEquity(MoneyRecord& record) {
    CopyField(record.KHQY, CNumberText(AmountIn(record.BZJZY) + AmountIn(record.KYZJ)).View());
}

void Lower(double& bound, double value) {
    if (value < bound) bound = value;
}

void Raise(double& bound, double value) {
    if (value > bound) bound = value;
}

}  // namespace

bool IsLive(const MoneyRecord& record) {
    return !FieldText(record.HOST_POSITION_MARGIN).empty();
}

bool CMoneyStore::Add(std::unique_ptr<MoneyRecord> record, MoneySource source, EquityRule equity) {
    if (record == nullptr) return false;
    if (equity == EquityRule::MarginAndAvailable) FillEquity(*record);
    if (Records.empty()) {
        TakeFirst(*record, source);
    } else {
        TakeLater(*record, source);
    }
    Keep(std::move(record));
    return true;
}

void CMoneyStore::TakeFirst(const MoneyRecord& record, MoneySource source) {
    const double rate = record.EXCHANGE_RATE;
    MinEquity = MaxEquity = AmountIn(record.KHQY) / rate;
    MinDayPL = MaxDayPL = AmountIn(record.PCYK) / rate;
    OpeningEquity = AmountIn(record.QCQY) / rate;
    ClosingEquity = AmountIn(record.QMJC) / rate;
    TotalClosedPL = AmountIn(record.PCYK) / rate;
    TotalPositionPL = AmountIn(record.CCDSYK) / rate;
    LastHostCurrent = AmountIn(record.HOST_CURRENT) / rate;
    TotalCashFlow = FirstCashFlow = AmountIn(record.CRJ) / rate;
    Available = AmountIn(record.KYZJ) / rate;
    TotalFees = std::fabs(AmountIn(record.SXF) / rate) + std::fabs(AmountIn(record.XQSXF)) / rate;
    TotalPremium = AmountIn(record.QLJSZ) / rate;
    if (source == MoneySource::Live) {
        FrozenA = AmountIn(record.HOST_FROZEN_A) / rate;
        FrozenB = AmountIn(record.HOST_FROZEN_B) / rate;
        HostPositionPL = AmountIn(record.HOST_POSITION_PL) / rate;
        PositionMargin = AmountIn(record.HOST_POSITION_MARGIN) / rate;
        TotalPositionPL = AmountIn(record.HOST_POSITION_PL) / rate;
    } else {
        PositionMargin = ClosingEquity - Available;
    }
}

void CMoneyStore::TakeLater(const MoneyRecord& record, MoneySource source) {
    const double rate = record.EXCHANGE_RATE;
    const double equity = AmountIn(record.KHQY) / rate;
    const double dayPL = AmountIn(record.PCYK) / rate;
    Lower(MinEquity, equity);
    Raise(MaxEquity, equity);
    Lower(MinDayPL, dayPL);
    Raise(MaxDayPL, dayPL);
    ClosingEquity = AmountIn(record.QMJC) / rate;
    Available = AmountIn(record.KYZJ) / rate;
    LastHostCurrent = AmountIn(record.HOST_CURRENT) / rate;
    TotalClosedPL += dayPL;
    TotalPositionPL += AmountIn(record.CCDSYK) / rate;
    TotalCashFlow += AmountIn(record.CRJ) / rate;
    TotalFees += std::fabs(AmountIn(record.SXF)) / rate;
    TotalFees += std::fabs(AmountIn(record.XQSXF)) / rate;
    TotalPremium += AmountIn(record.QLJSZ);  // not divided, unlike the first record's
    if (source == MoneySource::Live) {
        FrozenA += AmountIn(record.HOST_FROZEN_A) / rate;
        FrozenB += AmountIn(record.HOST_FROZEN_B) / rate;
        HostPositionPL += AmountIn(record.HOST_POSITION_PL) / rate;
        TotalPositionPL += AmountIn(record.HOST_POSITION_PL) / rate;
        PositionMargin = AmountIn(record.HOST_POSITION_MARGIN) / rate;
    } else {
        PositionMargin = ClosingEquity - Available;
    }
}

void CMoneyStore::Keep(std::unique_ptr<MoneyRecord> record) {
    MoneyRecord*& slot = byDay_[KeyOf(FieldText(record->BILL_DATE))];
    if (slot != nullptr) {
        const auto old = std::ranges::find(Records, slot, &std::unique_ptr<MoneyRecord>::get);
        Records.erase(old);
    }
    slot = record.get();
    Records.push_back(std::move(record));
}

MoneyRecord* CMoneyStore::Find(std::string_view day) const {
    const auto found = byDay_.find(KeyOf(day));
    return found == byDay_.end() ? nullptr : found->second;
}

bool CMoneyStore::KeepsCashFlow() const {
    return std::ranges::any_of(
        Records, [](const auto& record) { return !IsLive(*record) && !Trim(FieldText(record->CRJ)).empty(); });
}

bool CMoneyStore::HasDay(std::string_view day) const {
    return FindDay(day) != nullptr;
}

const MoneyRecord* CMoneyStore::FindDay(std::string_view day) const {
    return Find(day);
}

void CMoneyStore::SetDayClosedPL(std::string_view day, std::string_view value) {
    MoneyRecord* const record = Find(day);
    if (record == nullptr) return;
    CopyField(record->PCYK, value);
    TotalClosedPL += ParseAmount(value);
    const double dayPL = AmountIn(record->PCYK) / record->EXCHANGE_RATE;
    Lower(MinDayPL, dayPL);
    Raise(MaxDayPL, dayPL);
}

void CMoneyStore::SetDayPositionPL(std::string_view day, std::string_view value, double amount) {
    MoneyRecord* const record = Find(day);
    if (record == nullptr) return;
    CopyField(record->CCDSYK, value);
    TotalPositionPL += amount;
}

void CMoneyStore::Clear() {
    for (double* const figure : {&LastHostCurrent, &OpeningEquity, &ClosingEquity, &TotalClosedPL, &TotalPositionPL,
                                 &TotalCashFlow, &FirstCashFlow, &Available, &MinEquity, &MaxEquity, &MinDayPL,
                                 &MaxDayPL, &FrozenB, &FrozenA, &HostPositionPL, &PositionMargin, &TotalFees}) {
        *figure = 0;
    }
    Records.clear();
    byDay_.clear();
}

}  // namespace tradebill
