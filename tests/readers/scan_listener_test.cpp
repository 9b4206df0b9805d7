// What each kind of reader tells a listener, in its order.
#include "readers/scan_listener.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/report_error.h"
#include "base/text.h"
#include "readers/scan_recorder.h"
#include "readers/template_fixture.h"
#include "report/money_store.h"
#include "report/report.h"
#include "report/request_copy.h"

namespace tradebill::scan_listener_test {
namespace {

using Events = std::vector<std::string>;

class ScanListener : public TemplateFixture {
protected:
    /// Reads a statement of 5 January 2024 without a template.
    CScanLog Listen(std::int32_t format, Lines lines) {
        report.Request.StatementFormat = format;
        CScanRecorder recorder;
        ReadStatement("20240105", Statement(lines), &recorder);
        return recorder.Log();
    }
    CScanLog ListenBy(std::string_view content, Lines lines) {
        BeginWith(1, content);
        CScanRecorder recorder;
        ReadStatement("20240105", Statement(lines), &recorder);
        return recorder.Log();
    }
};

TEST_F(ScanListener, HearsADayFromTemplateToLastSection) {
    const CScanLog heard =
        Listen(1, {"结算单", "日  期:20240104", "资金状况", "---------", "客户权益: 5.00", "---------", "成交记录", "-",
                   "-", "1 2 3 4 5 6 7 8 9 10 11 12", "1 2", "共 1条"});
    Events events = heard.Events();
    EXPECT_EQ(std::erase_if(events, [](const std::string& event) { return event.starts_with("wanted "); }), 9U);
    EXPECT_EQ(events,
              (Events{"template no file/old", "reader fund-status", "date 日  期:/20240104",
                      "section money/资金状况/---------//资金状况/---------", "met 客户权益",
                      "row 客户权益: 5.00/read/2", "money 20240104/5.00", "section trades/成交记录/共//成交记录/共 1条",
                      "record", "row 1 2 3 4 5 6 7 8 9 10 11 12/read/12", "row 1 2/too short/2/12",
                      "section closed/平仓明细/共", "section open/持仓明细/共", "section summary/持仓汇总/共"}));
}

TEST_F(ScanListener, HearsWhichLabelsAreLookedFor) {
    EXPECT_EQ(Listen(1, {"资金状况", "-", "---------"}).Events("wanted"),
              (Events{"客户权益", "保证金占用", "手续费:", "可用资金", "出入金", "上日结存", "当日结存", "平仓盈亏",
                      "持仓盯市盈亏"}));
    EXPECT_EQ(Listen(0, {"资金类别", "-", "---------"}).Events("wanted"),
              (Events{"客户权益", "保证金占用", "手续费", "可用资金", "出入金", "上日结存", "当日结存", "盯市平仓盈亏",
                      "持仓盯市盈亏", "权利金收入", "权利金支出"}));
    EXPECT_EQ(Listen(1, {"资金类别"}).Events("wanted"), Events{});
}

TEST_F(ScanListener, HearsOfLabelsBehindWhichAValueStands) {
    EXPECT_EQ(Listen(0, {"资金类别", "-", "权利金收入: 7 权利金支出:", "客户权益:", "权利金支出: 2", "---------"})
                  .Events("met"),
              (Events{"权利金收入", "权利金支出"}));
}

TEST_F(ScanListener, HearsOfMoneyBeforeTheStoresHaveIt) {
    class CWatch final : public CScanListener {
    public:
        explicit CWatch(const CReport& report) : report_(report) {}

        void OnTemplate(const TemplateSeen&) override {}
        void OnReader(std::string_view) override {}
        void OnDate(std::string_view, std::string_view) override {}
        void OnSection(const SectionSeen&) override {}
        void OnRow(std::string_view, Row, const RowVerdict&) override {}
        void OnLabelWanted(std::string_view) override {}
        void OnLabelMet(std::string_view) override {}
        void OnMoney(const MoneyRecord& record, std::string_view) override {
            equity = FieldText(record.KHQY);
            stored = report_.MoneyStore.Count();
        }
        void OnRecord(const RecordSeen&) override {}

        std::string equity;
        int stored = -1;

    private:
        const CReport& report_;
    };
    CWatch watch(report);
    report.Request.StatementFormat = 2;  // the store works out the equity of this format anew
    ReadStatement("20240105",
                  Statement({"客户帐单_资金清单", "-", "-", "-", "1 0 0 2 3 100.00 60.00 9% 50.00", "---------"}),
                  &watch);
    EXPECT_EQ(watch.equity, "100.00");
    EXPECT_EQ(watch.stored, 0);
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "KHQY"), (std::vector<std::string>{"110.00"}));
}

