#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "readers/template_fixture.h"

namespace tradebill::template_totals_test {
namespace {

class TemplateTotals : public TemplateFixture {
protected:
    static constexpr std::string_view kMoneyRow = "1000|1|2|3|4|5|6|7|8";

    /// Closed positions with profit or loss in column 2, and open ones of both sides with theirs in column 2 and lots
    /// in 3 and 4; money is one row, with `keys` of DEALFIELD before its own.
    static std::string TotalsTemplate(std::string_view keys) {
        return "[DEALFIELD]\r\n" + std::string(keys) +
               Ini({"MONEY_MODE=1",   "PING_DETAIL=1",   "OPI_DETAIL=1",   "[MONEY_RECORD]", "START_FLAG=资金",
                    "START_OFFSET=1", "END_FLAG=合计",   "DELIMITER=|",    "QMJC_NAME=0",    "CCDSYK_NAME=1",
                    "[PING_DETAIL]",  "START_FLAG=平仓", "START_OFFSET=2", "END_FLAG=共",    "END_OFFSET=0",
                    "DELIMITER=|",    "BID=1",           "OFFSETPL=2",     "[OPI_DETAIL]",   "START_FLAG=持仓",
                    "START_OFFSET=2", "END_FLAG=共",     "END_OFFSET=0",   "DELIMITER=|",    "DSYK=2",
                    "BID_VOL=3",      "ASK_VOL=4"});
    }

    static std::string ClosedRow(std::string_view amount) {
        return "0|买|" + std::string(amount) + "|3|4|5|6|7|8|9|10";
    }
    static std::string OpenRow(std::string_view amount, std::string_view bought = "0", std::string_view sold = "0") {
        return "0|1|" + std::string(amount) + "|" + std::string(bought) + "|" + std::string(sold) + "|5|6|7|8|9|10";
    }

    /// Reads money and a table of these rows by TotalsTemplate; a title without rows has the heading "-" twice.
    void ReadTable(std::int32_t format, std::string_view title, const std::vector<std::string>& rows,
                   std::string_view keys = "") {
        BeginWith(format, TotalsTemplate(keys));
        std::string text = "结算单\r\n资金\r\n" + std::string(kMoneyRow) + "\r\n" + std::string(title) + "\r\n-\r\n";
        if (rows.empty()) text += "-\r\n";
        for (const std::string& row : rows) text += row + "\r\n";
        EXPECT_TRUE(ReadByTemplate("20240105", Gbk(text + "共 2 条\r\n")));
    }

    std::string ClosedPLOf(const std::vector<std::string>& rows) {
        ReadTable(1, "平仓", rows);
        return Money()["PCYK"];
    }
    std::string PositionPLOf(const std::vector<std::string>& rows) {
        ReadTable(2, "持仓", rows);
        return Money()["CCDSYK"];
    }
};

TEST_F(TemplateTotals, SumTheDaysClosedPositions) {
    EXPECT_EQ(ClosedPLOf({ClosedRow("100.5"), ClosedRow("-20.25"), ClosedRow("none")}), "80.250000");
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 80.25);
    EXPECT_EQ(report.MoneyStore.MaxDayPL, 80.25);
    ASSERT_NE(report.TradeStatistics.DayFigures.Find("20240105"), nullptr);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Find("20240105")->ClosedPL, 80.25);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Find("20240105")->PositionPL, 0);
    EXPECT_FALSE(Money().contains("CCDSYK"));
}

TEST_F(TemplateTotals, SumTheDaysOpenPositions) {
    EXPECT_EQ(PositionPLOf({OpenRow("100.5", "1"), OpenRow("-20.25", "0", "3"), OpenRow("7", "0", "0")}), "87.250000");
    EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "BID"), (Texts{"买", "卖"}));
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 87.25);
    ASSERT_NE(report.TradeStatistics.DayFigures.Find("20240105"), nullptr);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Find("20240105")->PositionPL, 87.25);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Find("20240105")->ClosedPL, 0);
    EXPECT_FALSE(Money().contains("PCYK"));
}

TEST_F(TemplateTotals, JoinARowThatHoldsBothSidesOnce) {
    EXPECT_EQ(PositionPLOf({OpenRow("5", "2", "3")}), "5.000000");
    EXPECT_EQ(report.OpiSumStore.Count(), 2);
}

TEST_F(TemplateTotals, JoinARowWithSoldLotsAlone) {
    EXPECT_EQ(PositionPLOf({OpenRow("5", "0", "3")}), "5.000000");
    EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "POSITION_VOL"), (Texts{"3"}));
}

