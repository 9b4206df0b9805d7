#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "readers/template_fixture.h"

namespace tradebill::template_scheme_test {
namespace {

constexpr std::uint32_t kOutOfBounds = 0x80004005;
constexpr std::uint32_t kNoTime = 0x80070057;

class TemplateScheme : public TemplateFixture {
protected:
    /// Money sections of both schemes: labels of the old one stand in "资金", those of the new one in "Funds".
    static std::string BothSchemes(std::string_view dealField) {
        return "[DEALFIELD]\r\n" + std::string(dealField) +
               Ini({"[MONEY_RECORD]", "START_FLAG=资金", "END_FLAG=合计", "DELIMITER=|", "KHQY_NAME=权益",
                    "[MONEY_RECORD_NEW]", "START_FLAG=Funds", "END_FLAG=Total", "DELIMITER=,", "KHQY_NAME=Equity"});
    }

    bool ReadBoth(std::string_view day) {
        return Read({"结算单", "资金", "-", "权益|old", "合计", "Funds", "-", "Equity,new", "Total"}, day);
    }

    /// Which scheme `day` is read by: "old", "new", or "" if no money record was made.
    std::string SchemeOf(std::string_view day) {
        ReadBoth(day);
        return report.MoneyStore.Count() == 1 ? Money()["KHQY"] : "";
    }

    /// What a money section yields whose key KHQY_NAME is 2, by label or by column; "" if none was read.
    std::string MoneyBy(std::string_view dealField, std::string_view section) {
        BeginWith(1, "[DEALFIELD]\r\n" + std::string(dealField) + "[" + std::string(section) + "]\r\n" +
                         Ini({"START_FLAG=资金", "START_OFFSET=2", "END_FLAG=合计", "DELIMITER=|", "KHQY_NAME=2"}));
        EXPECT_TRUE(Read({"结算单", "资金", "-", "2|label|row|3|4|5|6|7|8", "合计"}));
        return report.MoneyStore.Count() == 1 ? Money()["KHQY"] : "";
    }
};

TEST_F(TemplateScheme, DeclinesWithoutATemplateFile) {
    EXPECT_FALSE(ReadBoth("20240105"));
    EXPECT_TRUE(NothingRead());
    EXPECT_FALSE(std::filesystem::exists(folder_.Path("BillTemplate")));
    folder_.Write("BillTemplate/other.ini", Gbk(BothSchemes("")));
    folder_.Write("broker.ini", Gbk(BothSchemes("")));
    folder_.Write("BillTemplate/broker", Gbk(BothSchemes("")));
    EXPECT_FALSE(ReadBoth("20240105"));
    EXPECT_TRUE(NothingRead());
}

TEST_F(TemplateScheme, TakesTheFileThatTheRequestNames) {
    for (const std::string_view name : {"b", "broker1234", "a b.c", ""}) {
        Begin(1);
        NameTemplate(name);
        folder_.Write("BillTemplate/" + std::string(name) + ".ini", Gbk(BothSchemes("")));
        EXPECT_TRUE(ReadBoth("20240105")) << name;
        EXPECT_EQ(Money(), Record({{"KHQY", "old"}})) << name;
    }
}

TEST_F(TemplateScheme, DeclinesForARequestWithoutATemplateName) {
    WriteTemplate(BothSchemes(""));
    NameTemplate("");
    EXPECT_FALSE(ReadBoth("20240105"));
}

TEST_F(TemplateScheme, ReadsAFileAnewThatHasChanged) {
    WriteTemplate(BothSchemes(""));
    const std::string path = folder_.Path("BillTemplate/broker.ini");
    std::filesystem::last_write_time(path, std::filesystem::last_write_time(path) - std::chrono::hours(1));
    EXPECT_EQ(SchemeOf("20240105"), "old");
    WriteTemplate(BothSchemes("BILLFORMAT_NEWDATE=20240101\r\n"));
    ReadBoth("20240108");
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "KHQY"), (Texts{"old", "new"}));
    std::filesystem::remove(path);
    EXPECT_FALSE(ReadBoth("20240109"));
    WriteTemplate(BothSchemes(""));
    EXPECT_TRUE(ReadBoth("20240110"));
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "KHQY"), (Texts{"old", "new", "old"}));
}

TEST_F(TemplateScheme, ReadsAFileAnewThatHasChangedButNotInLength) {
    WriteTemplate(BothSchemes("BILLFORMAT_NEWDATE=20250101\r\n"));
    const std::string path = folder_.Path("BillTemplate/broker.ini");
    const auto written = std::filesystem::last_write_time(path);
    ReadBoth("20240105");
    WriteTemplate(BothSchemes("BILLFORMAT_NEWDATE=20240101\r\n"));
    std::filesystem::last_write_time(path, written - std::chrono::milliseconds(10));  // an older copy put back
    ReadBoth("20240108");
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "KHQY"), (Texts{"old", "new"}));
}

