#include "readers/foreign_money.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "readers/foreign_fixture.h"
#include "readers/near_words.h"
#include "support/temp_folder.h"

namespace tradebill::foreign_blocks_test {
namespace {

using Names = std::vector<std::string>;

class ForeignBlocks : public ForeignFixture {
protected:
    /// The currencies of a summary with this heading.
    Names NamesOf(std::string_view heading) {
        Read({"资金汇总", heading, "当前权益 1 2 3", "追加保证金"});
        EXPECT_EQ(report.MoneyStore.Count(), report.CurrencyMoneyStore.Names.empty() ? 0 : 1) << heading;
        return report.CurrencyMoneyStore.Names;
    }

    /// The currencies of a later block with this heading, behind the summary's "USD".
    Names LaterNamesOf(std::string_view heading) {
        Read({"资金汇总", "Base USD", "当前权益 1", "追加保证金", "借贷成本", heading, "当前权益 1 2 3", "追加保证金"});
        EXPECT_EQ(report.MoneyStore.Count(), 1);
        Names names = report.CurrencyMoneyStore.Names;
        if (names.empty() || names.front() != "USD") return {"the summary is missing"};
        names.erase(names.begin());
        return names;
    }
};

TEST_F(ForeignBlocks, NameTheirFirstCurrenciesBehindBaseAndOneCharacter) {
    const struct {
        std::string_view heading;
        Names names;
    } cases[] = {
        {"Base USD HKD", {"USD", "HKD"}},
        {"Base:USD HKD", {"USD", "HKD"}},
        {"BaseUSD HKD", {"SD", "HKD"}},
        {"Base   USD    HKD", {"USD", "HKD"}},
        {"货币 Currency Base USD", {"USD"}},
        {"DataBase USD", {"USD"}},
        {"USD Base HKD", {"HKD"}},
        {"Base Base USD", {"Base", "USD"}},
        {"Base U", {"U"}},
        {"BaseXU", {"U"}},
        {"Base U,S 1", {"U,S", "1"}},
        {"Base USD-cash-account-of-the-customer", {"USD-cash-account-of-the-customer"}},
    };
    for (const auto& row : cases) EXPECT_EQ(NamesOf(row.heading), row.names) << row.heading;
}

TEST_F(ForeignBlocks, SkipOneByteBehindBase) {
    EXPECT_EQ(NamesOf("Base：USD"), (Names{Gbk("：").substr(1) + "USD"}));
    EXPECT_EQ(NamesOf("Base 美元 港币"), (Names{Gbk("美元"), Gbk("港币")}));
}

TEST_F(ForeignBlocks, EndMoneyWithoutBaseOrNames) {
    for (const std::string_view heading : {"Base", "Base   ", "BaseX", "货币 Base", "BASE USD", "base USD", "Bas e USD",
                                           "USD HKD", "00000000000000000000USD"}) {
        EXPECT_EQ(NamesOf(heading), Names{}) << heading;
        EXPECT_TRUE(NothingRead()) << heading;
    }
    Read({"资金汇总 Base USD", "货币", "Base HKD", "当前权益 1", "追加保证金"});
    EXPECT_TRUE(NothingRead());
}

TEST_F(ForeignBlocks, ReadNoLaterBlockIfTheSummaryNamesNoCurrency) {
    Read({"资金汇总", "货币 USD", "当前权益 1", "追加保证金",  //
          "借贷成本", "Base                HKD", "当前权益 2", "追加保证金"});
    EXPECT_TRUE(NothingRead());
    EXPECT_TRUE(report.CurrencyMoneyStore.Names.empty());
}

TEST_F(ForeignBlocks, NameLaterCurrenciesFromByteTwentyOn) {
    const struct {
        std::string_view heading;
        Names names;
    } cases[] = {
        {"01234567890123456789HKD JPY", {"HKD", "JPY"}},
        {"0123456789012345678 HKD JPY", {"HKD", "JPY"}},
        {"01234567890123456789 HKD JPY", {"HKD", "JPY"}},
        {"0123456789012345678HKD JPY", {"KD", "JPY"}},
        {"EUR GBP CHF AUD CAD HKD", {"HKD"}},
        {"Base                HKD", {"HKD"}},
        {"Base USD CHF AUD CADHKD", {"HKD"}},
        {"      01234567890123456789HKD", {"HKD"}},       // counted without the blanks around the row
        {"一二三四五六七八九十HKD JPY", {"HKD", "JPY"}},  // ten characters are 20 bytes
        {"012345678901234567890", {"0"}},
    };
    for (const auto& row : cases) EXPECT_EQ(LaterNamesOf(row.heading), row.names) << row.heading;
}

TEST_F(ForeignBlocks, EndMoneyAtALaterHeadingWithoutNames) {
    for (const std::string_view heading :
         {"01234567890123456789", "Base HKD", "HKD", "货币", "HKD                  "}) {
        EXPECT_EQ(LaterNamesOf(heading), Names{}) << heading;
    }
    Read({"资金汇总", "Base USD", "当前权益 1", "追加保证金",  //
          "借贷成本", "01234567890123456789", "当前权益 2", "追加保证金", "借贷成本", "01234567890123456789HKD",
          "当前权益 3", "追加保证金"});
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{"USD"}));
    EXPECT_EQ(AccountRecords(), OneRecord({{"KHQY", "1"}, {"QMJC", "1"}}));
}