TEST_F(TemplateTotals, AreZeroForATableWithoutRows) {
    EXPECT_EQ(ClosedPLOf({}), "0.000000");
    EXPECT_EQ(PositionPLOf({}), "0.000000");
    std::string content = TotalsTemplate("");
    for (std::size_t at = 0; (at = content.find("END_OFFSET=0", at)) != std::string::npos; ++at) content[at + 11] = '9';
    BeginWith(2, content);
    EXPECT_TRUE(
        Read({"结算单", "资金", kMoneyRow, "平仓", "-", ClosedRow("5"), "共", "持仓", "-", OpenRow("5"), "共"}));
    EXPECT_EQ(Money()["PCYK"], "0.000000");
    EXPECT_EQ(Money()["CCDSYK"], "0.000000");
}

TEST_F(TemplateTotals, PassOverRowsThatAreTooShort) {
    EXPECT_EQ(ClosedPLOf({"0|买|5|3|4|5|6|7|8|9", ClosedRow("7")}), "7.000000");
    EXPECT_EQ(PositionPLOf({"0|1|5|0|0|5|6|7|8|9", OpenRow("7")}), "7.000000");
}

TEST_F(TemplateTotals, JoinAmountsAsCutToFifteenBytes) {
    EXPECT_EQ(ClosedPLOf({ClosedRow("000000000000001")}), "1.000000");
    EXPECT_EQ(ClosedPLOf({ClosedRow("0000000000000012")}), "1.000000");
    EXPECT_EQ(PositionPLOf({OpenRow("000000000000001")}), "1.000000");
    EXPECT_EQ(PositionPLOf({OpenRow("0000000000000012")}), "1.000000");
    EXPECT_EQ(PositionPLOf({OpenRow("0000000000000012", "1")}), "1.000000");
}

TEST_F(TemplateTotals, AreCutToTheirField) {
    EXPECT_EQ(ClosedPLOf({ClosedRow("12345678901"), ClosedRow("12345678901")}), "24691357802.000");
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 24691357802.0);
    EXPECT_EQ(PositionPLOf({OpenRow("12345678901"), OpenRow("12345678901")}), "24691357802.000");
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 24691357802.0);
}

TEST_F(TemplateTotals, StandHugeAmounts) {
    EXPECT_EQ(ClosedPLOf({ClosedRow("1e308"), ClosedRow("1")}), "100000000000000");
    EXPECT_EQ(PositionPLOf({OpenRow("-1e308"), OpenRow("1")}), "-10000000000000");
}

TEST_F(TemplateTotals, AreZeroWhereTheAmountHasNoColumn) {
    for (const std::string_view column : {"", "=-1", "=11", "=2147483647"}) {
        for (const std::string_view key : {"OFFSETPL=2", "DSYK=2"}) {
            std::string content = TotalsTemplate("");
            content.replace(content.find(key) + key.size() - 2, 2, column);
            BeginWith(2, content);
            EXPECT_TRUE(Read(
                {"结算单", "资金", kMoneyRow, "平仓", "-", ClosedRow("5"), "共", "持仓", "-", OpenRow("6"), "共"}));
            EXPECT_EQ(Money()["PCYK"], key == "OFFSETPL=2" ? "0.000000" : "5.000000") << key << column;
            EXPECT_EQ(Money()["CCDSYK"], key == "DSYK=2" ? "0.000000" : "6.000000") << key << column;
        }
    }
}

TEST_F(TemplateTotals, AreReportedWithoutAMoneyRecordToo) {
    BeginWith(1, TotalsTemplate(""));
    EXPECT_TRUE(Read({"结算单", "平仓", "-", ClosedRow("5"), "共"}));
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 0);
    ASSERT_NE(report.TradeStatistics.DayFigures.Find("20240105"), nullptr);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Find("20240105")->ClosedPL, 5);
    BeginWith(2, TotalsTemplate(""));
    EXPECT_TRUE(Read({"结算单", "持仓", "-", OpenRow("5"), "共"}));
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 0);
    ASSERT_NE(report.TradeStatistics.DayFigures.Find("20240105"), nullptr);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Find("20240105")->PositionPL, 5);
}

TEST_F(TemplateTotals, AreNotReportedForATableThatIsMissing) {
    BeginWith(2, TotalsTemplate(""));
    EXPECT_TRUE(Read({"结算单", "资金", kMoneyRow, "平仓", "-", ClosedRow("5"), "持仓", "-", OpenRow("5")}));
    EXPECT_FALSE(Money().contains("PCYK"));
    EXPECT_FALSE(Money().contains("CCDSYK"));
    EXPECT_EQ(report.PingDetailStore.Count(), 0);
}

