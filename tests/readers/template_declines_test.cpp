#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "readers/statement_loader.h"
#include "readers/template_fixture.h"

namespace tradebill::template_declines_test {
namespace {

class TemplateDeclines : public TemplateFixture {
protected:
    /// A template of labelled money and all four tables, each with a title of its own; complete.
    static std::string WholeTemplate() {
        return Ini({"[DEALFIELD]",    "MATCH_RECORD=1",    "PING_DETAIL=1",   "OPI_DETAIL=1",   "OPI_SUM=1",
                    "[MONEY_RECORD]", "START_FLAG=资金",   "END_FLAG=合计",   "DELIMITER=|",    "KHQY_NAME=权益",
                    "[MATCH_RECORD]", "START_FLAG=成交",   "START_OFFSET=1",  "END_FLAG=共",    "END_OFFSET=0",
                    "DELIMITER=|",    "[PING_DETAIL]",     "START_FLAG=平仓", "START_OFFSET=1", "END_FLAG=共",
                    "END_OFFSET=0",   "DELIMITER=|",       "BID=0",           "[OPI_DETAIL]",   "START_FLAG=持仓",
                    "START_OFFSET=1", "END_FLAG=共",       "END_OFFSET=0",    "DELIMITER=|",    "BID_VOL=0",
                    "[OPI_SUM]",      "START_FLAG=汇总",   "START_OFFSET=1",  "END_FLAG=共",    "END_OFFSET=0",
                    "DELIMITER=|",    "BID_POSITION_VOL=0"});
    }

    /// The same without a value for `key` of `section`, or without the key.
    static std::string Without(std::string_view section, std::string_view key, bool isMissing = false) {
        std::string content = WholeTemplate();
        const std::size_t begin = content.find(std::string(key) + "=", content.find("[" + std::string(section) + "]"));
        const std::size_t end = content.find("\r\n", begin);
        if (isMissing) return content.erase(begin, end + 2 - begin);
        return content.erase(begin + key.size() + 1, end - begin - key.size() - 1);
    }

    bool ReadAll() {
        return Read({"结算单", "资金", "-", "权益|1", "合计", "成交", Numbers(12), "共", "平仓", Numbers(12), "-", "共",
                     "持仓", Numbers(12), "共", "汇总", Numbers(12), "共"});
    }

