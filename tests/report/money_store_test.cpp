#include "report/money_store.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "report/record_makers.h"
#include "support/store_fixture.h"

namespace tradebill::money_store_test {
namespace {

class MoneyStoreTest : public StoreFixture {
protected:
    void AddStatement(const MoneyRecord& record) {
        EXPECT_TRUE(report.MoneyStore.Add(CopyOf(record), MoneySource::Statement, report.Format().equity));
    }
    void AddLive(const MoneyRecord& record) {
        EXPECT_TRUE(report.MoneyStore.Add(CopyOf(record), MoneySource::Live, report.Format().equity));
    }
    [[nodiscard]] std::vector<std::string> Days() const {
        std::vector<std::string> days;
        for (const auto& record : report.MoneyStore.Records) days.emplace_back(FieldText(record->BILL_DATE));
        return days;
    }
};

/// A record with another amount in each field.
MoneyRecord FullMoney(std::string_view day, double rate) {
    return Money(day,
                 {{"QCQY", "1000"},
                  {"CRJ", "20"},
                  {"QMJC", "1100"},
                  {"KYZJ", "700"},
                  {"PCYK", "30"},
                  {"CCDSYK", "40"},
                  {"HOST_CURRENT", "50"},
                  {"KHQY", "1200"},
                  {"SXF", "-6"},
                  {"BZJZY", "400"},
                  {"HOST_FROZEN_A", "70"},
                  {"HOST_FROZEN_B", "80"},
                  {"HOST_POSITION_MARGIN", "90"},
                  {"HOST_POSITION_PL", "110"},
                  {"XQSXF", "-2"},
                  {"QLJSZ", "130"}},
                 rate);
}

TEST_F(MoneyStoreTest, TakesAllFiguresFromAFirstStatement) {
    AddStatement(FullMoney("20240102", 2.0));
    EXPECT_EQ(report.MoneyStore.MinEquity, 600);
    EXPECT_EQ(report.MoneyStore.MaxEquity, 600);
    EXPECT_EQ(report.MoneyStore.MinDayPL, 15);
    EXPECT_EQ(report.MoneyStore.MaxDayPL, 15);
    EXPECT_EQ(report.MoneyStore.OpeningEquity, 500);
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 550);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 15);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 20);
    EXPECT_EQ(report.MoneyStore.LastHostCurrent, 25);
    EXPECT_EQ(report.MoneyStore.TotalCashFlow, 10);
    EXPECT_EQ(report.MoneyStore.FirstCashFlow, 10);
    EXPECT_EQ(report.MoneyStore.Available, 350);
    EXPECT_EQ(report.MoneyStore.TotalFees, 4);      // 3 + 1
    EXPECT_EQ(report.MoneyStore.TotalPremium, 65);  // the first is divided
    EXPECT_EQ(report.MoneyStore.PositionMargin, 200);
    EXPECT_EQ(report.MoneyStore.FrozenA, 0);  // live records alone have these
    EXPECT_EQ(report.MoneyStore.FrozenB, 0);
    EXPECT_EQ(report.MoneyStore.HostPositionPL, 0);
    EXPECT_EQ(report.MoneyStore.Count(), 1);
}

TEST_F(MoneyStoreTest, TakesTheHostsFiguresFromAFirstLiveRecord) {
    AddLive(FullMoney("20240102", 2.0));
    EXPECT_EQ(report.MoneyStore.FrozenA, 35);
    EXPECT_EQ(report.MoneyStore.FrozenB, 40);
    EXPECT_EQ(report.MoneyStore.HostPositionPL, 55);
    EXPECT_EQ(report.MoneyStore.PositionMargin, 45);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 55);  // instead of CCDSYK
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 550);
    EXPECT_EQ(report.MoneyStore.TotalPremium, 65);
}

