#include "readers/foreign_money.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "readers/foreign_fixture.h"
#include "readers/near_words.h"

namespace tradebill::foreign_money_test {
namespace {

class ForeignMoney : public ForeignFixture {
protected:
    /// Reads a summary of three currencies with these rows.
    void ReadRows(std::initializer_list<std::string_view> rows) {
        ReadText(Statement({"资金汇总 Summary", "货币 Base USD HKD JPY"}) + Statement(rows) +
                 Statement({"追加保证金 Margin Call 0 0 0"}));
    }

    /// The fields that a row fills for the first currency, besides the day.
    Fields FilledBy(std::string_view row) {
        ReadRows({row});
        Fields fields = Money();
        EXPECT_EQ(fields["BILL_DATE"], "20240105");
        fields.erase("BILL_DATE");
        return fields;
    }

    /// What a row of equity gives each of the three currencies.
    Texts ValuesOf(std::string_view row) {
        ReadRows({row});
        Texts values;
        for (const std::string_view currency : {"USD", "HKD", "JPY"}) {
            const CMoneyStore* const store = report.CurrencyMoneyStore.Find(currency);
            values.push_back(store == nullptr ? "no store" : TextsOf(store->Records, "KHQY").front());
        }
        return values;
    }
};

TEST_F(ForeignMoney, FillsEachCurrencyFromItsColumn) {
    ReadRows({"期初资金 Balance b/f          1.1    1.2    1.3",  //
              "出入金 Deposit/Withdrawal     2.1    2.2    2.3",  //
              "平仓盈亏 Realized P/L         3.1    3.2    3.3",  //
              "手续费 Commission             4.1    4.2    4.3",  //
              "浮动盈亏 Floating P/L         5.1    5.2    5.3",  //
              "当前权益 Client Equity        6.1    6.2    6.3",  //
              "维持保证金 Maintenance        7.1    7.2    7.3",  //
              "可用资金 Fund Avail.          8.1    8.2    8.3"});
    const auto column = [](const std::string& digit) {
        return OneRecord({{"QCQY", "1." + digit},
                          {"CRJ", "2." + digit},
                          {"PCYK", "3." + digit},
                          {"SXF", "4." + digit},
                          {"HOST_CURRENT", "5." + digit},
                          {"KHQY", "6." + digit},
                          {"QMJC", "6." + digit},
                          {"BZJZY", "7." + digit},
                          {"KYZJ", "8." + digit}});
    };
    EXPECT_EQ(AccountRecords(), column("1"));
    EXPECT_EQ(RecordsOf("USD"), column("1"));
    EXPECT_EQ(RecordsOf("HKD"), column("2"));
    EXPECT_EQ(RecordsOf("JPY"), column("3"));
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (std::vector<std::string>{"USD", "HKD", "JPY"}));
}

TEST_F(ForeignMoney, ChoosesFieldsByTheWordsOfARow) {
    const struct {
        std::string_view row;
        Fields filled;
    } cases[] = {
        {"当前权益 5", {{"KHQY", "5"}, {"QMJC", "5"}}},
        {"维持保证金 5", {{"BZJZY", "5"}}},
        {"手续费 5", {{"SXF", "5"}}},
        {"可用资金 5", {{"KYZJ", "5"}}},
        {"出入金 5", {{"CRJ", "5"}}},
        {"期初资金 5", {{"QCQY", "5"}}},
        {"平仓盈亏 Realized P/L 5", {{"PCYK", "5"}}},
        {"浮动盈亏 5", {{"HOST_CURRENT", "5"}}},
        {"(总手续费) 5", {{"SXF", "5"}}},
        {"平仓盈亏 5", {}},
        {"平仓盈亏 realized P/L 5", {}},
        {"平仓盈亏  Realized P/L 5", {}},
        {"期末资金 5", {}},
        {"客户权益 5", {}},
        {"手 续 费 5", {}},
    };
    for (const auto& row : cases) EXPECT_EQ(FilledBy(row.row), row.filled) << row.row;
}

TEST_F(ForeignMoney, NeedsTheWholeWordsOfARow) {
    for (const std::string_view word :
         {"当前权益", "维持保证金", "手续费", "可用资金", "出入金", "期初资金", "浮动盈亏"}) {
        for (const std::string& nearWord : NearWords(word)) EXPECT_EQ(FilledBy(nearWord + " 5"), Fields{}) << nearWord;
    }
    EXPECT_EQ(FilledBy("仓盈亏 Realized P/L 5"), Fields{});
    EXPECT_EQ(FilledBy("平仓盈亏 Realized P/ 5"), Fields{});
}

TEST_F(ForeignMoney, GivesARowOfSeveralWordsToTheFirstThatIsTried) {
    const struct {
        std::string_view row;
        Fields filled;
    } cases[] = {
        {"手续费 维持保证金 5", {{"BZJZY", "5"}}},
        {"可用资金 手续费 5", {{"SXF", "5"}}},
        {"出入金 可用资金 5", {{"KYZJ", "5"}}},
        {"期初资金 出入金 5", {{"CRJ", "5"}}},
        {"平仓盈亏 Realized P/L 期初资金 5", {{"QCQY", "5"}}},
        {"浮动盈亏 维持保证金 5", {{"BZJZY", "5"}}},
        {"浮动盈亏 平仓盈亏 Realized P/L 5", {{"PCYK", "5"}}},
    };
    for (const auto& row : cases) EXPECT_EQ(FilledBy(row.row), row.filled) << row.row;
}

TEST_F(ForeignMoney, TakesARowOfEquityForOtherFieldsToo) {
    const struct {
        std::string_view row;
        Fields filled;
    } cases[] = {
        {"当前权益 维持保证金 5", {{"KHQY", "5"}, {"BZJZY", "5"}}},
        {"手续费 当前权益 5", {{"KHQY", "5"}, {"SXF", "5"}}},
        {"当前权益 可用资金 5", {{"KHQY", "5"}, {"KYZJ", "5"}}},
        {"出入金 当前权益 5", {{"KHQY", "5"}, {"CRJ", "5"}}},
        {"当前权益 期初资金 5", {{"KHQY", "5"}, {"QCQY", "5"}}},
        {"当前权益 平仓盈亏 Realized P/L 5", {{"KHQY", "5"}, {"QMJC", "5"}, {"PCYK", "5"}}},
        {"浮动盈亏 当前权益 5", {{"KHQY", "5"}, {"QMJC", "5"}, {"HOST_CURRENT", "5"}}},
        {"当前权益 平仓盈亏 Realized P/L 浮动盈亏 5", {{"KHQY", "5"}, {"QMJC", "5"}, {"PCYK", "5"}}},
    };
    for (const auto& row : cases) EXPECT_EQ(FilledBy(row.row), row.filled) << row.row;
}

TEST_F(ForeignMoney, BeginsItsValuesAtTheFirstDigitOrMinus) {
    const struct {
        std::string_view row;
        Texts values;
    } cases[] = {
        {"当前权益 100.00 200.00 300.00", {"100.00", "200.00", "300.00"}},
        {"当前权益 -300.00 -200.00 100.00", {"-300.00", "-200.00", "100.00"}},
        {"当前权益：100.00 200.00 300.00", {"100.00", "200.00", "300.00"}},
        {"当前权益 N/A 200.00 300.00", {"200.00", "300.00", ""}},
        {"当前权益 Net-Equity 100.00 200.00 300.00", {"-Equity", "100.00", "200.00"}},
        {"当前权益 Equity2 100.00 200.00", {"2", "100.00", "200.00"}},
        {"当前权益 - 100.00 200.00", {"-", "100.00", "200.00"}},
        {"当前权益 .50 1.50 2.50", {"50", "1.50", "2.50"}},
        {"当前权益 +1.00 2.00 3.00", {"1.00", "2.00", "3.00"}},
        {"当前权益 (1.00) 2.00 3.00", {"1.00)", "2.00", "3.00"}},
        {"1.00 当前权益 2.00", {"1.00", "当前权益", "2.00"}},
        {"当前权益 1x none 3", {"1x", "none", "3"}},
        {"当前权益 1.00\t 2.00 \t3.00", {"1.00", "2.00", "3.00"}},
    };
    for (const auto& row : cases) EXPECT_EQ(ValuesOf(row.row), row.values) << row.row;
}

TEST_F(ForeignMoney, TakesNothingFromARowWithoutValues) {
    EXPECT_EQ(ValuesOf("当前权益 Client Equity"), (Texts{"", "", ""}));
    EXPECT_EQ(ValuesOf("当前权益 N/A ,.+"), (Texts{"", "", ""}));
    ReadRows({"手续费 1 2 3", "手续费 N/A"});
    EXPECT_EQ(RecordsOf("HKD"), OneRecord({{"SXF", "2"}}));
}

TEST_F(ForeignMoney, DropsThousandsMarks) {
    const struct {
        std::string_view row;
        Texts values;
    } cases[] = {
        {"当前权益 1,234,567.89 -1,000.00 0", {"1234567.89", "-1000.00", "0"}},
        {"当前权益 ,1 2, ,,3,,", {"1", "2", "3"}},
        {"当前权益 1,,2 -,5 6", {"12", "-5", "6"}},
        {"当前权益 1 , 3", {"1", "", "3"}},
        {"当前权益 -1,234,567,890.12 1,234,567,890,123.45 1", {"-1234567890.12", "1234567890123.4", "1"}},
    };
    for (const auto& row : cases) EXPECT_EQ(ValuesOf(row.row), row.values) << row.row;
}

TEST_F(ForeignMoney, DropsValuesPastTheLastCurrency) {
    EXPECT_EQ(ValuesOf("当前权益 1 2 3 4 5 6"), (Texts{"1", "2", "3"}));
    EXPECT_EQ(report.CurrencyMoneyStore.Stores.size(), 3U);
    std::string row = "手续费";
    for (int value = 1; value <= 10'000; ++value) row += " " + std::to_string(value);
    ReadRows({row});
    EXPECT_EQ(RecordsOf("JPY"), OneRecord({{"SXF", "3"}}));
    EXPECT_EQ(report.CurrencyMoneyStore.Stores.size(), 3U);
}

TEST_F(ForeignMoney, LeavesLaterCurrenciesEmptyInAShortRow) {
    EXPECT_EQ(ValuesOf("当前权益 1 2"), (Texts{"1", "2", ""}));
    EXPECT_EQ(ValuesOf("当前权益 1"), (Texts{"1", "", ""}));
    EXPECT_EQ(RecordsOf("JPY"), OneRecord({}));
}

TEST_F(ForeignMoney, KeepsTheLastOfEqualRows) {
    ReadRows({"手续费 1 2 3", "当前权益 9 9 9", "总手续费 4 5 6"});
    EXPECT_EQ(RecordsOf("USD"), OneRecord({{"SXF", "4"}, {"KHQY", "9"}, {"QMJC", "9"}}));
    EXPECT_EQ(RecordsOf("JPY"), OneRecord({{"SXF", "6"}, {"KHQY", "9"}, {"QMJC", "9"}}));
}

TEST_F(ForeignMoney, ReadsFromTheSecondRowBelowTheTitleToTheMarginCall) {
    Read({"资金汇总 手续费 1", "可用资金 2 Base USD", "出入金 3", "期初资金 4", "维持保证金 5 追加保证金", "手续费 6"});
    EXPECT_EQ(RecordsOf("USD"), OneRecord({{"CRJ", "3"}, {"QCQY", "4"}}));
}

TEST_F(ForeignMoney, LooksForTheMarginCallFromTheSecondRowBelowTheTitle) {
    Read({"资金汇总 追加保证金", "追加保证金 Base USD", "手续费 5", "追加保证金"});
    EXPECT_EQ(RecordsOf("USD"), OneRecord({{"SXF", "5"}}));
    Read({"资金汇总", "Base USD", "追加保证金", "手续费 5", "追加保证金"});
    EXPECT_EQ(RecordsOf("USD"), OneRecord({}));
    EXPECT_EQ(AccountRecords(), OneRecord({}));
}

TEST_F(ForeignMoney, CountsNoBlankRows) {
    Read({"资金汇总", "", "Base USD", "  ", "手续费 5", "\t", "追加保证金"});
    EXPECT_EQ(RecordsOf("USD"), OneRecord({{"SXF", "5"}}));
}

TEST_F(ForeignMoney, IsAbsentWithoutTitleOrMarginCall) {
    for (const std::string& text :
         {Statement({"资金汇总", "Base USD", "手续费 5"}), Statement({"资金", "Base USD", "手续费 5", "追加保证金"}),
          Statement({"追加保证金", "资金汇总", "Base USD", "手续费 5"}),
          Statement({"资金状况", "Base USD", "手续费 5", "追加保证金"}), std::string(), std::string(" \r\n")}) {
        ReadText(text);
        EXPECT_TRUE(NothingRead()) << text;
        EXPECT_TRUE(report.CurrencyMoneyStore.Names.empty()) << text;
    }
}

TEST_F(ForeignMoney, NeedsItsWholeTitleAndTheWholeMarginCall) {
    for (const std::string& title : NearWords("资金汇总")) {
        Read({title, "Base USD", "手续费 5", "追加保证金"});
        EXPECT_TRUE(NothingRead()) << title;
    }
    for (const std::string& word : NearWords("追加保证金")) {
        Read({"资金汇总", "Base USD", "手续费 5", word});
        EXPECT_TRUE(NothingRead()) << word;
    }
    Read({"(资金汇总)", "Base USD", "手续费 5", "(追加保证金)"});
    EXPECT_EQ(RecordsOf("USD"), OneRecord({{"SXF", "5"}}));
}

TEST_F(ForeignMoney, HasRateOneAndNoCurrencyInItsRecords) {
    ReadRows({"当前权益 1 2 3"});
    ASSERT_EQ(report.CurrencyMoneyStore.Stores.size(), 3U);
    EXPECT_EQ(report.MoneyStore.Records.front()->EXCHANGE_RATE, 1.0);
    EXPECT_STREQ(report.MoneyStore.Records.front()->CURRENCY, "");
    for (const auto& store : report.CurrencyMoneyStore.Stores) {
        ASSERT_EQ(store->Count(), 1);
        EXPECT_EQ(store->Records.front()->EXCHANGE_RATE, 1.0);
        EXPECT_STREQ(store->Records.front()->CURRENCY, "");
    }
}

// Statement records count the margin as what isn't available; live ones bring a margin of their own.
TEST_F(ForeignMoney, AddsItsRecordsAsThoseOfAStatement) {
    ReadRows({"当前权益 100 200 300", "可用资金 60 50 40", "浮动盈亏 7 8 9"});
    EXPECT_EQ(report.MoneyStore.PositionMargin, 40);
    EXPECT_EQ(report.MoneyStore.LastHostCurrent, 7);
    ASSERT_NE(report.CurrencyMoneyStore.Find("HKD"), nullptr);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("HKD")->PositionMargin, 150);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("HKD")->LastHostCurrent, 8);
}