    /// Which stores have rows: m money, t trades, c closed positions, o open ones, s their sums.
    std::string Filled() {
        std::string filled;
        if (report.MoneyStore.Count() > 0) filled += 'm';
        if (report.MatchStore.Count() > 0) filled += 't';
        if (report.PingDetailStore.Count() > 0) filled += 'c';
        if (report.OpiDetailStore.Count() > 0) filled += 'o';
        if (report.OpiSumStore.Count() > 0) filled += 's';
        return filled;
    }
};

TEST_F(TemplateDeclines, NotWithACompleteTemplate) {
    BeginWith(1, WholeTemplate());
    EXPECT_TRUE(ReadAll());
    EXPECT_EQ(Filled(), "mtcos");
}

TEST_F(TemplateDeclines, AtAnIncompleteSectionAndKeepsWhatWasReadBefore) {
    const struct {
        std::string_view section;
        std::string_view filled;
    } cases[] = {
        {"MONEY_RECORD", ""}, {"MATCH_RECORD", "m"}, {"PING_DETAIL", "mt"}, {"OPI_DETAIL", "mtc"}, {"OPI_SUM", "mtco"},
    };
    for (const auto& row : cases) {
        for (const std::string_view key : {"START_FLAG", "END_FLAG", "DELIMITER"}) {
            for (const bool isMissing : {false, true}) {
                BeginWith(1, Without(row.section, key, isMissing));
                EXPECT_FALSE(ReadAll()) << row.section << key;
                EXPECT_EQ(Filled(), row.filled) << row.section << key;
            }
        }
    }
}

TEST_F(TemplateDeclines, NotForOffsetsOrColumnsThatAreMissing) {
    for (const std::string_view section : {"MATCH_RECORD", "OPI_DETAIL", "OPI_SUM"}) {
        for (const std::string_view key : {"START_OFFSET", "END_OFFSET"}) {
            BeginWith(1, Without(section, key, true));
            EXPECT_TRUE(ReadAll()) << section << key;
        }
    }
}

TEST_F(TemplateDeclines, AtAnIncompleteSectionThatTheStatementLacks) {
    for (const std::string_view section : {"MONEY_RECORD", "MATCH_RECORD", "PING_DETAIL", "OPI_DETAIL", "OPI_SUM"}) {
        BeginWith(1, Without(section, "DELIMITER"));
        EXPECT_FALSE(Read({"结算单"})) << section;
        EXPECT_FALSE(ReadByTemplate("20240105", "")) << section;
        EXPECT_TRUE(NothingRead());
    }
}

TEST_F(TemplateDeclines, NotForSectionsThatTheStatementLacks) {
    BeginWith(1, WholeTemplate());
    EXPECT_TRUE(Read({"结算单"}));
    EXPECT_TRUE(ReadByTemplate("20240105", ""));
    EXPECT_TRUE(Read({"资金", "成交", "平仓", "持仓", "汇总"}));
    EXPECT_TRUE(NothingRead());
    EXPECT_TRUE(Read({"汇总", Numbers(12), "共", "成交"}));  // what follows a missing one is read
    EXPECT_EQ(Filled(), "s");
}

TEST_F(TemplateDeclines, NotForASectionThatIsOff) {
    for (const std::string_view section : {"MATCH_RECORD", "PING_DETAIL", "OPI_DETAIL", "OPI_SUM"}) {
        std::string content = Without(section, "START_FLAG");
        const std::string flag = std::string(section) + "=1";
        content.replace(content.find(flag), flag.size(), std::string(section) + "=0");
        BeginWith(1, content);
        EXPECT_TRUE(ReadAll()) << section;
        EXPECT_EQ(Filled().size(), 4U) << section;
    }
    std::string content = Without("MONEY_RECORD", "START_FLAG");
    BeginWith(1, content.insert(content.find("MATCH_RECORD=1"), "MONEY_MODE=2\r\n"));
    EXPECT_TRUE(ReadAll());
    EXPECT_EQ(Filled(), "tcos");
}

TEST_F(TemplateDeclines, NotForMoneyInOneRow) {
    for (const std::string_view key : {"START_FLAG", "END_FLAG", "DELIMITER"}) {
        std::string content = Without("MONEY_RECORD", key);
        content.insert(content.find("[MONEY_RECORD]") + 16, "START_OFFSET=0\r\n");
        BeginWith(1, content.insert(content.find("MATCH_RECORD=1"), "MONEY_MODE=1\r\n"));
        EXPECT_TRUE(ReadAll()) << key;
        EXPECT_EQ(Filled(), "tcos") << key;
    }
}

TEST_F(TemplateDeclines, NotForOpenPositionsWithBothSidesInOneRow) {
    for (const std::string_view key : {"START_FLAG", "END_FLAG", "DELIMITER"}) {
        for (const std::int32_t format : {0, 1, 3}) {
            BeginWith(format, Without("OPI_DETAIL", key));
            EXPECT_FALSE(ReadAll()) << key << format;
        }
        for (const std::int32_t format : {2, 4, 5, 6, 201, -1}) {
            BeginWith(format, Without("OPI_DETAIL", key));
            EXPECT_TRUE(ReadAll()) << key << format;
        }
    }
}

TEST_F(TemplateDeclines, AtTheSectionOfItsScheme) {
    const std::string oldOne = Ini({"START_FLAG=资金", "END_FLAG=合计", "DELIMITER=|"});
    const std::string date = "[DEALFIELD]\r\nBILLFORMAT_NEWDATE=20240105\r\n";
    BeginWith(1, date + "[MONEY_RECORD]\r\n" + oldOne);
    EXPECT_TRUE(Read({"结算单"}, "20240104"));
    EXPECT_FALSE(Read({"结算单"}, "20240105"));
    BeginWith(1, date + "[MONEY_RECORD_NEW]\r\n" + oldOne);
    EXPECT_FALSE(Read({"结算单"}, "20240104"));
    EXPECT_TRUE(Read({"结算单"}, "20240105"));
}

TEST_F(TemplateDeclines, AnEmptyFileAsItNamesNoMoney) {
    for (const std::string_view content :
         {"", "\r\n", "[DEALFIELD]\r\n", "nonsense", "[MONEY_RECORD]\r\nSTART_FLAG\r\n"}) {
        BeginWith(1, content);
        EXPECT_FALSE(ReadAll()) << content;
        EXPECT_TRUE(NothingRead()) << content;
    }
}

class TemplateDispatch : public TemplateDeclines {
protected:
    /// A statement for the fixed reader of format 1, whose trades the templates here can read too.
    static std::string StatusText() {
        return Statement({"结算单", "日  期:20240102", "资金状况", "----------", "客户权益: 7", "----------",
                          "成交记录", "-", "-", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共 1 条"});
    }
    static std::string TradesTemplate(std::string_view more) {
        return "[DEALFIELD]\r\nMONEY_MODE=9\r\n" + std::string(more) +
               Ini({"MATCH_RECORD=1", "[MATCH_RECORD]", "START_FLAG=成交记录", "START_OFFSET=3", "END_FLAG=共",
                    "END_OFFSET=0", "DELIMITER=SPACE", "MATCHNO=11"});
    }
};

TEST_F(TemplateDispatch, GivesEveryFormatToTheTemplateFirst) {
    for (const std::int32_t format : {0, 1, 2, 3, 6, 201, 5, -1, 99}) {
        BeginWith(format, TradesTemplate(""));
        ReadStatement("20240105", StatusText());
        EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), OneRecord({{"MATCHNO", "t11"}})) << format;
        EXPECT_EQ(report.MoneyStore.Count(), 0) << format;
    }
}

TEST_F(TemplateDispatch, GivesAStatementOfTheFixedReaderToItWithoutATemplate) {
    Begin(1);
    ReadStatement("20240105", StatusText());
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240102"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BILL_DATE"), (Texts{"20240102"}));
}

