// The host's live figures, which enter a report whose last day is today.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "base/text.h"
#include "driver/run_fixture.h"
#include "report/records.h"

namespace tradebill::live_merge_test {
namespace {

using Texts = std::vector<std::string>;

/// Live figures of one currency.
MoneyRecord Live(const char* currency, const char* closing, double rate = 1.0) {
    MoneyRecord money = ClearedMoneyRecord();
    CopyField(money.CURRENCY, currency);
    CopyField(money.QMJC, closing);
    CopyField(money.KHQY, closing);
    money.EXCHANGE_RATE = rate;
    return money;
}

class LiveMerge : public RunFixture {
protected:
    LiveMerge() {
        MoneyRecord& money = request_.BaseMoney;
        money = Live("HKD*", "2000.00", 2.0);
        CopyField(money.BILL_DATE, "20240202");
        CopyField(money.QCQY, "1000.00");
        CopyField(money.CRJ, "100.00");
        CopyField(money.PCYK, "30.00");
        CopyField(money.CCDSYK, "50.00");
        CopyField(money.BZJZY, "400.00");
        CopyField(money.HOST_FROZEN_A, "6.00");
        CopyField(money.HOST_FROZEN_B, "8.00");
        CopyField(money.HOST_POSITION_PL, "70.00");
        CopyField(money.HOST_POSITION_MARGIN, "500.00");
        SetDates("", "");
    }
};

TEST_F(LiveMerge, AddsTheBaseFiguresAsALiveRecord) {
    Run();
    ASSERT_EQ(DaysWithMoney(report), (Texts{"20240202"}));
    EXPECT_EQ(report.MoneyStore.OpeningEquity, 500);
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 1000);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 15);
    EXPECT_EQ(report.MoneyStore.FrozenA, 3);
    EXPECT_EQ(report.MoneyStore.FrozenB, 4);
    EXPECT_EQ(report.MoneyStore.HostPositionPL, 35);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 35);  // the host's own figure in place of CCDSYK
    EXPECT_EQ(report.MoneyStore.PositionMargin, 250);
    EXPECT_EQ(report.AccountStatistics.InitialEquity, 1000);
}

TEST_F(LiveMerge, FeedsTheBaseFiguresToTheDailySeries) {
    Run();
    const DayFigure* const figure = report.TradeStatistics.DayFigures.Find("20240202");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->ClosedPL, 15);
    EXPECT_EQ(figure->PositionPL, 25);
    EXPECT_EQ(figure->CashFlow, 50);
    EXPECT_EQ(figure->Opening, 500);
    EXPECT_EQ(figure->Closing, 1000);
    EXPECT_EQ(figure->Yield, (1000.0 - 50 - 500) / 500);
    const CDayUsage* const usage = report.TradeStatistics.DayUsages.Find("20240202");
    ASSERT_NE(usage, nullptr);
    EXPECT_EQ(usage->Margin, 200);
    EXPECT_EQ(usage->Risk, 0.2);
}

TEST_F(LiveMerge, AddsACopy) {
    Run();
    ASSERT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_NE(report.MoneyStore.Records[0].get(), &report.Request.BaseMoney);
    EXPECT_NE(report.MoneyStore.Records[0].get(), &request_.BaseMoney);
}

TEST_F(LiveMerge, TakesPlaceOnlyIfTheLastDayIsToday) {
    struct Range {
        int first;
        int last;
        int records;
    };
    for (const Range& range : {Range{-2, -1, 0}, Range{-1, 0, 1}, Range{0, 0, 1}, Range{0, 1, 0}, Range{1, 2, 0}}) {
        SetDates(DayFromToday(range.first), DayFromToday(range.last));
        Run();
        EXPECT_EQ(report.MoneyStore.Count(), range.records) << range.first << " to " << range.last;
        EXPECT_EQ(report.TradeStatistics.DayFigures.Days.size(), static_cast<std::size_t>(range.records));
    }
}

TEST_F(LiveMerge, IsAllOfAReportThatStartsAfterItEndsToday) {
    SetDates(DayFromToday(1), DayFromToday(0));
    const RunResult result = Run();
    EXPECT_EQ(result.days, 0);
    EXPECT_EQ(DaysWithMoney(report), (Texts{"20240202"}));
    EXPECT_TRUE(result.pageWritten);
}

TEST_F(LiveMerge, ComesAfterTheStatementOfToday) {
    const std::string today = DayText(DayFromToday(0));
    Put("D10086." + today + ".txt", FundsOf(today, "900.00", "7.00"));
    CopyField(request_.BaseMoney.BILL_DATE, today);
    Run();
    EXPECT_EQ(DaysWithMoney(report), (Texts{today}));  // one record a day: the live one
    EXPECT_EQ(FieldText(report.MoneyStore.Records[0]->QMJC), "2000.00");
    EXPECT_EQ(report.MoneyStore.OpeningEquity, 1000);  // of the statement
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 1000);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 7 + 15);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 25 + 35);
}

TEST_F(LiveMerge, TakesBaseFiguresWhateverTheyHold) {
    request_.BaseMoney = ClearedMoneyRecord();
    Run();
    EXPECT_EQ(DaysWithMoney(report), (Texts{""}));
}