TEST_F(MoneyStoreTest, AddsALaterStatementUp) {
    AddStatement(FullMoney("20240102", 1.0));
    AddStatement(FullMoney("20240103", 2.0));
    EXPECT_EQ(report.MoneyStore.MinEquity, 600);
    EXPECT_EQ(report.MoneyStore.MaxEquity, 1200);
    EXPECT_EQ(report.MoneyStore.MinDayPL, 15);
    EXPECT_EQ(report.MoneyStore.MaxDayPL, 30);
    EXPECT_EQ(report.MoneyStore.OpeningEquity, 1000);
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 550);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 45);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 60);
    EXPECT_EQ(report.MoneyStore.LastHostCurrent, 25);
    EXPECT_EQ(report.MoneyStore.TotalCashFlow, 30);
    EXPECT_EQ(report.MoneyStore.FirstCashFlow, 20);
    EXPECT_EQ(report.MoneyStore.Available, 350);
    EXPECT_EQ(report.MoneyStore.TotalFees, 12);  // 6 + 2 + 3 + 1
    EXPECT_EQ(report.MoneyStore.PositionMargin, 200);
    EXPECT_EQ(report.MoneyStore.FrozenA, 0);
    EXPECT_EQ(report.MoneyStore.Count(), 2);
}

TEST_F(MoneyStoreTest, AddsALaterLiveRecordUp) {
    AddStatement(FullMoney("20240102", 1.0));
    AddLive(FullMoney("20240103", 2.0));
    EXPECT_EQ(report.MoneyStore.FrozenA, 35);
    EXPECT_EQ(report.MoneyStore.FrozenB, 40);
    EXPECT_EQ(report.MoneyStore.HostPositionPL, 55);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 40 + 20 + 55);  // beside CCDSYK
    EXPECT_EQ(report.MoneyStore.PositionMargin, 45);
    AddLive(FullMoney("20240104", 1.0));
    EXPECT_EQ(report.MoneyStore.FrozenA, 105);
    EXPECT_EQ(report.MoneyStore.FrozenB, 120);
    EXPECT_EQ(report.MoneyStore.HostPositionPL, 165);
    EXPECT_EQ(report.MoneyStore.PositionMargin, 90);  // the latest
}

TEST_F(MoneyStoreTest, LowersAndRaisesItsBounds) {
    AddStatement(Money("20240102", {{"KHQY", "100"}, {"PCYK", "5"}}));
    AddStatement(Money("20240103", {{"KHQY", "120"}, {"PCYK", "-3"}}));
    AddStatement(Money("20240104", {{"KHQY", "80"}, {"PCYK", "9"}}));
    AddStatement(Money("20240105", {{"KHQY", "90"}, {"PCYK", "0"}}));
    EXPECT_EQ(report.MoneyStore.MinEquity, 80);
    EXPECT_EQ(report.MoneyStore.MaxEquity, 120);
    EXPECT_EQ(report.MoneyStore.MinDayPL, -3);
    EXPECT_EQ(report.MoneyStore.MaxDayPL, 9);
}

TEST_F(MoneyStoreTest, DividesOnlyTheFirstPremiumByTheRate) {
    AddStatement(Money("20240102", {{"QLJSZ", "100"}}, 4.0));
    EXPECT_EQ(report.MoneyStore.TotalPremium, 25);
    AddStatement(Money("20240103", {{"QLJSZ", "100"}}, 2.0));
    EXPECT_EQ(report.MoneyStore.TotalPremium, 125);
}

TEST_F(MoneyStoreTest, CountsFeesByTheirMagnitude) {
    AddStatement(Money("20240102", {{"SXF", "-3.5"}}));
    EXPECT_EQ(report.MoneyStore.TotalFees, 3.5);
    AddStatement(Money("20240103", {{"SXF", "-3.5"}}));
    EXPECT_EQ(report.MoneyStore.TotalFees, 7);
    AddStatement(Money("20240104", {{"SXF", "1"}, {"XQSXF", "-0.5"}}));
    EXPECT_EQ(report.MoneyStore.TotalFees, 8.5);
}

TEST_F(MoneyStoreTest, LetsANegativeRateTurnTheSignOfTheFirstExerciseFeeAlone) {
    AddStatement(Money("20240102", {{"SXF", "6"}, {"XQSXF", "2"}}, -2.0));
    EXPECT_EQ(report.MoneyStore.TotalFees, 3 - 1);  // |6 / -2| + |2| / -2
    AddStatement(Money("20240103", {{"SXF", "6"}, {"XQSXF", "2"}}, -2.0));
    EXPECT_EQ(report.MoneyStore.TotalFees, 2 - 3 - 1);  // |6| / -2 and |2| / -2
}