TEST_F(TemplateDispatch, LeavesAStatementThatTheTemplateFindsNothingInUnread) {
    BeginWith(1, TradesTemplate(""));
    ReadStatement("20240105", Statement({"结算单", "日  期:20240102", "资金状况", "-", "客户权益: 7", "---------"}));
    EXPECT_TRUE(NothingRead());
}

TEST_F(TemplateDispatch, ReadsTheWholeStatementAgainBehindAnIncompleteTemplate) {
    BeginWith(1, TradesTemplate("OPI_SUM=1\r\n"));
    ReadStatement("20240105", StatusText());
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BILL_DATE"), (Texts{"20240105", "20240102"}));
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "KHQY"), (Texts{"7"}));
}

TEST_F(TemplateDispatch, HasNoFixedReaderForOtherFormatsBehindAnIncompleteTemplate) {
    BeginWith(5, TradesTemplate("OPI_SUM=1\r\n"));
    ReadStatement("20240105", StatusText());
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BILL_DATE"), (Texts{"20240105"}));
    EXPECT_EQ(report.MoneyStore.Count(), 0);
}

TEST_F(TemplateDispatch, LooksAtNoTemplateForTheForeignFamily) {
    for (const std::int32_t kind : {-1, 0, 1, 2, 3}) {
        BeginWith(1, TradesTemplate(""));
        report.Request.StatementKind = kind;
        ReadStatement("20240105", StatusText());
        EXPECT_EQ(report.MatchStore.Count(), kind == 2 ? 0 : 1) << kind;
    }
    BeginWith(1, "[DEALFIELD]\r\nBILLFORMAT_NEWDATE=never\r\n");
    report.Request.StatementKind = 2;
    EXPECT_NO_THROW(ReadStatement("20240105", StatusText()));
}

TEST_F(TemplateDispatch, ReadsATemplateAnewThatIsWrittenDuringTheRun) {
    CStatementLoader loader(report);
    loader.Read("20240105", StatusText());
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240102"}));
    WriteTemplate(TradesTemplate(""));
    loader.Read("20240108", StatusText());
    WriteTemplate(TradesTemplate("OPI_SUM=1\r\n"));  // incomplete
    loader.Read("20240109", StatusText());
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BILL_DATE"), (Texts{"20240102", "20240108", "20240109", "20240102"}));
}

TEST_F(TemplateDispatch, GivesStatementsWithPremiumToTheTemplateToo) {
    BeginWith(1, TradesTemplate(""));
    ReadStatement("20240105", StatusText() + Gbk("权利金\r\n"));
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows), OneRecord({{"MATCHNO", "t11"}}));
}

}  // namespace
}  // namespace tradebill::template_declines_test