TEST_F(TemplateScheme, TellsTwoFilesOfOneTimeAndLengthApart) {
    WriteTemplate(BothSchemes("BILLFORMAT_NEWDATE=20250101\r\n"));
    const std::string other =
        folder_.Write("BillTemplate/other.ini", Gbk(BothSchemes("BILLFORMAT_NEWDATE=20240101\r\n")));
    std::filesystem::last_write_time(other, std::filesystem::last_write_time(folder_.Path("BillTemplate/broker.ini")));
    ReadBoth("20240105");
    NameTemplate("other");
    ReadBoth("20240108");
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "KHQY"), (Texts{"old", "new"}));
}

TEST_F(TemplateScheme, ChangesOnTheChangeDate) {
    const struct {
        std::string_view changeDate;
        std::string_view day;
        std::string_view scheme;
    } cases[] = {
        {"20240105", "20240104", "old"},
        {"20240105", "20240105", "new"},
        {"20240105", "20240106", "new"},
        {"20240105", "20230106", "old"},
        {"20240105", "20250104", "new"},
        {"20231231", "20240101", "new"},
        {"20240101", "20231231", "old"},
        {"30001230", "20240105", "old"},
        {"  20240105 \t", "20240105", "new"},
        {"\" 20240106 \"", "20240105", "old"},
        {"\" 20240105 \"", "20240105", "new"},
        {"", "20240105", "old"},
        {"   ", "20240105", "old"},
        {"\"  \"", "20240105", "old"},
        {"20240105x", "20240105", "new"},
    };
    for (const auto& row : cases) {
        BeginWith(1, BothSchemes("BILLFORMAT_NEWDATE=" + std::string(row.changeDate) + "\r\n"));
        EXPECT_EQ(SchemeOf(row.day), row.scheme) << row.changeDate << ' ' << row.day;
    }
}

TEST_F(TemplateScheme, HoldsTheOldSchemeWithoutAChangeDate) {
    WriteTemplate(BothSchemes(""));
    EXPECT_EQ(SchemeOf("29991231"), "old");
}

TEST_F(TemplateScheme, RollsDaysOverTheEndOfTheirMonth) {
    BeginWith(1, BothSchemes("BILLFORMAT_NEWDATE=20230231\r\n"));  // the third of March
    EXPECT_EQ(SchemeOf("20230302"), "old");
    BeginWith(1, BothSchemes("BILLFORMAT_NEWDATE=20230231\r\n"));
    EXPECT_EQ(SchemeOf("20230303"), "new");
}

TEST_F(TemplateScheme, RaisesAnErrorForADateThatIsNone) {
    const struct {
        std::string_view changeDate;
        std::string_view day;
        std::uint32_t code;
    } cases[] = {
        {"18991231", "20240105", kOutOfBounds},
        {"20240001", "20240105", kOutOfBounds},
        {"20241301", "20240105", kOutOfBounds},
        {"20240100", "20240105", kOutOfBounds},
        {"20240132", "20240105", kOutOfBounds},
        {"soon", "20240105", kOutOfBounds},
        {"19690601", "20240105", kNoTime},
        {"30020101", "20240105", kNoTime},
        {"20240105", "18991231", kOutOfBounds},
        {"20240105", "20240001", kOutOfBounds},
        {"20240105", "20241301", kOutOfBounds},
        {"20240105", "20240100", kOutOfBounds},
        {"20240105", "20240132", kOutOfBounds},
        {"20240105", "30020101", kNoTime},
        {"20241231", "20240131", 0},
        {"20240101", "20241231", 0},
    };
    for (const auto& row : cases) {
        BeginWith(1, BothSchemes("BILLFORMAT_NEWDATE=" + std::string(row.changeDate) + "\r\n"));
        EXPECT_EQ(ErrorOf({"结算单"}, row.day), row.code) << row.changeDate << ' ' << row.day;
        EXPECT_TRUE(NothingRead());
    }
}

TEST_F(TemplateScheme, LetsADayBeAnythingWithoutAChangeDate) {
    WriteTemplate(BothSchemes(""));
    EXPECT_EQ(ErrorOf({"结算单", "资金", "-", "权益|old", "合计"}, "today"), 0U);
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"today"}));
}

TEST_F(TemplateScheme, RaisesTheErrorOfAStatementThatAFixedReaderCouldRead) {
    WriteTemplate("[DEALFIELD]\r\nBILLFORMAT_NEWDATE=20249999\r\n");
    const std::string text = Statement({"结算单", "日  期:20240102", "资金状况", "-", "客户权益: 1", "---------"});
    EXPECT_THROW(ReadStatement("20240105", text), CReportError);
    EXPECT_TRUE(NothingRead());
}

