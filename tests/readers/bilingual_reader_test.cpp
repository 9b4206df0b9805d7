#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>

#include "readers/near_words.h"
#include "readers/reader_fixture.h"

namespace tradebill::bilingual_reader_test {
namespace {

constexpr std::string_view kDay = "20240105";
constexpr std::string_view kOldEquity = "客户权益 Client Equity：：  5";
constexpr std::string_view kNewEquity = "客户权益 Client Equity:  5";

/// A money field and its label before and after the change.
struct Label {
    const char* field;
    std::string_view before;
    std::string_view after;
};

constexpr Label kLabels[] = {
    {"KHQY", "客户权益 Client Equity：：", "客户权益 Client Equity:"},
    {"BZJZY", "保证金占用 Margin Occupied：", "保证金占用 Margin Occupied:"},
    {"SXF", "手 续 费 Commission：", "手 续 费 Commission:"},
    {"KYZJ", "可用资金 Fund Avail.：", "可用资金 Fund Avail.:"},
    {"CRJ", "出 入 金 Deposit/Withdrawal：", "出 入 金 Deposit/Withdrawal:"},
    {"QCQY", "期初结存 Balance b/f：", "期初结存 Balance b/f:"},
    {"QMJC", "期末结存 Balance c/f：", "期末结存 Balance c/f:"},
    {"PCYK", "平仓盈亏 Realized P/L：", "平仓盈亏 Realized P/L:"},
    {"CCDSYK", "持仓盯市盈亏 MTM P/L：", "持仓盯市盈亏 MTM P/L:"},
    {"XQSXF", "行权手续费 Exercise Fee：", "行权手续费 Exercise Fee:"},
};

Fields OnlyPremium(const char* amount) {
    return {{"BILL_DATE", std::string(kDay)}, {"QLJSZ", amount}};
}

class BilingualReader : public ReaderFixture {
protected:
    Fields ReadOld(std::initializer_list<std::string_view> lines) {
        MakeReport(3);
        Read(ReadBilingualStatement, kDay, Statement(lines));
        return Money();
    }
    Fields ReadNew(std::initializer_list<std::string_view> lines) {
        MakeReport(3);
        Read(ReadBilingualStatementNew, kDay, Statement(lines));
        return Money();
    }