TEST_F(ForeignBlocks, AddLaterOnesToTheCurrenciesAlone) {
    Read({"资金汇总",
          "Base USD HKD",
          "当前权益 1 2",
          "手续费 3 4",
          "追加保证金 9 9",  //
          "利息",
          "借贷成本 Financing",
          "币种                JPY EUR",
          "当前权益 5 6",  //
          "维持保证金 1,000 2,000",
          "追加保证金",  //
          "借贷成本",
          "币种                GBP",
          "出入金 -7",
          "追加保证金",
          "手续费 8",  //
          "借贷成本",
          "币种                CHF",
          "浮动盈亏 8",
          "追加保证金"});
    EXPECT_EQ(AccountRecords(), OneRecord({{"KHQY", "1"}, {"QMJC", "1"}, {"SXF", "3"}}));
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{"USD", "HKD", "JPY", "EUR", "GBP", "CHF"}));
    EXPECT_EQ(RecordsOf("USD"), OneRecord({{"KHQY", "1"}, {"QMJC", "1"}, {"SXF", "3"}}));
    EXPECT_EQ(RecordsOf("HKD"), OneRecord({{"KHQY", "2"}, {"QMJC", "2"}, {"SXF", "4"}}));
    EXPECT_EQ(RecordsOf("JPY"), OneRecord({{"KHQY", "5"}, {"QMJC", "5"}, {"BZJZY", "1000"}}));
    EXPECT_EQ(RecordsOf("EUR"), OneRecord({{"KHQY", "6"}, {"QMJC", "6"}, {"BZJZY", "2000"}}));
    EXPECT_EQ(RecordsOf("GBP"), OneRecord({{"CRJ", "-7"}}));
    EXPECT_EQ(RecordsOf("CHF"), OneRecord({{"HOST_CURRENT", "8"}}));
    EXPECT_EQ(report.MoneyStore.MaxEquity, 1);
    ASSERT_EQ(report.TradeStatistics.DayFigures.Days.size(), 1U);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Days.front()->Closing, 1);
}

TEST_F(ForeignBlocks, MayBeginInTheRowThatEndsTheOneBefore) {
    Read({"资金汇总", "Base USD", "当前权益 1", "追加保证金 借贷成本",  //
          "01234567890123456789HKD", "当前权益 2", "追加保证金"});
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{"USD", "HKD"}));
    EXPECT_EQ(RecordsOf("HKD"), OneRecord({{"KHQY", "2"}, {"QMJC", "2"}}));
}

TEST_F(ForeignBlocks, AreOneSummaryAndLaterOnesBehindIt) {
    Read({"借贷成本", "01234567890123456789JPY", "当前权益 3", "追加保证金",  //
          "资金汇总", "Base USD", "借贷成本", "当前权益 1", "追加保证金",     //
          "资金汇总", "Base HKD", "当前权益 2", "追加保证金"});
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{"USD"}));
    EXPECT_EQ(AccountRecords(), OneRecord({{"KHQY", "1"}, {"QMJC", "1"}}));
}

