// What readers tell a listener beyond sections, rows and records: columns, values behind labels, rules, and where an
// error stopped them.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/report_error.h"
#include "readers/scan_recorder.h"
#include "readers/section_scan.h"
#include "readers/template_fixture.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "support/gbk_text.h"

namespace tradebill::scan_details_test {
namespace {

using Events = std::vector<std::string>;

class ScanDetails : public TemplateFixture {
protected:
    CScanLog DetailsOf(std::int32_t format, Lines lines) {
        report.Request.StatementFormat = format;
        CScanRecorder recorder;
        ReadStatement("20240105", Statement(lines), &recorder);
        return recorder.Details();
    }
    CScanLog DetailsBy(std::int32_t format, std::string_view content, Lines lines) {
        BeginWith(format, content);
        CScanRecorder recorder;
        ReadStatement("20240105", Statement(lines), &recorder);
        return recorder.Details();
    }
    /// What is told before the error with which the reading ends.
    CScanLog DetailsBeforeErrorBy(std::string_view content, Lines lines) {
        BeginWith(1, content);
        CScanRecorder recorder;
        EXPECT_THROW(ReadStatement("20240105", Statement(lines), &recorder), CReportError);
        return recorder.Details();
    }
};

TEST_F(ScanDetails, HoldTheColumnsOfATable) {
    EXPECT_EQ(DetailsOf(1, {"成交记录", "-", "-", "共"}).Events("column"),
              (Events{"0/MATCH_DATE/text", "1/EXCH_NAME/text", "2/CONTRACT/text", "3/DELIVERY/text", "4/BID/text",
                      "5/OFFSET/text", "6/MATCH_PRICE/amount", "7/MATCH_VOL/amount", "8/TURNOVER/amount",
                      "9/POUNDAGE/amount", "10/OFFSETPL/amount", "11/HEDGE/text"}));
}

TEST_F(ScanDetails, HoldNothingOfASectionThatIsNotFound) {
    EXPECT_EQ(DetailsOf(1, {"成交记录", "-", "-"}).Events(), Events{});
}

TEST_F(ScanDetails, HoldTheColumnsOfBothSides) {
    const Events columns = DetailsOf(1, {"持仓汇总", "-", "-", "共"}).Events("column");
    EXPECT_EQ(columns, (Events{"0/EXCH_NAME/text", "1/CONTRACT/text", "2/DELIVERY/text", "7/YSETTLE_PRICE/amount",
                               "8/SETTLE_PRICE/amount", "10/DSYK/amount", "11/DEPOSIT/amount", "12/HEDGE/text",
                               "3/BID_POSITION_VOL/amount", "4/POSITION_PRICE/amount", "5/ASK_POSITION_VOL/amount",
                               "6/POSITION_PRICE/amount"}));
    for (const std::int32_t format : {2, 201}) {
        const Events bill = DetailsOf(format, {"客户帐单_持仓盈亏单", "-", "-", "合计"}).Events("column");
        EXPECT_EQ(bill.size(), 10U) << format;
        EXPECT_EQ(bill.at(6), "2/POSITION_VOL/amount") << format;
    }
    EXPECT_EQ(DetailsOf(201, {"权利金", "客户帐单_持仓盈亏单", "-", "-", "合计"}).Events("column").at(4),
              "11/DEPOSIT/amount/may lack");
}

TEST_F(ScanDetails, HoldTheColumnsOfMoneyInOneRow) {
    EXPECT_EQ(DetailsOf(2, {"客户帐单_资金清单", "-", "-", "-", "1 2 3 4 5 6 7 8 9", "---------"}).Events("column"),
              (Events{"1/CRJ/amount", "2/CRJ/amount", "0/QCQY/amount", "3/SXF/amount", "5/QMJC/amount", "5/KHQY/amount",
                      "6/KYZJ/amount", "8/BZJZY/amount"}));
    EXPECT_EQ(DetailsOf(201, {"权利金", "客户帐单_资金清单", "-", "-", "-", "-"}).Events("column").back(),
              "9/BZJZY/amount/may lack");
    const Events spaced = DetailsOf(6, {"资 金 清 单", "-", "-", "1 2 3 4 5", "-", "-", "6 7 8"}).Events("column");
    EXPECT_EQ(spaced, (Events{"0/QCQY/amount", "2/CCDSYK/amount", "3/PCYK/amount", "4/SXF/amount", "0/QMJC/amount",
                              "1/BZJZY/amount", "2/KYZJ/amount"}));
}

TEST_F(ScanDetails, HoldTheColumnsOfForeignTables) {
    report.Request.StatementKind = kForeignKind;
    const Events columns =
        DetailsOf(0, {"成交记录", "-", "-", "平仓明细", "-", "-", "-", "持仓明细", "-", "-", "资金汇总"})
            .Events("column");
    EXPECT_EQ(columns,
              (Events{"4/MATCH_VOL/amount", "0/MATCH_DATE/text", "1/CONTRACT/text", "5/MATCH_PRICE/amount",
                      "6/POUNDAGE/amount", "7/CURRENCY/text/may lack", "4/MATCH_VOL/amount", "0/MATCH_DATE/text",
                      "1/CONTRACT/text", "5/MATCH_PRICE/amount", "6/OFFSETPL/amount", "7/CURRENCY/text/may lack",
                      "0/OPEN_DATE/text", "1/CONTRACT/text", "4/POSITION_VOL/amount", "5/OPEN_PRICE/amount",
                      "6/SETTLE_PRICE/amount", "7/FLOATPL/amount/may lack", "8/CURRENCY/text/may lack"}));
}

TEST_F(ScanDetails, HoldTheColumnsOfATemplate) {
    const Lines statement{"单", "明细", "-", "共"};
    EXPECT_EQ(DetailsBy(1, TableTemplate("MATCH_RECORD", "MATCHNO=13\r\nTURNOVER=2\r\n"), statement).Events("column"),
              (Events{"2/TURNOVER/amount", "13/MATCHNO/text"}));
    EXPECT_EQ(DetailsBy(1, TableTemplate("PING_DETAIL", "BID=3\r\n"), {"单", "明细", "-", "-", "共"}).Events("column"),
              (Events{"3/BID/text"}));
    EXPECT_EQ(DetailsBy(1, TableTemplate("OPI_DETAIL", "DSYK=4\r\n"), statement).Events("column"),
              (Events{"4/DSYK/amount"}));
    // A side without a lots column plays no part.
    const std::string sides = TableTemplate("OPI_DETAIL", "DSYK=4\r\nBID_VOL=1\r\nBID_PRICE=2\r\nASK_PRICE=3\r\n");
    EXPECT_EQ(DetailsBy(2, sides, statement).Events("column"),
              (Events{"4/DSYK/amount", "1/POSITION_VOL/amount", "2/POSITION_PRICE/amount"}));
    EXPECT_EQ(DetailsBy(1, TableTemplate("OPI_SUM", "ASK_POSITION_VOL=7\r\n"), statement).Events("column"),
              (Events{"7/ASK_POSITION_VOL/amount"}));
    const std::string money =
        "[DEALFIELD]\r\nMONEY_MODE=1\r\n[MONEY_RECORD]\r\nSTART_FLAG=资金\r\nSTART_OFFSET=1\r\nDELIMITER=|\r\n"
        "KHQY_NAME=3\r\nRJ_NAME=4\r\nCJ_NAME=5\r\n";
    EXPECT_EQ(DetailsBy(1, money, {"单", "资金", Cells(9)}).Events("column"),
              (Events{"4/CRJ/amount", "5/CRJ/amount", "3/KHQY/amount"}));
}

TEST_F(ScanDetails, HoldWhatStandsBehindLabels) {
    EXPECT_EQ(DetailsOf(0, {"资金类别", "-", "客户权益: 1,000.00 权利金收入: 7", "---------"}).Events("value"),
              (Events{"KHQY/1,000.00/1,000.00", "QLJSZ/7/7"}));
    report.Request.StatementKind = kForeignKind;
    EXPECT_EQ(DetailsOf(0, {"资金汇总", "Base HKD* USD", "当前权益 1,000.00 20.00 7", "追加保证金"}).Events("value"),
              (Events{"KHQY/1,000.00/1000.00", "KHQY/20.00/20.00", "QMJC/1,000.00/1000.00", "QMJC/20.00/20.00"}));
}

TEST_F(ScanDetails, NameTheRowOfAnError) {
    EXPECT_EQ(DetailsBeforeErrorBy(TableTemplate("PING_DETAIL", "MATCH_DATE=0\r\n"),
                                   {"单", "明细", "-", Cells(10), Cells(11), "共"})
                  .Events("stop"),
              (Events{Cells(11)}));
    const std::string above =
        "[DEALFIELD]\r\nMONEY_MODE=2\r\nMATCH_RECORD=1\r\n[MATCH_RECORD]\r\nSTART_FLAG=明细\r\nSTART_OFFSET=-1\r\n"
        "END_FLAG=共\r\nEND_OFFSET=0\r\nDELIMITER=|\r\n";
    const CScanLog told = DetailsBeforeErrorBy(above, {"明细", "-", "-", "共"});
    EXPECT_EQ(told.Events("stop"), (Events{""}));  // the row above the first
}

TEST(Rule, IsMadeOfDashesAndBarsAlone) {
    for (const std::string_view row : {"-", "----------", "=====", "|---|---|", "+--+--+", "- - -", "__________"}) {
        EXPECT_TRUE(IsRule(row)) << row;
    }
    for (const std::string_view row : {"————", "━━━━", "├──┤", "－－＝", "|──|-", "…　…"}) {
        EXPECT_TRUE(IsRule(Gbk(row))) << row;
    }
    for (const std::string_view row : {"", "--- 1 ---", "a", "-5.00", "----x", "——合计——", "①①"}) {
        EXPECT_FALSE(IsRule(Gbk(row))) << row;
    }
    for (const std::string_view row : {"\xA9", "-\xA1", "\xA9\x61", "\xFF"}) EXPECT_FALSE(IsRule(row));
}

TEST(Rule, IsNoShortRow) {
    EXPECT_EQ(ShortRow("-----", 12).fate, RowFate::Rule);
    EXPECT_EQ(ShortRow("- 1", 12).fate, RowFate::TooShort);
    EXPECT_EQ(ShortRow("- 1", 12).needed, 12U);
}

TEST_F(ScanDetails, TellARuleAmongForeignRowsFromAHeading) {
    report.Request.StatementKind = kForeignKind;
    CScanRecorder recorder;
    ReadStatement("20240105", Statement({"成交记录", "-", "-", "-", "CBOT", "-----", "- -", "-", "平仓明细"}),
                  &recorder);
    EXPECT_EQ(recorder.Events("row"), (Events{"CBOT/heading/1", "-----/rule/1", "- -/rule/2"}));
}

}  // namespace
}  // namespace tradebill::scan_details_test