TEST_F(TemplateTotals, AreNotFormedByFormatsThatHoldOpenPositionsApart) {
    for (const std::int32_t format : {0, 1, 3}) {
        ReadTable(format, "持仓", {OpenRow("5", "1", "1")});
        EXPECT_EQ(report.OpiDetailStore.Count(), 1) << format;
        EXPECT_FALSE(Money().contains("CCDSYK")) << format;
        EXPECT_EQ(report.TradeStatistics.DayFigures.Find("20240105")->PositionPL, 0) << format;
        EXPECT_EQ(report.MoneyStore.TotalPositionPL, 0) << format;
    }
}

TEST_F(TemplateTotals, LeaveLabelledMoneyAlone) {
    const std::string content =
        "[DEALFIELD]\r\nPING_DETAIL=1\r\nOPI_DETAIL=1\r\n[MONEY_RECORD]\r\nSTART_FLAG=资金\r\n"
        "END_FLAG=合计\r\nDELIMITER=|\r\nPCYK_NAME=平\r\nCCDSYK_NAME=持\r\n";
    const std::string all = TotalsTemplate("");
    BeginWith(2, content + all.substr(all.find("[PING_DETAIL]")));
    EXPECT_TRUE(Read({"结算单", "资金", "-", "平|1|持|2", "合计", "平仓", "-", ClosedRow("5"), "共", "持仓", "-",
                      OpenRow("6", "1"), "共"}));
    EXPECT_EQ(report.PingDetailStore.Count(), 1);
    EXPECT_EQ(report.OpiSumStore.Count(), 1);
    EXPECT_EQ(Money()["PCYK"], "1");
    EXPECT_EQ(Money()["CCDSYK"], "2");
    EXPECT_EQ(report.TradeStatistics.DayFigures.Find("20240105")->ClosedPL, 1);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Find("20240105")->PositionPL, 2);
}

TEST_F(TemplateTotals, AreNotReportedWithoutMoney) {
    for (const std::string_view mode : {"MONEY_MODE=2\r\n", "MONEY_MODE=-1\r\n"}) {
        ReadTable(2, "平仓", {ClosedRow("5")}, mode);
        EXPECT_EQ(report.PingDetailStore.Count(), 1);
        EXPECT_TRUE(report.TradeStatistics.DayFigures.Days.empty()) << mode;
    }
}

TEST_F(TemplateTotals, FollowTheMoneyModeOfTheScheme) {
    std::string content = TotalsTemplate("BILLFORMAT_NEWDATE=20240101\r\nMONEY_MODE_NEW=2\r\n");
    content.replace(content.find("[PING_DETAIL]"), 13, "[PING_DETAIL_NEW]");
    content.replace(content.find("[MONEY_RECORD]"), 14, "[MONEY_RECORD_NEW]");
    content.replace(content.find("OPI_DETAIL=1"), 12, "OPI_DETAIL=0");
    BeginWith(1, content);
    EXPECT_TRUE(Read({"结算单", "平仓", "-", ClosedRow("5"), "共"}));
    EXPECT_EQ(report.PingDetailStore.Count(), 1);
    EXPECT_TRUE(report.TradeStatistics.DayFigures.Days.empty());
    content.replace(content.find("MONEY_MODE_NEW=2"), 16, "MONEY_MODE_NEW=1");
    BeginWith(1, content);
    EXPECT_TRUE(Read({"结算单", "平仓", "-", ClosedRow("5"), "共"}));
    EXPECT_EQ(report.TradeStatistics.DayFigures.Days.size(), 1U);
}

TEST_F(TemplateTotals, StartAnewWithEachStatement) {
    BeginWith(1, TotalsTemplate(""));
    for (const std::string_view day : {"20240105", "20240108"}) {
        EXPECT_TRUE(Read({"结算单", "资金", kMoneyRow, "平仓", "-", ClosedRow("5"), "共"}, day));
    }
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "PCYK"), (Texts{"5.000000", "5.000000"}));
}

TEST_F(TemplateTotals, AreNotReportedBehindAnError) {
    BeginWith(1, TotalsTemplate(""));
    EXPECT_EQ(ErrorOf({"结算单", "资金", kMoneyRow, "平仓", "-", ClosedRow("5"), "共"}), 0U);
    EXPECT_EQ(Money()["PCYK"], "5.000000");
    std::string content = TotalsTemplate("");
    content.replace(content.find("BID=1"), 5, "BID=11");
    BeginWith(1, content);
    EXPECT_EQ(ErrorOf({"结算单", "资金", kMoneyRow, "平仓", "-", ClosedRow("5") + "|11", ClosedRow("6"), "共"}),
              kErrorInvalidArgument);
    EXPECT_EQ(report.PingDetailStore.Count(), 1);
    EXPECT_FALSE(Money().contains("PCYK"));
}

}  // namespace
}  // namespace tradebill::template_totals_test