TEST_F(LiveMerge, LeavesCurrenciesOfTheDomesticFamilyAlone) {
    request_.CurrencyMoney[0] = Live("USD", "5.00");
    request_.CurrencyCount = 1;
    Run();
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_TRUE(report.CurrencyMoneyStore.Names.empty());
}

TEST_F(LiveMerge, FilesForeignFiguresByCurrency) {
    request_.StatementKind = 2;
    request_.CurrencyMoney[0] = Live("HKD", "300.00");
    request_.CurrencyMoney[1] = Live("USD", "80.00", 0.5);
    request_.CurrencyMoney[2] = Live("EUR", "90.00");  // beyond the count
    CopyField(request_.CurrencyMoney[1].HOST_FROZEN_A, "1.00");
    request_.CurrencyCount = 2;
    Run();
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Texts{"HKD*", "HKD", "USD"}));
    ASSERT_EQ(report.CurrencyMoneyStore.Stores.size(), 3U);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("HKD*")->ClosingEquity, 1000);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("HKD*")->FrozenA, 3);  // live figures count
    EXPECT_EQ(report.CurrencyMoneyStore.Find("HKD")->ClosingEquity, 300);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("USD")->ClosingEquity, 160);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("USD")->FrozenA, 2);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("USD")->Count(), 1);
    EXPECT_NE(report.CurrencyMoneyStore.Find("HKD*")->Records[0].get(), report.MoneyStore.Records[0].get());
}

TEST_F(LiveMerge, KeepsForeignFiguresOutOfTheAccount) {
    request_.StatementKind = 2;
    request_.CurrencyMoney[0] = Live("USD", "80.00");
    CopyField(request_.CurrencyMoney[0].BILL_DATE, "20240203");
    request_.CurrencyCount = 1;
    Run();
    EXPECT_EQ(DaysWithMoney(report), (Texts{"20240202"}));
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 1000);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Find("20240203"), nullptr);
    EXPECT_EQ(report.TradeStatistics.DayUsages.Find("20240203"), nullptr);
}

TEST_F(LiveMerge, PutsFiguresOfOneCurrencyIntoOneStore) {
    request_.StatementKind = 2;
    request_.CurrencyMoney[0] = Live("USD", "1.00");
    request_.CurrencyMoney[1] = Live("HKD*", "2.00");
    request_.CurrencyMoney[2] = Live("USD", "3.00");
    request_.CurrencyMoney[3] = Live("", "4.00");
    request_.CurrencyCount = 4;
    Run();
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Texts{"HKD*", "USD", ""}));
    EXPECT_EQ(report.CurrencyMoneyStore.Find("USD")->ClosingEquity, 3);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("HKD*")->ClosingEquity, 2);
}

TEST_F(LiveMerge, AddsNoForeignFiguresToAnEarlierRange) {
    request_.StatementKind = 2;
    request_.CurrencyCount = 1;
    SetDates("2024-1-2", "2024-1-3");
    Run();
    EXPECT_TRUE(report.CurrencyMoneyStore.Names.empty());
    EXPECT_EQ(report.MoneyStore.Count(), 0);
}

TEST_F(LiveMerge, HoldsTheCurrencyCountToItsBounds) {
    request_.StatementKind = 2;
    for (int i = 0; i < kCurrencyMoneyCapacity; ++i)
        request_.CurrencyMoney[i] = Live(std::to_string(i).c_str(), "1.00");
    struct Case {
        std::int32_t count;
        std::size_t merged;
    };
    for (const Case& tried : {Case{0, 0}, Case{1, 1}, Case{99, 99}, Case{100, 100}, Case{101, 100},
                              Case{std::numeric_limits<std::int32_t>::max(), 100}, Case{-1, 0},
                              Case{std::numeric_limits<std::int32_t>::min(), 0}}) {
        request_.CurrencyCount = tried.count;
        Run();
        EXPECT_EQ(report.CurrencyMoneyStore.Names.size(), 1 + tried.merged) << tried.count;
    }
}

TEST_F(LiveMerge, MakesInfinitiesOfARateOfZero) {
    request_.BaseMoney.EXCHANGE_RATE = 0;
    const RunResult result = Run();
    EXPECT_EQ(report.MoneyStore.ClosingEquity, std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(report.MoneyStore.Available));  // nothing by nothing
    EXPECT_TRUE(result.pageWritten);
    EXPECT_TRUE(Page().ends_with("</html>\r\n"));
}

TEST_F(LiveMerge, CutsUnterminatedTexts) {
    request_.StatementKind = 2;
    std::fill(std::begin(request_.BaseMoney.CURRENCY), std::end(request_.BaseMoney.CURRENCY), 'C');
    std::fill(std::begin(request_.BaseMoney.BILL_DATE), std::end(request_.BaseMoney.BILL_DATE), '1');
    std::fill(std::begin(request_.BaseMoney.QMJC), std::end(request_.BaseMoney.QMJC), '8');
    Run();
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Texts{std::string(15, 'C')}));
    EXPECT_EQ(DaysWithMoney(report), (Texts{"11111111"}));
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 888888888888888.0 / 2);
}

}  // namespace
}  // namespace tradebill::live_merge_test