TEST_F(MoneyStoreTest, GivesInfinitiesForARateOfZero) {
    AddStatement(FullMoney("20240102", 0.0));
    EXPECT_EQ(report.MoneyStore.ClosingEquity, std::numeric_limits<double>::infinity());
    EXPECT_EQ(report.MoneyStore.MaxEquity, std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(report.MoneyStore.PositionMargin));
    AddStatement(Money("20240103", {}, 0.0));
    EXPECT_TRUE(std::isnan(report.MoneyStore.ClosingEquity));  // 0 / 0
    EXPECT_EQ(report.MoneyStore.Count(), 2);
}

TEST_F(MoneyStoreTest, ReadsFieldsThatAreNoNumbersAsZero) {
    AddStatement(Money("20240102", {{"QMJC", "n/a"}, {"KYZJ", "12.5x"}}));
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 0);
    EXPECT_EQ(report.MoneyStore.Available, 12.5);
}

TEST_F(MoneyStoreTest, RefusesANullRecord) {
    EXPECT_FALSE(report.MoneyStore.Add(nullptr, MoneySource::Statement));
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    AddStatement(Money("20240102", {{"QCQY", "5"}}));
    EXPECT_FALSE(report.MoneyStore.Add(nullptr, MoneySource::Live));
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_EQ(report.MoneyStore.OpeningEquity, 5);
}

TEST_F(MoneyStoreTest, KeepsTheLaterRecordOfADayAndTheAmountsOfBoth) {
    AddStatement(Money("20240102", {{"PCYK", "10"}, {"QMJC", "100"}}));
    AddLive(Money("20240102", {{"PCYK", "7"}, {"QMJC", "105"}}));
    ASSERT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_EQ(FieldText(report.MoneyStore.Records[0]->PCYK), "7");
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 17);
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 105);
}

TEST_F(MoneyStoreTest, MovesADayThatComesAgainToTheEnd) {
    AddStatement(Money("20240102", {{"QCQY", "1"}}));
    AddStatement(Money("20240103", {{"QCQY", "2"}}));
    AddStatement(Money("20240102", {{"QCQY", "3"}}));
    EXPECT_EQ(Days(), (std::vector<std::string>{"20240103", "20240102"}));
    EXPECT_EQ(FieldText(report.MoneyStore.Records[1]->QCQY), "3");
    EXPECT_EQ(report.MoneyStore.OpeningEquity, 1);
    AddStatement(Money("20240102", {}));
    EXPECT_EQ(report.MoneyStore.Count(), 2);
}

TEST_F(MoneyStoreTest, KeepsRecordsInOrderOfAdding) {
    for (const char* const day : {"20240105", "20240102", "", "20240103"}) AddStatement(Money(day, {}));
    EXPECT_EQ(Days(), (std::vector<std::string>{"20240105", "20240102", "", "20240103"}));
}

TEST_F(MoneyStoreTest, ReplacesTheEquityOfFormatsThatPrintNone) {
    for (const std::int32_t format : {2, 6}) {
        report.Clear();
        report.Request.StatementFormat = format;
        AddStatement(Money("20240102", {{"KHQY", "999"}, {"BZJZY", "100.256"}, {"KYZJ", "50"}}));
        EXPECT_EQ(FieldText(report.MoneyStore.Records[0]->KHQY), "150.26") << format;
        EXPECT_EQ(report.MoneyStore.MaxEquity, 150.26) << format;
        AddLive(Money("20240103", {{"KHQY", "999"}, {"BZJZY", "-1"}, {"KYZJ", "0.5"}}));
        EXPECT_EQ(FieldText(report.MoneyStore.Records[1]->KHQY), "-0.50") << format;
    }
}

TEST_F(MoneyStoreTest, ReplacesTheEquityWhateverTheKind) {
    report.Request.StatementFormat = 6;
    report.Request.StatementKind = 2;
    AddStatement(Money("20240102", {{"KHQY", "999"}, {"BZJZY", "1"}, {"KYZJ", "2"}}));
    EXPECT_EQ(FieldText(report.MoneyStore.Records[0]->KHQY), "3.00");
}