TEST_F(ForeignBlocks, NeedTheSummary) {
    Read({"借贷成本", "01234567890123456789HKD", "当前权益 1", "追加保证金"});
    EXPECT_TRUE(report.CurrencyMoneyStore.Names.empty());
    EXPECT_TRUE(NothingRead());
}

TEST_F(ForeignBlocks, NeedTheWholeWordsOfALaterOne) {
    for (const std::string& title : NearWords("借贷成本")) {
        Read({"资金汇总", "Base USD", "追加保证金", title, "01234567890123456789HKD", "手续费 2", "追加保证金"});
        EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{"USD"})) << title;
    }
    for (const std::string& word : NearWords("追加保证金")) {
        Read({"资金汇总", "Base USD", "追加保证金", "借贷成本", "01234567890123456789HKD", "手续费 2", word});
        EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{"USD"})) << word;
    }
}

TEST_F(ForeignBlocks, ReadLaterOnesFromTheSecondRowBelowTheTitle) {
    Read({"资金汇总", "Base USD", "追加保证金",  //
          "借贷成本 手续费 1", "可用资金 2          HKD", "出入金 3", "期初资金 4", "维持保证金 5 追加保证金"});
    EXPECT_EQ(RecordsOf("HKD"), OneRecord({{"CRJ", "3"}, {"QCQY", "4"}}));
}

TEST_F(ForeignBlocks, LookForTheEndOfLaterOnesFromTheSecondRowBelowTheTitle) {
    Read({"资金汇总", "Base USD", "追加保证金",  //
          "借贷成本 追加保证金", "追加保证金          HKD", "手续费 5", "追加保证金"});
    EXPECT_EQ(RecordsOf("HKD"), OneRecord({{"SXF", "5"}}));
    Read({"资金汇总", "Base USD", "追加保证金",  //
          "借贷成本", "01234567890123456789HKD", "追加保证金", "手续费 5", "追加保证金"});
    EXPECT_EQ(RecordsOf("HKD"), OneRecord({}));
}

TEST_F(ForeignBlocks, KeepWhatWasReadBeforeAnUnendedOne) {
    Read({"资金汇总", "Base USD", "当前权益 1", "追加保证金",  //
          "借贷成本", "01234567890123456789HKD", "当前权益 2"});
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{"USD"}));
    EXPECT_EQ(AccountRecords(), OneRecord({{"KHQY", "1"}, {"QMJC", "1"}}));
}

// The second of the day takes the place of the first, whose amounts stay in the totals.
TEST_F(ForeignBlocks, AddEqualNamesToOneStore) {
    Read({"资金汇总", "Base USD USD HKD", "当前权益 1 2 3", "手续费 4 5 6", "追加保证金"});
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{"USD", "HKD"}));
    EXPECT_EQ(report.CurrencyMoneyStore.Stores.size(), 2U);
    EXPECT_EQ(RecordsOf("USD"), OneRecord({{"KHQY", "2"}, {"QMJC", "2"}, {"SXF", "5"}}));
    EXPECT_EQ(report.CurrencyMoneyStore.Find("USD")->TotalFees, 9);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("USD")->MinEquity, 1);
    EXPECT_EQ(report.CurrencyMoneyStore.Find("USD")->MaxEquity, 2);
    EXPECT_EQ(RecordsOf("HKD"), OneRecord({{"KHQY", "3"}, {"QMJC", "3"}, {"SXF", "6"}}));
    EXPECT_EQ(AccountRecords(), OneRecord({{"KHQY", "1"}, {"QMJC", "1"}, {"SXF", "4"}}));
}

TEST_F(ForeignBlocks, AddALaterEqualNameToTheStoreOfTheSummary) {
    Read({"资金汇总", "Base USD", "手续费 4", "追加保证金",  //
          "借贷成本", "01234567890123456789USD", "手续费 5", "追加保证金"});
    EXPECT_EQ(report.CurrencyMoneyStore.Names, (Names{"USD"}));
    EXPECT_EQ(RecordsOf("USD"), OneRecord({{"SXF", "5"}}));
    EXPECT_EQ(report.CurrencyMoneyStore.Find("USD")->TotalFees, 9);
    EXPECT_EQ(AccountRecords(), OneRecord({{"SXF", "4"}}));
    EXPECT_EQ(report.MoneyStore.TotalFees, 4);
}