TEST_F(ForeignMoney, FeedsTheFirstCurrencyAloneToTheStatistics) {
    ReadRows({"期初资金 10 20 30", "当前权益 11 21 31", "平仓盈亏 Realized P/L 12 22 32", "出入金 13 23 33",
              "维持保证金 14 24 34"});
    ASSERT_EQ(report.TradeStatistics.DayFigures.Days.size(), 1U);
    const DayFigure& figure = *report.TradeStatistics.DayFigures.Days.front();
    EXPECT_EQ(figure.Day, "20240105");
    EXPECT_EQ(figure.Opening, 10);
    EXPECT_EQ(figure.Closing, 11);
    EXPECT_EQ(figure.ClosedPL, 12);
    EXPECT_EQ(figure.CashFlow, 13);
    ASSERT_EQ(report.TradeStatistics.DayUsages.Days.size(), 1U);
    EXPECT_EQ(report.TradeStatistics.DayUsages.Days.front()->Margin, 14);
    EXPECT_EQ(report.TradeStatistics.DayUsages.Days.front()->Equity, 11);
}

TEST_F(ForeignMoney, GrowsDayByDay) {
    ReadRows({"当前权益 1 2 3"});
    ReadNextDay({"资金汇总", "Base USD JPY EUR", "当前权益 4 5 6", "追加保证金"});
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240105", "20240108"}));
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "KHQY"), (Texts{"1", "4"}));
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (std::vector<std::string>{"USD", "HKD", "JPY", "EUR"}));
    EXPECT_EQ(TextsOf(report.CurrencyMoneyStore.Find("HKD")->Records, "KHQY"), (Texts{"2"}));
    EXPECT_EQ(TextsOf(report.CurrencyMoneyStore.Find("JPY")->Records, "KHQY"), (Texts{"3", "5"}));
    EXPECT_EQ(TextsOf(report.CurrencyMoneyStore.Find("EUR")->Records, "BILL_DATE"), (Texts{"20240108"}));
}

}  // namespace
}  // namespace tradebill::foreign_money_test