TEST_F(MoneyStoreTest, KeepsTheEquityOfAllOtherFormats) {
    for (const std::int32_t format : {0, 1, 3, 4, 5, 7, 201}) {
        report.Clear();
        report.Request.StatementFormat = format;
        AddStatement(Money("20240102", {{"KHQY", "999"}, {"BZJZY", "100"}, {"KYZJ", "50"}}));
        EXPECT_EQ(FieldText(report.MoneyStore.Records[0]->KHQY), "999") << format;
    }
}

TEST_F(MoneyStoreTest, CutsAReplacedEquityToItsField) {
    report.Request.StatementFormat = 2;
    AddStatement(Money("20240102", {{"BZJZY", "999999999999999"}, {"KYZJ", "1"}}));
    EXPECT_EQ(FieldText(report.MoneyStore.Records[0]->KHQY), "100000000000000");  // of 1000000000000000.00
}

TEST_F(MoneyStoreTest, KnowsTheDaysThatItHas) {
    AddStatement(Money("20240102", {}));
    EXPECT_TRUE(report.MoneyStore.HasDay("20240102"));
    EXPECT_FALSE(report.MoneyStore.HasDay("20240103"));
    EXPECT_FALSE(report.MoneyStore.HasDay("2024010"));
    EXPECT_FALSE(report.MoneyStore.HasDay("202401021"));  // no cut to 8
}

TEST_F(MoneyStoreTest, TakesNoLongerTextForADay) {
    AddStatement(Money("20240102", {}));
    EXPECT_FALSE(report.MoneyStore.HasDay("20240102      "));
    EXPECT_FALSE(report.MoneyStore.HasDay("20240102      and more"));
    EXPECT_FALSE(report.MoneyStore.HasDay(""));
    AddStatement(Money("", {}));
    EXPECT_TRUE(report.MoneyStore.HasDay(""));
}

TEST_F(MoneyStoreTest, SetsTheClosedPLOfADayBesideWhatItHad) {
    AddStatement(Money("20240102", {{"PCYK", "10"}}, 2.0));
    AddStatement(Money("20240103", {{"PCYK", "12"}}));
    report.MoneyStore.SetDayClosedPL("20240102", "-40");
    EXPECT_EQ(FieldText(report.MoneyStore.Records[0]->PCYK), "-40");
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 5 + 12 - 40);  // neither divided nor taken off
    EXPECT_EQ(report.MoneyStore.MinDayPL, -20);               // divided
    EXPECT_EQ(report.MoneyStore.MaxDayPL, 12);
    report.MoneyStore.SetDayClosedPL("20240102", "100");
    EXPECT_EQ(report.MoneyStore.MaxDayPL, 50);
    EXPECT_EQ(report.MoneyStore.MinDayPL, -20);
}

TEST_F(MoneyStoreTest, CutsAClosedPLToItsFieldButAddsAllOfIt) {
    AddStatement(Money("20240102", {}));
    report.MoneyStore.SetDayClosedPL("20240102", "1000000000000000.5");
    EXPECT_EQ(FieldText(report.MoneyStore.Records[0]->PCYK), "100000000000000");
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 1000000000000000.5);
    EXPECT_EQ(report.MoneyStore.MaxDayPL, 100000000000000.0);
}

TEST_F(MoneyStoreTest, SetsNothingForAnUnknownDay) {
    AddStatement(Money("20240102", {{"PCYK", "10"}, {"CCDSYK", "20"}}));
    report.MoneyStore.SetDayClosedPL("20240103", "500");
    report.MoneyStore.SetDayPositionPL("20240103", "500", 500);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 10);
    EXPECT_EQ(report.MoneyStore.MaxDayPL, 10);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 20);
    EXPECT_EQ(report.MoneyStore.Count(), 1);
}