TEST_F(ScanListener, HearsOfRowsThatHoldBothSides) {
    const CScanLog heard = Listen(2, {"客户帐单_持仓盈亏单", "-", "-", "-", "a b 1 c 2 d e f g h i",
                                      "a b 0 c 2 d e f g h i", "a b 0 c 0 d e f g h i", "a b 1 c 2", "合计"});
    EXPECT_EQ(heard.Events("record").size(), 3U);
    EXPECT_EQ(heard.Events("row"), (Events{"a b 1 c 2 d e f g h i/read/11", "a b 0 c 2 d e f g h i/read/11",
                                           "a b 0 c 0 d e f g h i/no lots/11", "a b 1 c 2/too short/5/11"}));
    EXPECT_EQ(report.OpiSumStore.Count(), 3);
}

TEST_F(ScanListener, HearsOfForeignTables) {
    report.Request.StatementKind = kForeignKind;
    const CScanLog heard = Listen(0, {"成交记录",
                                      "-",
                                      "-",
                                      "-",
                                      "CBOT",
                                      "20240105 S2403 限价 1 4   1283.50 16.00 USD",
                                      "a b",
                                      "小计 4",
                                      "-----",
                                      "平仓明细",
                                      "-",
                                      "-",
                                      "-",
                                      "20240104 S2403 开仓 1 4   1283.50 0.00 USD",
                                      "20240105 S2403 平仓 2 4   1290.00 9.00 USD",
                                      "x y",
                                      "20240105 S2403 开仓 3 4   1290.00 0.00 USD",
                                      "共 2 笔",
                                      "-----",
                                      "持仓明细",
                                      "-",
                                      "-",
                                      "-",
                                      "-----",
                                      "资金汇总"});
    EXPECT_EQ(heard.Events("reader"), (Events{"foreign"}));
    EXPECT_EQ(heard.Events("template"), Events{});  // plays no part
    EXPECT_EQ(heard.Events("date"), Events{});
    EXPECT_EQ(heard.Events("section"),
              (Events{"money/资金汇总/追加保证金//资金汇总", "trades/成交记录/平仓明细/持仓明细/成交记录/平仓明细",
                      "closed/平仓明细/持仓明细/资金汇总/平仓明细/持仓明细",
                      "open/持仓明细/资金汇总/平仓明细/持仓明细/资金汇总"}));
    EXPECT_EQ(heard.Events("row"),
              (Events{"CBOT/heading/1", "20240105 S2403 限价 1 4   1283.50 16.00 USD/read/8", "a b/too short/2/7",
                      "小计 4/subtotal", "20240104 S2403 开仓 1 4   1283.50 0.00 USD/first of two/8",
                      "20240105 S2403 平仓 2 4   1290.00 9.00 USD/read/8", "x y/too short/2/7",
                      "20240105 S2403 开仓 3 4   1290.00 0.00 USD/first of two/8", "共 2 笔/subtotal"}));
    EXPECT_EQ(heard.Events("record").size(), 2U);
}

TEST_F(ScanListener, HearsOfEachCurrencysMoney) {
    report.Request.StatementKind = kForeignKind;
    const CScanLog heard = Listen(0, {"资金汇总", "Base HKD* USD", "当前权益 1,000.00 20.00", "合约", "追加保证金",
                                      "借贷成本", "币种 Currency        JPY", "当前权益 3.00", "追加保证金"});
    EXPECT_EQ(heard.Events("money"), (Events{"20240105/1000.00/HKD*", "20240105/20.00/USD", "20240105/3.00/JPY"}));
    EXPECT_EQ(heard.Events("wanted").size(), 16U);  // eight of each block
    EXPECT_EQ(heard.Events("row"), (Events{"当前权益 1,000.00 20.00/read/1", "合约/read/1", "当前权益 3.00/read/1"}));
    const Events sections = heard.Events("section");
    ASSERT_EQ(sections.size(), 6U);  // a third block is looked for behind the second
    EXPECT_EQ(sections[2], "money/借贷成本/追加保证金");
}

TEST_F(ScanListener, HearsHowTheReaderOfChangedLabelsTakesOver) {
    EXPECT_EQ(Listen(3, {"权利金"}).Events("reader"), (Events{"bilingual"}));
    const CScanLog heard = ListenBy("[DEALFIELD]\r\nBILLFORMAT_NEWDATE=20240105\r\n", {"权利金"});
    EXPECT_EQ(heard.Events("reader"), (Events{"fund-status-premium"}));
    report.Request.StatementFormat = 3;
    CScanRecorder again;
    ReadStatement("20240105", Statement({"权利金"}), &again);
    EXPECT_EQ(again.Events("reader"), (Events{"bilingual", "bilingual-new"}));
}

TEST_F(ScanListener, HearsNoSectionsOfAKnownDay) {
    const Lines statement{"表", "制表时间：20240104", "资金状况", "-", "客户权益： 1", "-", "---------"};
    EXPECT_EQ(Listen(3, statement).Events("section").size(), 5U);
    const CScanLog again = Listen(3, statement);
    EXPECT_EQ(again.Events(), (Events{"template no file/old", "reader tabulated", "date 制表时间：/20240104"}));
}