TEST_F(TemplateScheme, ReadsMoneyByItsMode) {
    EXPECT_EQ(MoneyBy("", "MONEY_RECORD"), "label");
    const struct {
        std::string_view mode;
        std::string_view money;
    } cases[] = {{"0", "label"}, {"1", "row"}, {"2", ""}, {"-1", ""}, {"9", ""}, {"", "label"}, {"one", "label"}};
    for (const auto& row : cases) {
        EXPECT_EQ(MoneyBy("MONEY_MODE=" + std::string(row.mode) + "\r\n", "MONEY_RECORD"), row.money) << row.mode;
        EXPECT_EQ(MoneyBy("MONEY_MODE = " + std::string(row.mode) + "\r\n", "MONEY_RECORD"), row.money) << row.mode;
    }
    EXPECT_EQ(MoneyBy("MONEY_MODE_NEW=1\r\n", "MONEY_RECORD"), "label");
}

TEST_F(TemplateScheme, ReadsNewMoneyByTheNewModeAndElseByTheOld) {
    const struct {
        std::string_view keys;
        std::string_view money;
    } cases[] = {
        {"", "label"},
        {"MONEY_MODE=0\r\n", "label"},
        {"MONEY_MODE=1\r\n", "row"},
        {"MONEY_MODE=2\r\n", ""},
        {"MONEY_MODE_NEW=1\r\n", "row"},
        {"MONEY_MODE_NEW =1\r\n", "row"},
        {"MONEY_MODE=1\r\nMONEY_MODE_NEW=0\r\n", "label"},
        {"MONEY_MODE=0\r\nMONEY_MODE_NEW=1\r\n", "row"},
        {"MONEY_MODE=0\r\nMONEY_MODE_NEW=2\r\n", ""},
        {"MONEY_MODE=1\r\nMONEY_MODE_NEW=-1\r\n", "row"},
        {"MONEY_MODE=1\r\nMONEY_MODE_NEW=-2\r\n", ""},
        {"MONEY_MODE=1\r\nMONEY_MODE_NEW=\r\n", "label"},
        {"MONEY_MODE_NEW=-1\r\n", "label"},
    };
    for (const auto& row : cases) {
        const std::string keys = "BILLFORMAT_NEWDATE=20240101\r\n" + std::string(row.keys);
        EXPECT_EQ(MoneyBy(keys, "MONEY_RECORD_NEW"), row.money) << row.keys;
    }
}

TEST_F(TemplateScheme, ReadsEachTableBySectionsOfTheirOwnName) {
    const struct {
        std::int32_t format;
        std::string_view section;
    } cases[] = {{1, "MATCH_RECORD"}, {1, "PING_DETAIL"}, {1, "OPI_DETAIL"}, {2, "OPI_DETAIL"}, {1, "OPI_SUM"}};
    for (const auto& row : cases) {
        const std::string name(row.section);
        const std::string keys = "CONTRACT=2\r\nBID=3\r\nBID_VOL=4\r\nBID_POSITION_VOL=4\r\n";
        const std::string content =
            "[DEALFIELD]\r\nBILLFORMAT_NEWDATE=20240105\r\nMONEY_MODE=9\r\n" + name + "=1\r\n[" + name + "]\r\n" +
            keys + Ini({"START_FLAG=明细", "START_OFFSET=2", "END_FLAG=共", "END_OFFSET=0", "DELIMITER=|"}) + "[" +
            name + "_NEW]\r\n" + keys +
            Ini({"START_FLAG=Rows", "START_OFFSET=3", "END_FLAG=Total", "END_OFFSET=1", "DELIMITER=,"});
        for (const bool isNew : {false, true}) {
            BeginWith(row.format, content);
            EXPECT_TRUE(Read({"结算单", "明细", "-", "0|1|old|3|4|5|6|7|8|9|10|11", "共", "Rows", "-", "-",
                              "0,1,new,3,4,5,6,7,8,9,10,11", "0,1,foot,3,4,5,6,7,8,9,10,11", "Total"},
                             isNew ? "20240105" : "20240104"));
            Texts contracts;
            for (const Texts& some :
                 {TextsOf(report.MatchStore.Rows, "CONTRACT"), TextsOf(report.PingDetailStore.Rows, "CONTRACT"),
                  TextsOf(report.OpiDetailStore.Rows, "CONTRACT"), TextsOf(report.OpiSumStore.Rows, "CONTRACT")}) {
                contracts.insert(contracts.end(), some.begin(), some.end());
            }
            EXPECT_EQ(contracts, (Texts{isNew ? "new" : "old"})) << name << ' ' << row.format;
        }
    }
}

}  // namespace
}  // namespace tradebill::template_scheme_test