TEST_F(MoneyStoreTest, SetsTheClosedPLOfItsOwnDayAlone) {
    AddStatement(Money("20240102", {}));
    CMoneyStore other;
    other.Add(CopyOf(Money("20240102", {})), MoneySource::Statement);
    other.SetDayClosedPL("20240102", "5");
    EXPECT_EQ(other.TotalClosedPL, 5);
    EXPECT_EQ(FieldText(other.Records[0]->PCYK), "5");
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 0);
    EXPECT_EQ(FieldText(report.MoneyStore.Records[0]->PCYK), "");
}

TEST_F(MoneyStoreTest, SetsThePositionPLOfADayBesideWhatItHad) {
    AddStatement(Money("20240102", {{"CCDSYK", "20"}}, 2.0));
    report.MoneyStore.SetDayPositionPL("20240102", "-7.25", -7);
    EXPECT_EQ(FieldText(report.MoneyStore.Records[0]->CCDSYK), "-7.25");
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 10 - 7);  // the number, not the text
}

TEST_F(MoneyStoreTest, BeginsAnewAfterClear) {
    AddLive(FullMoney("20240102", 1.0));
    AddStatement(FullMoney("20240103", 1.0));
    report.MoneyStore.Clear();
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_FALSE(report.MoneyStore.HasDay("20240102"));
    for (const double figure :
         {report.MoneyStore.LastHostCurrent, report.MoneyStore.OpeningEquity, report.MoneyStore.ClosingEquity,
          report.MoneyStore.TotalClosedPL, report.MoneyStore.TotalPositionPL, report.MoneyStore.TotalCashFlow,
          report.MoneyStore.FirstCashFlow, report.MoneyStore.Available, report.MoneyStore.MinEquity,
          report.MoneyStore.MaxEquity, report.MoneyStore.MinDayPL, report.MoneyStore.MaxDayPL,
          report.MoneyStore.FrozenB, report.MoneyStore.FrozenA, report.MoneyStore.HostPositionPL,
          report.MoneyStore.PositionMargin, report.MoneyStore.TotalFees}) {
        EXPECT_EQ(figure, 0);
    }
    AddStatement(Money("20240104", {{"QCQY", "5"}, {"KHQY", "-1"}}));
    EXPECT_EQ(report.MoneyStore.OpeningEquity, 5);  // a first record again
    EXPECT_EQ(report.MoneyStore.MaxEquity, -1);
}

TEST_F(MoneyStoreTest, KeepsPremiumDatesAndChartSizesAtClear) {
    AddStatement(Money("20240102", {{"QLJSZ", "40"}}));
    report.MoneyStore.StartDateText = "2024-01-02";
    report.MoneyStore.EndDateText = "2024-01-31";
    report.MoneyStore.ChartSizes = {1, 2, 3, 4, 5, 6, 7, 8};
    report.MoneyStore.Clear();
    EXPECT_EQ(report.MoneyStore.TotalPremium, 40);
    EXPECT_EQ(report.MoneyStore.StartDateText, "2024-01-02");
    EXPECT_EQ(report.MoneyStore.EndDateText, "2024-01-31");
    EXPECT_EQ(report.MoneyStore.ChartSizes, (std::array<int, 8>{1, 2, 3, 4, 5, 6, 7, 8}));
    AddStatement(Money("20240103", {{"QLJSZ", "2"}}));
    EXPECT_EQ(report.MoneyStore.TotalPremium, 2);
}

TEST_F(MoneyStoreTest, FindsTheRecordOfADayThatCameLast) {
    AddStatement(Money("20240102", {{"KHQY", "1"}}));
    AddStatement(Money("20240103", {{"KHQY", "2"}}));
    AddLive(Money("20240102", {{"KHQY", "3"}}));
    ASSERT_NE(report.MoneyStore.FindDay("20240102"), nullptr);
    EXPECT_STREQ(report.MoneyStore.FindDay("20240102")->KHQY, "3");
    ASSERT_NE(report.MoneyStore.FindDay("20240103"), nullptr);
    EXPECT_STREQ(report.MoneyStore.FindDay("20240103")->KHQY, "2");
    EXPECT_EQ(report.MoneyStore.FindDay("20240104"), nullptr);
    EXPECT_EQ(report.MoneyStore.FindDay(""), nullptr);
}

}  // namespace
}  // namespace tradebill::money_store_test