    /// The record of a money section of these rows.
    Fields ReadOldRows(std::string_view row, std::string_view otherRow = "----") {
        return ReadOld({"资金状况", "----------", row, otherRow, "权利金支出 Premium paid：  40.00"});
    }
    Fields ReadNewRows(std::string_view row, std::string_view otherRow = "----") {
        return ReadNew({"资金状况", "----------", row, otherRow, "成交记录"});
    }
};

TEST_F(BilingualReader, FillsMoneyFromTheOldLabels) {
    const Fields money = ReadOld({"结算单", "资金状况 Account Summary", "----------",                           //
                                  "期初结存 Balance b/f：  m1    期末结存 Balance c/f：  m2",                   //
                                  "出 入 金 Deposit/Withdrawal：     m3    客户权益 Client Equity：：     m4",  //
                                  "平仓盈亏 Realized P/L：  m5    保证金占用 Margin Occupied：  m6",            //
                                  "持仓盯市盈亏 MTM P/L：  m7    可用资金 Fund Avail.：  m8",                   //
                                  "手 续 费 Commission：  m9    行权手续费 Exercise Fee：  m10",                //
                                  "权利金收入 Premium received：  100.00", "权利金支出 Premium paid：  40.00"});
    EXPECT_EQ(money, (Fields{{"BILL_DATE", "20240105"},
                             {"QCQY", "m1"},
                             {"QMJC", "m2"},
                             {"CRJ", "m3"},
                             {"KHQY", "m4"},
                             {"PCYK", "m5"},
                             {"BZJZY", "m6"},
                             {"CCDSYK", "m7"},
                             {"KYZJ", "m8"},
                             {"SXF", "m9"},
                             {"XQSXF", "m10"},
                             {"QLJSZ", "100.00"}}));
    EXPECT_EQ(report.MoneyStore.Records.front()->EXCHANGE_RATE, 1.0);
}

TEST_F(BilingualReader, FillsMoneyFromTheNewLabels) {
    const Fields money = ReadNew({"结算单", "资金状况 Account Summary", "----------",                         //
                                  "期初结存 Balance b/f:  m1    期末结存 Balance c/f:  m2",                   //
                                  "出 入 金 Deposit/Withdrawal:     m3    客户权益 Client Equity:     m4",    //
                                  "平仓盈亏 Realized P/L:  m5    保证金占用 Margin Occupied:  m6",            //
                                  "持仓盯市盈亏 MTM P/L:  m7    可用资金 Fund Avail.:  m8",                   //
                                  "手 续 费 Commission:  m9    行权手续费 Exercise Fee:  m10",                //
                                  "权利金收入 premium received:  100.00", "权利金支出 premium paid:  40.00",  //
                                  "成交记录 Transaction Record"});
    EXPECT_EQ(money, (Fields{{"BILL_DATE", "20240105"},
                             {"QCQY", "m1"},
                             {"QMJC", "m2"},
                             {"CRJ", "m3"},
                             {"KHQY", "m4"},
                             {"PCYK", "m5"},
                             {"BZJZY", "m6"},
                             {"CCDSYK", "m7"},
                             {"KYZJ", "m8"},
                             {"SXF", "m9"},
                             {"XQSXF", "m10"},
                             {"QLJSZ", "60.00"}}));
    EXPECT_EQ(report.MoneyStore.Records.front()->EXCHANGE_RATE, 1.0);
}

TEST_F(BilingualReader, KnowsTheLabelsOfItsOwnTimeOnly) {
    for (const Label& label : kLabels) {
        const std::string oldRow = std::string(label.before) + "  5";
        const std::string newRow = std::string(label.after) + "  5";
        Fields filled = OnlyPremium("0.00");
        filled[label.field] = "5";
        EXPECT_EQ(ReadOldRows(oldRow), filled) << oldRow;
        EXPECT_EQ(ReadOldRows(newRow), OnlyPremium("0.00")) << newRow;
        EXPECT_EQ(ReadNewRows(newRow), filled) << newRow;
        EXPECT_EQ(ReadNewRows(oldRow), OnlyPremium("0.00")) << oldRow;
    }
    EXPECT_EQ(ReadOldRows("权利金收入 premium received:  5"), OnlyPremium("0.00"));
    EXPECT_EQ(ReadNewRows("权利金收入 Premium received：  5", "权利金支出 Premium paid：  2"), OnlyPremium("0.00"));
}

TEST_F(BilingualReader, ComparesWholeColumnsWithItsLabels) {
    for (const std::string_view row :
         {"客户权益 Client Equity：  5", "客户权益 Client Equity：：：  5", "客户权益  Client Equity：：  5",
          "(客户权益 Client Equity：：  5", "客户权益：：  5", "Client Equity：：  5", "客户权益 client equity：：  5",
          "手续费 Commission：  5", "出入金 Deposit/Withdrawal：  5", "手 续 费  Commission：  5",
          "权利金收入 premium received：  5", "权利金收入：  5", "上日结存 Balance b/f：  5",
          "(权利金收入 Premium received：  5", "权利金收入 Premium received：x  5"}) {
        EXPECT_EQ(ReadOldRows(row), OnlyPremium("0.00")) << row;
    }
    for (const std::string_view row :
         {"客户权益 Client Equity：  5", "客户权益 Client Equity::  5", "客户权益 Client Equity  5",
          "手续费 Commission:  5", "权利金收入 Premium received:  5", "权利金支出 Premium paid:  5",
          "(权利金收入 premium received:  5", "权利金支出 premium paid:x  5"}) {
        EXPECT_EQ(ReadNewRows(row), OnlyPremium("0.00")) << row;
    }
}

TEST_F(BilingualReader, FindsNoLabelWithOneBlankBeforeItsValue) {
    EXPECT_EQ(ReadOldRows("客户权益 Client Equity：： 5"), OnlyPremium("0.00"));
    EXPECT_EQ(ReadNewRows("客户权益 Client Equity: 5"), OnlyPremium("0.00"));
}

TEST_F(BilingualReader, GivesALabelInTheLastColumnNoValue) {
    EXPECT_EQ(ReadOldRows("5  客户权益 Client Equity：：", "6"), OnlyPremium("0.00"));
    EXPECT_EQ(ReadNewRows("5  客户权益 Client Equity:", "6"), OnlyPremium("0.00"));
}

TEST_F(BilingualReader, TriesAValueAsALabelToo) {
    EXPECT_EQ(ReadOldRows("手 续 费 Commission：  期末结存 Balance c/f：  5"),
              (Fields{{"BILL_DATE", "20240105"}, {"SXF", "期末结存 Balanc"}, {"QMJC", "5"}, {"QLJSZ", "0.00"}}));
    EXPECT_EQ(ReadNewRows("手 续 费 Commission:  期末结存 Balance c/f:  5"),
              (Fields{{"BILL_DATE", "20240105"}, {"SXF", "期末结存 Balanc"}, {"QMJC", "5"}, {"QLJSZ", "0.00"}}));
}

TEST_F(BilingualReader, KeepsTheLastOfEqualLabels) {
    EXPECT_EQ(ReadOldRows("手 续 费 Commission：  1  手 续 费 Commission：  2", "手 续 费 Commission：  3"),
              (Fields{{"BILL_DATE", "20240105"}, {"SXF", "3"}, {"QLJSZ", "0.00"}}));
    EXPECT_EQ(ReadOldRows("权利金收入 Premium received：  1", "权利金收入 Premium received：  2"), OnlyPremium("2.00"));
}

TEST_F(BilingualReader, StoresAmountsAsTheyStand) {
    EXPECT_EQ(
        ReadOldRows("可用资金 Fund Avail.：  -1,234.50 元  手 续 费 Commission：  12345678901234567"),
        (Fields{{"BILL_DATE", "20240105"}, {"KYZJ", "-1,234.50 元"}, {"SXF", "123456789012345"}, {"QLJSZ", "0.00"}}));
}

// The row of the premium paid ends the old money section, so its amount never counts, nor does one before it.
TEST_F(BilingualReader, NeverCountsThePremiumPaidBeforeTheChange) {
    const struct {
        std::string_view received;
        std::string_view paid;
        const char* premium;
    } cases[] = {
        {"权利金收入 Premium received：  100.00", "权利金支出 Premium paid：  40.00", "100.00"},
        {"----", "权利金收入 Premium received：  100.00  权利金支出 Premium paid：  40.00", "0.00"},
        {"----", "权利金支出 Premium paid：  40.00  权利金收入 Premium received：  100.00", "0.00"},
        {"----", "权利金支出 Premium paid：  40.00", "0.00"},
        {"权利金收入 Premium received：  12.3", "权利金支出", "12.30"},
        {"权利金收入 Premium received：  -7", "权利金支出", "-7.00"},
        {"权利金收入 Premium received：  1,000.00", "权利金支出", "1.00"},
        {"权利金收入 Premium received：  none", "权利金支出", "0.00"},
        {"权利金收入 Premium received：  100000000000000000000", "权利金支出", "100000000000000"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(ReadOld({"资金状况", "----------", row.received, row.paid}), OnlyPremium(row.premium))
            << row.received;
    }
}

TEST_F(BilingualReader, TakesThePremiumPaidOffTheReceivedFromTheChangeOn) {
    const struct {
        std::string_view row;
        std::string_view otherRow;
        const char* premium;
    } cases[] = {
        {"权利金收入 premium received:  100.00", "权利金支出 premium paid:  40.00", "60.00"},
        {"权利金支出 premium paid:  40.00", "权利金收入 premium received:  100.00", "60.00"},
        {"权利金收入 premium received:  100.00  权利金支出 premium paid:  40.00", "----", "60.00"},
        {"权利金收入 premium received:  100.00", "----", "100.00"},
        {"权利金支出 premium paid:  40.00", "----", "-40.00"},
        {"权利金支出 premium paid:  -40.00", "----", "40.00"},
        {"权利金收入 premium received:  0.5", "权利金支出 premium paid:  0.25", "0.25"},
        {"权利金收入 premium received:  2,500.00", "权利金支出 premium paid:  1,200.00", "1.00"},
        {"----", "----", "0.00"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(ReadNewRows(row.row, row.otherRow), OnlyPremium(row.premium)) << row.row;
    }
}

TEST_F(BilingualReader, LeavesOutTheRowBelowTheTitleAndTheTerminatingRow) {
    EXPECT_EQ(ReadOld({"资金状况", kOldEquity, "手 续 费 Commission：  6",
                       "可用资金 Fund Avail.：  7  权利金支出 Premium paid：  8"}),
              (Fields{{"BILL_DATE", "20240105"}, {"SXF", "6"}, {"QLJSZ", "0.00"}}));
    EXPECT_EQ(
        ReadNew({"资金状况", kNewEquity, "手 续 费 Commission:  6", "可用资金 Fund Avail.:  7  成交记录", "----"}),
        (Fields{{"BILL_DATE", "20240105"}, {"SXF", "6"}, {"QLJSZ", "0.00"}}));
}

TEST_F(BilingualReader, LooksForTheEndOfMoneyFromTheSecondRowBelowTheTitle) {
    const Fields equity{{"BILL_DATE", "20240105"}, {"KHQY", "5"}, {"QLJSZ", "0.00"}};
    EXPECT_EQ(ReadOld({"资金状况 权利金支出", "权利金支出", kOldEquity, "权利金支出"}), equity);
    EXPECT_EQ(ReadOld({"资金状况", "----------", "权利金支出", kOldEquity, "权利金支出"}), OnlyPremium("0.00"));
    EXPECT_EQ(ReadNew({"资金状况 成交记录", "成交记录", kNewEquity, "成交记录"}), equity);
    EXPECT_EQ(ReadNew({"资金状况", "----------", "成交记录", kNewEquity, "成交记录"}), OnlyPremium("0.00"));
}

TEST_F(BilingualReader, CountsNoBlankRows) {
    EXPECT_EQ(ReadOld({"资金状况", "", "----------", "  ", "\t", kOldEquity, "", "权利金支出"}),
              (Fields{{"BILL_DATE", "20240105"}, {"KHQY", "5"}, {"QLJSZ", "0.00"}}));
}

TEST_F(BilingualReader, EndsMoneyAtTheTradesFromTheChangeOnOnly) {
    EXPECT_EQ(ReadOld({"资金状况", "----------", "成交记录", kOldEquity, "权利金支出"}),
              (Fields{{"BILL_DATE", "20240105"}, {"KHQY", "5"}, {"QLJSZ", "0.00"}}));
    EXPECT_EQ(ReadNew({"资金状况", "----------", "权利金支出", kNewEquity, "成交记录", kNewEquity}),
              (Fields{{"BILL_DATE", "20240105"}, {"KHQY", "5"}, {"QLJSZ", "0.00"}}));
}

TEST_F(BilingualReader, MakesNoMoneyRecordWithoutTitleOrTerminatingRow) {
    const struct {
        Reader* read;
        std::string text;
    } cases[] = {
        {ReadBilingualStatement, Statement({"资金状况", "----", kOldEquity, "成交记录", "合计", "共"})},
        {ReadBilingualStatement, Statement({"资金", "----", kOldEquity, "权利金支出"})},
        {ReadBilingualStatement, Statement({"权利金支出", "资金状况", "----", kOldEquity})},
        {ReadBilingualStatementNew, Statement({"资金状况", "----", kNewEquity, "权利金支出", "合计", "共"})},
        {ReadBilingualStatementNew, Statement({"资金", "----", kNewEquity, "成交记录"})},
        {ReadBilingualStatementNew, Statement({"成交记录", "资金状况", "----", kNewEquity})},
    };
    for (const auto& statement : cases) {
        MakeReport(3);
        Read(statement.read, kDay, statement.text);
        EXPECT_TRUE(NothingRead()) << statement.text;
    }
}

TEST_F(BilingualReader, NeedsTheWholeWordsOfMoney) {
    for (const std::string& title : NearWords("资金状况")) {
        MakeReport(3);
        Read(ReadBilingualStatement, kDay, Statement({title, "----", kOldEquity, "权利金支出"}));
        Read(ReadBilingualStatementNew, kDay, Statement({title, "----", kNewEquity, "成交记录"}));
        EXPECT_TRUE(NothingRead()) << title;
    }
    for (const std::string& word : NearWords("权利金支出")) {
        MakeReport(3);
        Read(ReadBilingualStatement, kDay, Statement({"资金状况", "----", kOldEquity, word}));
        EXPECT_TRUE(NothingRead()) << word;
    }
    for (const std::string& word : NearWords("成交记录")) {
        MakeReport(3);
        Read(ReadBilingualStatementNew, kDay, Statement({"资金状况", "----", kNewEquity, word}));
        EXPECT_TRUE(NothingRead()) << word;
    }
}

TEST_F(BilingualReader, HandsMoneyToStatisticsAndStore) {
    ReadOldRows("期初结存 Balance b/f：  10  期末结存 Balance c/f：  30  平仓盈亏 Realized P/L：  4",
                "持仓盯市盈亏 MTM P/L：  3  出 入 金 Deposit/Withdrawal：  2  保证金占用 Margin Occupied：  6");
    const DayFigure* const figure = report.TradeStatistics.DayFigures.Find(kDay);
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->Opening, 10);
    EXPECT_EQ(figure->Closing, 30);
    EXPECT_EQ(figure->ClosedPL, 4);
    EXPECT_EQ(figure->PositionPL, 3);
    EXPECT_EQ(figure->CashFlow, 2);
    const CDayUsage* const usage = report.TradeStatistics.DayUsages.Find(kDay);
    ASSERT_NE(usage, nullptr);
    EXPECT_EQ(usage->Margin, 6);
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 30);
    EXPECT_TRUE(report.CurrencyMoneyStore.Names.empty());
}

TEST_F(BilingualReader, FilesUnderTheDayWhateverDatesTheStatementBears) {
    EXPECT_EQ(ReadOld({"日  期:20240102", "制表时间：20240102", "日期：20240102", "日期 Date：20240102", "资金状况",
                       "----------", kOldEquity, "权利金支出"}),
              (Fields{{"BILL_DATE", "20240105"}, {"KHQY", "5"}, {"QLJSZ", "0.00"}}));
}

TEST_F(BilingualReader, ReadsADayThatIsStoredAlreadyOnceMore) {
    ReadOldRows(kOldEquity);
    Read(ReadBilingualStatement, kDay,
         Statement({"制表时间：20240105", "资金状况", "----------", "客户权益 Client Equity：：  6", "权利金支出"}));
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240105"}, {"KHQY", "6"}, {"QLJSZ", "0.00"}}));
    EXPECT_EQ(report.MoneyStore.MinEquity, 5);
    EXPECT_EQ(report.MoneyStore.MaxEquity, 6);
}

TEST_F(BilingualReader, IsChosenForFormatThreeWithPremium) {
    MakeReport(3);
    ReadStatement(kDay, Statement({"资金状况", "----------", kOldEquity, "权利金支出"}));
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240105"}, {"KHQY", "5"}, {"QLJSZ", "0.00"}}));
}

TEST_F(BilingualReader, ReadsNothingFromAnEmptyText) {
    for (Reader* const read : {ReadBilingualStatement, ReadBilingualStatementNew}) {
        for (const std::string_view text : {"", " \r\n", "\n\n"}) {
            MakeReport(3);
            Read(read, kDay, text);
            EXPECT_TRUE(NothingRead());
        }
    }
}

}  // namespace
}  // namespace tradebill::bilingual_reader_test
