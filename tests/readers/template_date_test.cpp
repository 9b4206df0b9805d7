#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "readers/template_fixture.h"

namespace tradebill::template_date_test {
namespace {

class TemplateDate : public TemplateFixture {
protected:
    /// A template of labelled money, the same in both schemes.
    static std::string MoneyTemplate(std::string_view dealField) {
        return "[DEALFIELD]\r\n" + std::string(dealField) +
               Ini({"[MONEY_RECORD]", "START_FLAG=资金", "END_FLAG=合计", "DELIMITER=|", "KHQY_NAME=权益",
                    "[MONEY_RECORD_NEW]", "START_FLAG=资金", "END_FLAG=合计", "DELIMITER=|", "KHQY_NAME=权益"});
    }

    /// Whether a statement that begins with these lines is read, though 20240105 is already known.
    bool IsRead(std::string_view dealField, std::string_view beginning) {
        BeginWith(1, MoneyTemplate(dealField));
        EXPECT_TRUE(Read({"结算单", "资金", "-", "权益|1", "合计"}, "20240105"));
        EXPECT_TRUE(report.MoneyStore.HasDay("20240105"));
        const std::string text = Gbk(beginning) + Statement({"资金", "-", "权益|2", "合计"});
        EXPECT_TRUE(ReadByTemplate("20240108", text));
        return report.MoneyStore.HasDay("20240108");
    }
};

TEST_F(TemplateDate, EndsTheReaderIfItIsKnown) {
    EXPECT_FALSE(IsRead("", "结算单\r\n日期：20240105\r\n"));
    EXPECT_EQ(Money(), Record({{"KHQY", "1"}}));
    EXPECT_TRUE(IsRead("", "结算单\r\n日期：20240104\r\n"));
    EXPECT_TRUE(IsRead("", "结算单\r\n日期：20240108\r\n"));
}

TEST_F(TemplateDate, IsFoundAnywhereInTheText) {
    EXPECT_FALSE(IsRead("", "结算单 客户：7 日期：20240105/1\r\n"));
    EXPECT_FALSE(IsRead("", "结算单\r\n\r\n  制表日期：20240105\r\n"));
    EXPECT_FALSE(IsRead("", " 日期：20240105\r\n"));
}

TEST_F(TemplateDate, IsNotLookedForBehindAWordAtTheFirstByte) {
    EXPECT_TRUE(IsRead("", "日期：20240105\r\n"));
    EXPECT_TRUE(IsRead("", "日期：20240105\r\n日期：20240105\r\n"));
}

TEST_F(TemplateDate, StandsBehindTheFirstWord) {
    EXPECT_FALSE(IsRead("", "结算单\r\n日期：20240105\r\n日期：20240104\r\n"));
    EXPECT_TRUE(IsRead("", "结算单\r\n日期：20240104\r\n日期：20240105\r\n"));
    EXPECT_TRUE(IsRead("", "结算单\r\n日期：\r\n日期：20240105\r\n"));
}

TEST_F(TemplateDate, IsTakenAsItStands) {
    for (const std::string_view other :
         {"日期： 20240105\r\n", "日期：20240105 \r\n", "日期：20240105 客户\r\n", "日期：2024.01.05\r\n",
          "日期：2024-01-05\r\n", "日期：202401051\r\n", "日期：2024010\r\n", "日期：20240105.\r\n", "日期：\r\n",
          "日期:20240105\r\n"}) {
        EXPECT_TRUE(IsRead("", "结算单\r\n" + std::string(other))) << other;
    }
    EXPECT_FALSE(IsRead("", "结算单\r\n日期：20240105客户\r\n"));
    EXPECT_FALSE(IsRead("", "结算单\r\n日期：20240105\t1\r\n"));
}

TEST_F(TemplateDate, LeavesAStatementWithoutItToBeReadAgain) {
    BeginWith(1, MoneyTemplate(""));
    for (const std::string_view equity : {"权益|1", "权益|2"}) {
        EXPECT_TRUE(Read({"结算单", "资金", "-", equity, "合计"}));
    }
    EXPECT_EQ(Money(), Record({{"KHQY", "2"}}));
}

TEST_F(TemplateDate, FilesNoRecordUnderTheStatementsOwnDate) {
    BeginWith(1, MoneyTemplate(""));
    EXPECT_TRUE(Read({"结算单", "日期：20240102", "资金", "-", "权益|1", "合计"}, "20240105"));
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240105"}));
}

TEST_F(TemplateDate, StandsBehindTheWordOfTheScheme) {
    const std::string oldKeys = "DATE_FORMAT=Date:\r\nDATE_FORMAT_NEW=Day:\r\n";
    const std::string newKeys = "BILLFORMAT_NEWDATE=20240101\r\n" + oldKeys;
    const std::string newDate = "BILLFORMAT_NEWDATE=20240101\r\n";
    const struct {
        const std::string& keys;
        std::string_view line;
        bool isRead;
    } cases[] = {
        {oldKeys, "Date:20240105", false},      {oldKeys, "Day:20240105", true},
        {oldKeys, "日期：20240105", true},      {oldKeys, "date:20240105", true},
        {newKeys, "Date:20240105", true},       {newKeys, "Day:20240105", false},
        {newKeys, "日期 Date：20240105", true}, {newDate, "日期 Date：20240105", false},
        {newDate, "日期：20240105", true},      {newDate, "日期  Date：20240105", true},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(IsRead(row.keys, "结算单\r\n" + std::string(row.line) + "\r\n"), row.isRead) << row.keys << row.line;
    }
}

TEST_F(TemplateDate, IsNotLookedForBehindAnEmptyWord) {
    EXPECT_TRUE(IsRead("DATE_FORMAT=\r\n", "20240105\r\n日期：20240105\r\n"));
}

// An empty template names no money section: what it doesn't know by its date goes to the fixed reader.
TEST_F(TemplateDate, KeepsAKnownDayFromTheFixedReaderToo) {
    BeginWith(1, "");
    ReadStatement("20240105", Statement({"结算单", "日期：20240103", "日  期:20240105", "资金状况", "-", "---------"}));
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240105"}));
    const std::string next = Statement({"结算单", "日期：20240105", "日  期:20240109", "资金状况", "-", "---------"});
    EXPECT_TRUE(ReadByTemplate("20240108", next));
    ReadStatement("20240108", next);
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240105"}));
}

TEST_F(TemplateDate, IsLookedUpBehindTheChangeDate) {
    BeginWith(1, MoneyTemplate(""));
    Read({"结算单", "资金", "-", "权益|1", "合计"}, "20240105");
    NameTemplate("other");
    folder_.Write("BillTemplate/other.ini", "[DEALFIELD]\r\nBILLFORMAT_NEWDATE=20249999\r\n");
    EXPECT_EQ(ErrorOf({"结算单", "日期：20240105"}, "20240108"), 0x80004005U);
}

}  // namespace
}  // namespace tradebill::template_date_test
