#include "analysis/chance_account.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/day_number.h"
#include "base/gbk.h"
#include "base/text.h"
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/product_text.h"
#include "report/records.h"
#include "report/request_copy.h"

namespace tradebill {
namespace {

struct ListedProduct {
    std::string_view product;
    std::int32_t unit;
};
constexpr ListedProduct kProducts[] = {{"rb", 10}, {"m", 10}, {"cu", 5}, {"SR", 10}, {"PP", 5}, {"IF", 300}};
constexpr std::string_view kMonths[] = {"2405", "2409", "2501"};
constexpr std::string_view kStrikes[] = {"", "", "", "-C-3200", "P6400"};
constexpr std::string_view kCurrencies[] = {"USD", "EUR", "HKD"};
constexpr std::string_view kExchanges[] = {"", "X", "Y"};

std::string CentsText(std::int64_t cents) {
    std::array<char, 32> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%s%lld.%02lld", cents < 0 ? "-" : "",
                  static_cast<long long>(cents < 0 ? -cents : cents) / 100,
                  static_cast<long long>(cents < 0 ? -cents : cents) % 100);
    return buffer.data();
}

}  // namespace

std::int32_t ChanceAccount::Products::UnitOf(std::string_view contract, std::string_view /*delivery*/) const {
    for (const ListedProduct& listed : kProducts) {
        if (ProductOfContract(contract) == listed.product) return listed.unit;
    }
    return 1;
}

std::vector<ProductUnit> ChanceAccount::Products::UsedUnits() const {
    std::vector<ProductUnit> used;
    for (const ListedProduct& listed : kProducts) {
        used.push_back({.product = std::string(listed.product), .unit = listed.unit, .source = UnitSource::File});
    }
    return used;
}

ChanceAccount::ChanceAccount(unsigned seed)
    : random_(seed), isForeign_(Happens(25)), isTrouble_(Happens(40)), tradingDays_(200 + Draw(100)) {
    report_.Request.StatementKind = isForeign_ ? kForeignKind : 0;
    report_.Request.StatementFormat = isForeign_ ? 0 : 2;
    report_.Products = &products_;
    std::int64_t number = *DayNumberOf("20231101") + Draw(60);
    const int days = Happens(10) ? 1 + Draw(3) : 1 + Draw(300);
    for (int i = 0; i < days; ++i) {
        const std::string day = NumberedDay(number);
        AddMoney(day);
        AddTrades(day);
        AddClosed(day, number);
        AddPositions(day, number);
        report_.MoneyStore.EndDateText = day;
        number += Happens(80) ? 1 : 3;
    }
}

std::string ChanceAccount::DrawAmount(int leastCents, int mostCents) {
    return CentsText(leastCents + Draw(mostCents - leastCents));
}

std::string ChanceAccount::DrawContract() {
    std::string contract(OneOf(kProducts).product);
    contract += OneOf(kMonths);
    contract += OneOf(kStrikes);
    return contract;
}