constexpr std::string_view kLabelledTemplate =
    "[DEALFIELD]\r\nMATCH_RECORD=1\r\n[MONEY_RECORD]\r\nSTART_FLAG=资金\r\nEND_FLAG=完\r\nDELIMITER=|\r\n"
    "KHQY_NAME=权益\r\nSXF_NAME=费\r\n[MATCH_RECORD]\r\nSTART_FLAG=明细\r\nSTART_OFFSET=1\r\nEND_OFFSET=0\r\n"
    "DELIMITER=|\r\n";

TEST_F(ScanListener, HearsHowATemplateReads) {
    const CScanLog heard =
        ListenBy(std::string(kLabelledTemplate) + "END_FLAG=共\r\n",
                 {"单 日期：20240104", "资金", "-", "权益|5.00", "完", "明细", Cells(11), Cells(10), "共"});
    EXPECT_EQ(heard.Events(),
              (Events{"date 日期：/20240104", "section money/资金/完//资金/完", "wanted 权益", "wanted 费", "met 权益",
                      "row 权益|5.00/read/2", "money 20240105/5.00", "section trades/明细/共//明细/共", "record",
                      "row " + Cells(11) + "/read/11", "row " + Cells(10) + "/too short/10/11", "template read/old"}));
}

TEST_F(ScanListener, HearsWhyATemplateDeclines) {
    const CScanLog heard = ListenBy(kLabelledTemplate, {"单", "资金", "-", "权益|5.00", "完", "明细", "共"});
    EXPECT_EQ(heard.Events("template"), (Events{"incomplete/old/MATCH_RECORD/END_FLAG"}));
    EXPECT_EQ(heard.Events("reader"), (Events{"fund-status"}));
    EXPECT_EQ(heard.Events("money"), (Events{"20240105/5.00"}));
}

TEST_F(ScanListener, HearsThatATemplateKnowsTheDay) {
    const Lines statement{"单 日期：20240105", "资金", "-", "权益|5.00", "完"};
    const std::string content = std::string(kLabelledTemplate) + "END_FLAG=共\r\n";
    BeginWith(1, content);
    ReadStatement("20240105", Statement(statement));
    CScanRecorder heard;
    ReadStatement("20240105", Statement(statement), &heard);
    EXPECT_EQ(heard.Events(), (Events{"date 日期：/20240105", "template known day/old"}));
}

TEST_F(ScanListener, HearsOfTheNewDescription) {
    const CScanLog heard = ListenBy(
        "[DEALFIELD]\r\nBILLFORMAT_NEWDATE=20240105\r\nMONEY_MODE=1\r\n[MONEY_RECORD_NEW]\r\nSTART_FLAG=资金\r\n"
        "START_OFFSET=1\r\nDELIMITER=|\r\nKHQY_NAME=3\r\n",
        {"单", "资金", Cells(9)});
    EXPECT_EQ(heard.Events(), (Events{"date 日期 Date：", "section money/资金///资金", "row " + Cells(9) + "/read/9",
                                      "money 20240105/v3", "template read/new"}));
}

TEST_F(ScanListener, HearsWhichRowsOfASummaryHaveLots) {
    const CScanLog heard =
        ListenBy(TableTemplate("OPI_SUM", "BID_POSITION_VOL=1\r\nASK_POSITION_VOL=2\r\n"),
                 {"单", "明细", "-", "c|1|0|3|4|5|6|7|8|9|10|11", "c|0|0|3|4|5|6|7|8|9|10|11", "共"});
    EXPECT_EQ(heard.Events("row"),
              (Events{"c|1|0|3|4|5|6|7|8|9|10|11/read/12", "c|0|0|3|4|5|6|7|8|9|10|11/no lots/12"}));
}

TEST_F(ScanListener, HearsWhichLabelsOfAForeignAccountAreMet) {
    report.Request.StatementKind = kForeignKind;
    const CScanLog heard = Listen(1, {"资金汇总 Summary", "货币 Base USD", "手续费 Commission 1.0",
                                      "当前权益 Client Equity 6.1", "追加保证金 Margin Call 0"});
    // The equity is also the closing balance, where no other row states one.
    EXPECT_EQ(heard.Events("met"), (Events{"手续费", "当前权益", "当前权益"}));
}

TEST_F(ScanListener, HearsOfWhatWasReadBeforeAnError) {
    BeginWith(1, TableTemplate("PING_DETAIL", "MATCH_DATE=0\r\n"));
    CScanRecorder heard;
    EXPECT_THROW(ReadStatement("20240105", Statement({"单", "明细", "-", Cells(10), Cells(11), "共"}), &heard),
                 CReportError);
    EXPECT_EQ(heard.Events(),
              (Events{"date 日期：", "section closed/明细/共//明细/共", "row " + Cells(10) + "/too short/10/11"}));
}

}  // namespace
}  // namespace tradebill::scan_listener_test
