// What `explain` says of a statement, section by section.
#include "cli/explain_command.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cli/explain_fixture.h"
#include "readers/statement_loader.h"
#include "report/report.h"
#include "requests/scan_report.h"
#include "requests/usage_error.h"
#include "support/report_json.h"

namespace tradebill::explain_command_test {
namespace {

class ExplainCommandRun : public ExplainFixture {};

/// `text` with the first `from` in it replaced.
std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::string gbk = Gbk(from);
    const std::size_t at = text.find(gbk);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, gbk.size(), Gbk(to));
}

TEST_F(ExplainCommandRun, TellsLinesRowsAndRecordsOfEachSection) {
    const Explained explained = Explain(SmallStatement(), "1");
    EXPECT_EQ(explained.exit, 0);
    EXPECT_EQ(explained.json.at("lines"), 22);
    EXPECT_EQ(explained.json.at("day"), "20240102");
    EXPECT_EQ(explained.json.at("readers").size(), 1u);
    EXPECT_EQ(explained.json.at("readers")[0].at("layout"), "fund-status");
    EXPECT_EQ(explained.json.at("readers")[0].at("date"), (Json{{"word", "日  期:"}, {"date", "20240102"}}));

    const Json trades = explained.Section("trades");
    EXPECT_EQ(trades.at("found"), true);
    EXPECT_EQ(trades.at("title_line"), 10);
    EXPECT_EQ(trades.at("end_line"), 17);
    EXPECT_EQ(trades.at("rows_read"), 2);
    EXPECT_EQ(trades.at("records"), 2);
    EXPECT_EQ(trades.at("rows_passed_over"),
              Json::array({{{"line", 14}, {"reason", "too_short"}, {"columns", 7}, {"needed", 12}}}));
    EXPECT_EQ(explained.json.at("sections_found"), 3);
    EXPECT_EQ(explained.json.at("looks_like"), Json::array());
}

TEST_F(ExplainCommandRun, TellsLabelsMetAndNotMetAndTheMoneyRecord) {
    const Json money = Explain(SmallStatement(), "1").Section("money");
    EXPECT_EQ(money.at("title_line"), 4);
    EXPECT_EQ(money.at("end_line"), 9);
    EXPECT_EQ(money.at("rows_read"), 2);
    EXPECT_EQ(money.at("labels_met"), (Json{"客户权益", "可用资金", "手续费:"}));
    const Json notMet = money.at("labels_not_met");
    EXPECT_NE(std::find(notMet.begin(), notMet.end(), "保证金占用"), notMet.end());
    EXPECT_EQ(std::find(notMet.begin(), notMet.end(), "客户权益"), notMet.end());
    EXPECT_EQ(money.at("money")[0].at("fields"),
              (Json{{"BILL_DATE", "20240102"}, {"KHQY", "500.00"}, {"KYZJ", "300.00"}, {"SXF", "1.00"}}));
}

TEST_F(ExplainCommandRun, PutsSectionsIntoFileOrderAndThoseNotFoundLast) {
    const Explained explained = Explain(SmallStatement(), "1");
    std::vector<std::string> names;
    for (const Json& section : explained.json.at("readers")[0].at("sections")) names.push_back(section.at("section"));
    EXPECT_EQ(names, (std::vector<std::string>{"money", "trades", "open", "closed", "summary"}));
    EXPECT_EQ(explained.Section("closed").at("found"), false);
    EXPECT_EQ(explained.Section("closed").at("title_line"), nullptr);
}

TEST_F(ExplainCommandRun, SaysItInWordsToo) {
    const std::string text = ExplainAsText(SmallStatement(), "1");
    for (const std::string part :
         {"fund-status because \"权利金\" isn't in the text", "trades            from line 10 to line 17 (共)",
          "2 rows read, 1 passed over, 2 records", "line 14 passed over: 7 columns, 12 needed",
          "labels met: 客户权益, 可用资金, 手续费:", "KHQY=500.00",
          "closed positions  not found: no row contains its title \"平仓明细\"", "3 sections found, 1 money record."}) {
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
    }
}

TEST_F(ExplainCommandRun, TellsATitleWithoutAnEnd) {
    const std::string text = Replaced(SmallStatement(), "持仓明细", "持仓明细 空");
    const std::string cut = text.substr(0, text.rfind(Gbk("共")));
    const Explained explained = Explain(cut, "1");
    const Json open = explained.Section("open");
    EXPECT_EQ(open.at("found"), false);
    EXPECT_EQ(open.at("title_line"), 18);
    EXPECT_EQ(open.at("end_line"), nullptr);
    EXPECT_EQ(open.at("records"), 0);
    EXPECT_NE(ExplainAsText(cut, "1").find("its title stands at line 18, but no row that ends it (共)"),
              std::string::npos);
}

TEST_F(ExplainCommandRun, TellsASectionThatStandsAboveWhereItIsLookedFor) {
    const std::string head = Statement({"结算单", "持仓明细", "---", "交易所", "x", "共 1条"});
    const std::string text = head + SmallStatement().substr(Statement({"结算单"}).size());
    const std::string moved = text.substr(0, text.rfind(Gbk("持仓明细")));  // only the one at the top is left
    const Json open = Explain(moved, "1").Section("open");
    EXPECT_EQ(open.at("found"), false);
    EXPECT_EQ(open.at("unseen_title_line"), 2);
    EXPECT_NE(ExplainAsText(moved, "1").find("its title stands at line 2, above where this reader looks"),
              std::string::npos);
}