void ChanceAccount::AddMoney(const std::string& day) {
    auto record = std::make_unique<MoneyRecord>(ClearedMoneyRecord());
    CopyField(record->BILL_DATE, day);
    const bool isFirst = report_.MoneyStore.Records.empty();
    if (isFirst) equityCents_ = 100'000'00 + Draw(100'000'00);
    CopyField(record->QCQY, CentsText(equityCents_));
    std::int64_t flow = 0;
    if (Happens(5)) flow = Draw(40'000'00) - 20'000'00;
    const std::int64_t scale = std::max<std::int64_t>(equityCents_ / 50, 100'00);
    equityCents_ += flow + (Happens(5) ? 0 : static_cast<std::int64_t>(Draw(2001) - 1000) * scale / 1000);
    if (isTrouble_ && Happens(1)) equityCents_ = Draw(3) * -500'00;
    CopyField(record->CRJ, isTrouble_ && Happens(1) ? "x" : CentsText(flow));
    CopyField(record->KHQY, isTrouble_ && Happens(1) ? "" : CentsText(equityCents_));
    CopyField(record->QMJC, CentsText(equityCents_));
    CopyField(record->SXF, DrawAmount(-20'00, 300'00));
    if (Happens(50)) CopyField(record->XQSXF, DrawAmount(0, 50'00));
    if (!isTrouble_ || Happens(95)) CopyField(record->BZJZY, DrawAmount(0, 150'000'00));
    if (isForeign_ && Happens(30)) record->EXCHANGE_RATE = 0.5 + Draw(100) * 0.01;
    report_.MoneyStore.Add(std::move(record), MoneySource::Statement);
}

void ChanceAccount::AddTrades(const std::string& day) {
    for (int i = Draw(6); i > 0; --i) {
        MatchRecord& row = report_.MatchStore.Add();
        CopyField(row.BILL_DATE, day);
        CopyField(row.CONTRACT, DrawContract());
        CopyField(row.EXCH_NAME, OneOf(kExchanges));
        CopyField(row.BID, Happens(50) ? "买"_gbk : "卖"_gbk);
        CopyField(row.MATCH_VOL, std::to_string(Happens(3) ? 0 : 1 + Draw(9)));
        CopyField(row.POUNDAGE, DrawAmount(0, 90'00));
        if (!isTrouble_ || Happens(98)) CopyField(row.TURNOVER, DrawAmount(0, 900'000'00));
        if (isForeign_) CopyField(row.CURRENCY, OneOf(kCurrencies));
    }
}

void ChanceAccount::AddClosed(const std::string& day, std::int64_t number) {
    for (int i = Draw(5); i > 0; --i) {
        PingDetail& row = (isForeign_ ? report_.ForeignClosedStore : report_.PingDetailStore).Add();
        CopyField(row.BILL_DATE, day);
        CopyField(row.CONTRACT, DrawContract());
        if (!isForeign_) CopyField(row.EXCH_NAME, OneOf(kExchanges));
        CopyField(row.BID, Happens(50) ? "买"_gbk : "卖"_gbk);
        if (isTrouble_ && Happens(2)) CopyField(row.BID, "");
        CopyField(row.MATCH_VOL, std::to_string(1 + Draw(9)));
        const std::string price = DrawAmount(50'00, 90'000'00);
        CopyField(row.OPEN_PRICE, price);
        CopyField(row.MATCH_PRICE, Happens(5) ? price : DrawAmount(50'00, 90'000'00));
        if (!isTrouble_ || Happens(98)) CopyField(row.OFFSETPL, Happens(5) ? "0.00" : DrawAmount(-9'000'00, 9'000'00));
        if (!isTrouble_ || Happens(95)) CopyField(row.OPEN_DATE, NumberedDay(number - (Happens(40) ? 0 : Draw(40))));
        if (isForeign_) CopyField(row.CURRENCY, OneOf(kCurrencies));
    }
}

void ChanceAccount::AddPositions(const std::string& day, std::int64_t number) {
    const bool hasDetails = Happens(70);
    for (int i = Draw(5); i > 0; --i) {
        const std::string contract = DrawContract();
        const std::string margin = DrawAmount(0, 40'000'00);
        if (hasDetails) {
            OpiDetail& row = report_.OpiDetailStore.Add();
            CopyField(row.BILL_DATE, day);
            CopyField(row.CONTRACT, contract);
            CopyField(row.BID, Happens(50) ? "买"_gbk : "卖"_gbk);
            CopyField(row.POSITION_VOL, std::to_string(1 + Draw(9)));
            if (!isTrouble_ || Happens(90)) CopyField(row.OPEN_DATE, NumberedDay(number - Draw(20)));
            if (!isTrouble_ || Happens(90)) CopyField(row.FLOATPL, DrawAmount(-9'000'00, 9'000'00));
            if (!isForeign_) CopyField(row.DEPOSIT, margin);
            if (isForeign_) CopyField(row.CURRENCY, OneOf(kCurrencies));
            continue;
        }
        if (isForeign_) continue;
        for (const std::string_view side : {"买"_gbk, "卖"_gbk}) {
            if (Happens(30)) continue;
            OpiSum& row = report_.OpiSumStore.Add();
            CopyField(row.BILL_DATE, day);
            CopyField(row.CONTRACT, contract);
            CopyField(row.BID, side);
            CopyField(row.POSITION_VOL, std::to_string(1 + Draw(9)));
            CopyField(row.DEPOSIT, margin);
        }
    }
}

}  // namespace tradebill