TEST_F(ForeignBlocks, TellNamesApartByCase) {
    EXPECT_EQ(NamesOf("Base USD usd Usd"), (Names{"USD", "usd", "Usd"}));
}

TEST_F(ForeignBlocks, TakeTenThousandCurrencies) {
    std::string heading = "Base";
    std::string row = "当前权益";
    for (int i = 0; i < 10'000; ++i) {
        heading += " N" + std::to_string(i);
        row += " " + std::to_string(i) + ".5";
    }
    Read({"资金汇总", heading, row, "手续费 1", "追加保证金"});
    ASSERT_EQ(report.CurrencyMoneyStore.Names.size(), 10'000U);
    EXPECT_EQ(report.CurrencyMoneyStore.Stores.size(), 10'000U);
    EXPECT_EQ(RecordsOf("N0"), OneRecord({{"KHQY", "0.5"}, {"QMJC", "0.5"}, {"SXF", "1"}}));
    EXPECT_EQ(RecordsOf("N9999"), OneRecord({{"KHQY", "9999.5"}, {"QMJC", "9999.5"}}));
    EXPECT_EQ(report.MoneyStore.Count(), 1);
}

TEST_F(ForeignBlocks, MayBeManyOnOneDay) {
    std::string text = Statement({"资金汇总", "Base USD", "手续费 1", "追加保证金"});
    for (int i = 0; i < 10'000; ++i) {
        text += Statement({"借贷成本", "01234567890123456789N" + std::to_string(i), "手续费 2", "追加保证金"});
    }
    ReadText(text);
    EXPECT_EQ(report.CurrencyMoneyStore.Names.size(), 10'001U);
    EXPECT_EQ(RecordsOf("N9999"), OneRecord({{"SXF", "2"}}));
}

TEST_F(ForeignBlocks, AreReadForTheForeignKindWhateverTheFormat) {
    for (const int format : {-1, 0, 1, 3, 5, 201}) {
        Begin();
        report.Request.StatementFormat = format;
        ReadStatement("20240105", Statement({"权利金", "资金汇总", "Base USD", "当前权益 1", "追加保证金"}));
        EXPECT_EQ(AccountRecords(), OneRecord({{"KHQY", "1"}, {"QMJC", "1"}})) << format;
    }
}

// The stores work it out as margin plus available funds, in each currency.
TEST_F(ForeignBlocks, HaveTheirEquityWorkedOutInFormatsTwoAndSix) {
    for (const int format : {2, 6}) {
        Begin();
        report.Request.StatementFormat = format;
        ReadStatement("20240105", Statement({"资金汇总", "Base USD HKD", "当前权益 1 2", "维持保证金 3 4",
                                             "可用资金 5 6", "追加保证金"}));
        EXPECT_EQ(TextsOf(report.MoneyStore.Records, "KHQY"), (Texts{"8.00"})) << format;
        EXPECT_EQ(TextsOf(report.CurrencyMoneyStore.Find("USD")->Records, "KHQY"), (Texts{"8.00"})) << format;
        EXPECT_EQ(TextsOf(report.CurrencyMoneyStore.Find("HKD")->Records, "KHQY"), (Texts{"10.00"})) << format;
    }
}

TEST_F(ForeignBlocks, AreReadWithoutATemplate) {
    const CTempFolder folder;
    folder.Write("BillTemplate/broker.ini", "[DEALFIELD]\r\nBILLFORMAT_NEWDATE=no date\r\n");
    report.TemplatePath = folder.Path("BillTemplate/broker.ini");
    EXPECT_NO_THROW(ReadStatement("20240105", Statement({"资金汇总", "Base USD", "当前权益 1", "追加保证金"})));
    EXPECT_EQ(AccountRecords(), OneRecord({{"KHQY", "1"}, {"QMJC", "1"}}));
}

}  // namespace
}  // namespace tradebill::foreign_blocks_test