TEST_F(ExplainCommandRun, ShowsWhatDamageDoes) {
    const std::string whole = SmallStatement();
    EXPECT_EQ(Explain(Replaced(whole, "资金状况", "资金"), "1").exit, 1);  // sections, but no money record
    EXPECT_EQ(Explain(Replaced(whole, "资金状况", "资金"), "1").Section("money").at("found"), false);
    const Json misspelt = Explain(Replaced(whole, "客户权益", "客户权宜"), "1").Section("money");
    EXPECT_EQ(misspelt.at("labels_met"), (Json{"可用资金", "手续费:"}));
    const Json trades = Explain(Replaced(whole, "成交记录", "成交明细"), "1").Section("trades");
    EXPECT_EQ(trades.at("found"), false);
}

TEST_F(ExplainCommandRun, FollowsTheWordThatMovesADayToTheOtherReader) {
    const Explained explained = Explain(SmallStatement() + Statement({"注: 权利金"}), "1");
    EXPECT_EQ(explained.json.at("readers")[0].at("layout"), "fund-status-premium");
    EXPECT_NE(explained.json.at("readers")[0].at("reason").get<std::string>().find("is in the text"),
              std::string::npos);
}

TEST_F(ExplainCommandRun, RecognisesNothingInRubbish) {
    for (const std::string& text : {std::string(), std::string("\n\n"), std::string("\xFF\xFE\x81 \x01\x02\r\n|||"),
                                    std::string(5000, '|'), Statement({"完全不同的文件"})}) {
        for (const std::string format : {"0", "1", "2", "3", "6", "201"}) {
            const Explained explained = Explain(text, format);
            EXPECT_EQ(explained.exit, 3);
            EXPECT_EQ(explained.json.at("looks_like"), Json::array());
        }
    }
    EXPECT_NE(ExplainAsText("", "1").find("Nothing was recognised.\nNo layout's mark stands in the text.\n"),
              std::string::npos);
}

TEST_F(ExplainCommandRun, LeavesInTheStoresWhatAPlainReadingLeaves) {
    const std::string text = SmallStatement();
    const auto storesAfterReading = [&text](CScanListener* listener) {
        CReport report;
        report.Request.StatementFormat = 1;
        report.Request.StatementKind = 1;
        CStatementLoader(report).Read("20240102", text, listener);
        EXPECT_EQ(report.MatchStore.Count(), 2);
        return ReportJson(report);
    };
    CScanReport seen(text);
    EXPECT_EQ(storesAfterReading(&seen), storesAfterReading(nullptr));
}

TEST_F(ExplainCommandRun, TakesTheDayFromTheOptionOrTheFilesNameOrToday) {
    const auto dayOf = [&](const std::string& name, std::optional<std::string> day) {
        const Explained explained = Run({.statementFile = folder_.Write(name, SmallStatement()),
                                         .format = "1",
                                         .kind = {},
                                         .templateFile = {},
                                         .day = std::move(day),
                                         .asJson = true});
        return explained.json.at("day_from").get<std::string>() + " " + explained.json.at("day").get<std::string>();
    };
    EXPECT_EQ(dayOf("D1.20240102o.txt", {}), "the file's name 20240102");
    EXPECT_EQ(dayOf("D1.20240102.txt", {}), "the file's name 20240102");
    EXPECT_EQ(dayOf("D1.20240102o.txt", "20230405"), "--day 20230405");
    EXPECT_EQ(dayOf("D1.20240102o.txt", "2023-4-5"), "--day 20230405");
    EXPECT_EQ(dayOf("statement.txt", {}).substr(0, 6), "today ");
    EXPECT_EQ(dayOf("a.2024.txt", {}).substr(0, 6), "today ");
}

TEST_F(ExplainCommandRun, RefusesWrongUse) {
    const std::string file = folder_.Write("D1.20240102o.txt", SmallStatement());
    const ExplainCommand good{.statementFile = file, .format = "1", .kind = {}, .templateFile = {}, .day = {}};
    const auto refuses = [&](auto change, std::string_view phrase) {
        ExplainCommand command = good;
        change(command);
        try {
            static_cast<void>(Run(command));
            ADD_FAILURE() << phrase;
        } catch (const CUsageError& error) {
            EXPECT_NE(std::string_view(error.what()).find(phrase), std::string_view::npos) << error.what();
        }
    };
    refuses([](ExplainCommand& command) { command.format = ""; }, "--format: expected 0, 1, 2, 3, 6, 201 or auto");
    refuses([](ExplainCommand& command) { command.format = "5"; }, "--format: expected 0, 1, 2, 3, 6, 201 or auto");
    refuses([](ExplainCommand& command) { command.format = "one"; }, "--format: expected");
    refuses([](ExplainCommand& command) { command.kind = "both"; }, "--kind: expected");
    refuses([](ExplainCommand& command) { command.day = "2024-13-02"; }, "--day: expected a date");
    refuses([](ExplainCommand& command) { command.templateFile = "no/such.ini"; }, "--template: expected");
    refuses([](ExplainCommand& command) { command.statementFile += ".missing"; }, "expected a statement file");
    refuses([&](ExplainCommand& command) { command.statementFile = folder_.Path(); }, "expected a statement file");
}

}  // namespace
}  // namespace tradebill::explain_command_test
