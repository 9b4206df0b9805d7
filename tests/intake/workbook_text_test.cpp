// A day's workbook as the text of a statement. The figures of the days are worked out where they are made.
#include "intake/workbook_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "base/text.h"
#include "findings/finding.h"
#include "intake/opening_trades.h"
#include "intake/workbook_day.h"
#include "support/day_workbook.h"
#include "support/made_cells.h"

namespace tradebill::workbook_text_test {
namespace {

constexpr const char* kUnits = "[UNITS]\nlc=1\ni=100\nSR=10\n";

/// Knows trades by contract and number.
class CKnownTrades final : public COpeningSource {
public:
    std::map<std::pair<std::string, std::string>, std::string> days;

    std::optional<std::string> DayOf(const std::string& account, const OpeningTrade& trade,
                                     const std::string& day) override {
        EXPECT_EQ(account, "9001");
        EXPECT_EQ(day, "20240103");
        const auto found = days.find({trade.contract, trade.number});
        return found != days.end() ? std::optional(found->second) : std::nullopt;
    }
};

class PrintedWorkbook : public testing::Test {
protected:
    CKnownTrades known_;
    WorkbookText printed_;

    void Print(const MadeDayBook& made, const std::string& day = "20240103", const char* units = kUnits) {
        const WorkbookDay read = ReadWorkbookDay(Filled(DayWorkbook(made)));
        ASSERT_EQ(read.refusal, "");
        printed_ = PrintWorkbookDay(read, {.account = "9001", .day = day, .openings = &known_, .units = units});
    }

    /// Cells of the rows below a title, those of the totals with them.
    [[nodiscard]] std::vector<std::vector<std::string>> Rows(const std::string& title) const {
        std::vector<std::vector<std::string>> rows;
        std::istringstream lines(printed_.text);
        bool isInside = false;
        for (std::string line; std::getline(lines, line);) {
            if (line.find(title) != std::string::npos) isInside = true;
            if (line.empty()) isInside = false;
            if (!isInside || !line.starts_with('|')) continue;
            std::istringstream cells(line.substr(1));
            rows.emplace_back();
            for (std::string cell; std::getline(cells, cell, '|');) rows.back().emplace_back(Trim(cell));
        }
        if (rows.size() >= 2) rows.erase(rows.begin(), rows.begin() + 2);  // headings in two languages
        return rows;
    }
    [[nodiscard]] std::vector<std::string> Column(const std::string& title, std::size_t column) const {
        std::vector<std::string> cells;
        for (const auto& row : Rows(title)) cells.push_back(row.at(column));
        return cells;
    }
    [[nodiscard]] std::string Figure(const std::string& label) const {
        const std::size_t at = printed_.text.find(label);
        if (at == std::string::npos) return "none";
        std::istringstream rest(printed_.text.substr(at + label.size()));
        std::string figure;
        rest >> figure;
        return figure;
    }
    void ExpectIdentity(const std::string& expected, const std::string& found) const {
        ASSERT_EQ(printed_.findings.size(), 1u);
        EXPECT_EQ(printed_.findings[0].code, FindingCode::Identity);
        EXPECT_EQ(printed_.findings[0].expected, expected);
        EXPECT_EQ(printed_.findings[0].found, found);
    }
    [[nodiscard]] std::vector<std::string> Findings() const {
        std::vector<std::string> texts;
        for (const Finding& finding : printed_.findings) texts.push_back(finding.text);
        return texts;
    }
};

using Texts = std::vector<std::string>;

TEST_F(PrintedWorkbook, HasTheFiguresOfTheAccountUnderTheirLabels) {
    Print(FirstDay());
    const std::vector<std::pair<std::string, std::string>> figures = {
        {"客户号 Client ID：", "9001"},
        {"日期 Date：", "20240103"},
        {"期初结存 Balance b/f：", "100000.00"},
        {"期末结存 Balance c/f：", "96772.20"},
        {"出 入 金 Deposit/Withdrawal：", "0.00"},
        {"客户权益 Client Equity：：", "96772.20"},
        {"平仓盈亏 Realized P/L：", "0.00"},
        {"持仓盯市盈亏 MTM P/L：", "-900.00"},
        {"保证金占用 Margin Occupied：", "91347.00"},
        {"可用资金 Fund Avail.：", "5425.20"},
        {"手 续 费 Commission：", "77.80"},
        {"风 险 度 Risk Degree：", "94.39%"},
        {"追加保证金 Margin Call：", "0.00"},
        {"冻结资金 Frozen Fund：", "none"},
        {"权利金收入 Premium received：", "-2250.00"},  // less what is paid, which the layout's reader leaves out
        {"权利金支出 Premium paid：", "0.00"},
    };
    for (const auto& [label, figure] : figures) EXPECT_EQ(Figure(label), figure) << label;
}

TEST_F(PrintedWorkbook, HasTradesOnItsDayWithProductsAndPremiums) {
    Print(FirstDay());
    EXPECT_EQ(Rows("成交记录"), (std::vector<Texts>{{"20240103", "广期所", "碳酸锂", "lc2402", "买", "投机", "97000.00",
                                                     "2", "194000.00", "开", "15.52", "0.00", "0.00", "00071551"},
                                                    {"20240103", "广期所", "碳酸锂", "lc2402", "买", "投机", "97200.00",
                                                     "1", "97200.00", "开", "7.78", "0.00", "0.00", "000000071552"},
                                                    {"20240103", "大商所", "铁矿石", "i2405", "卖", "套保", "1000.00",
                                                     "5", "500000.00", "开", "50.00", "0.00", "0.00", "00071553"},
                                                    {"20240103", "郑商所", "白糖", "SR405C6300", "买", "--", "75.00",
                                                     "3", "2250.00", "--", "4.50", "0.00", "-2250.00", "00071554"},
                                                    {"共4条", "", "", "", "", "", "", "11", "793450.00", "", "77.80",
                                                     "0.00", "-2250.00", ""}}));
}

TEST_F(PrintedWorkbook, SpreadsMarginByLotsAndWorksTheFloatingProfitOut) {
    Print(FirstDay());
    // lc: 26,217.00 over 2 and 1 lots; i: (1,000 - 1,002) x 5 x 100; SR: (74 - 75) x 3 x 10.
    EXPECT_EQ(Column("持仓明细", 10), (Texts{"200.00", "-100.00", "-1000.00", "-30.00", "-930.00"}));
    EXPECT_EQ(Column("持仓明细", 11), (Texts{"200.00", "-100.00", "-1000.00", "0.00", "-900.00"}));
    EXPECT_EQ(Column("持仓明细", 12), (Texts{"17478.00", "8739.00", "65130.00", "0.00", "91347.00"}));
    EXPECT_EQ(Column("持仓明细", 3), (Texts{"20240103", "20240103", "20240103", "--", ""}));
    EXPECT_EQ(Findings(), Texts());
}

TEST_F(PrintedWorkbook, SpreadsTheAccountsMarginWhereContractsHaveNone) {
    MadeDayBook made = FirstDay();
    made.futureSums.clear();
    made.optionSums[0][10] = "347.00";
    Print(made);
    // 91,000.00 by settlement values: 194,200, 97,100 and 501,000, together 792,300. Those of lc, 291,300, make
    // 33,457.401, and two thirds of that are 22,304.934.
    EXPECT_EQ(Column("持仓明细", 12), (Texts{"22304.93", "11152.47", "57542.60", "347.00", "91347.00"}));
}

TEST_F(PrintedWorkbook, TakesOpeningDaysFromTheTradesThatNumbersName) {
    known_.days = {{{"lc2402", "00071551"}, "20240102"}, {{"i2405", "00071553"}, "20231229"}};
    Print(SecondDay());
    EXPECT_EQ(Rows("平仓明细"), (std::vector<Texts>{{"20240103", "广期所", "碳酸锂", "lc2402", "20240102", "卖", "2",
                                                     "97000.00", "97100.00", "97500.00", "800.00", "00071551"},
                                                    {"20240103", "大商所", "铁矿石", "i2405", "20231229", "买", "1",
                                                     "1000.00", "1002.00", "990.00", "1200.00", "00071553"},
                                                    {"共2条", "", "", "", "", "", "3", "", "", "", "2000.00", ""}}));
    EXPECT_EQ(Findings(), Texts{"The trade 000000071552 that opened lc2402 stands in no imported statement."});
    EXPECT_EQ(Column("持仓明细", 3), (Texts{"--", "20231229", "--", ""}));
    EXPECT_EQ(Column("持仓明细", 10), (Texts{"200.00", "0.00", "30.00", "230.00"}));
}

TEST_F(PrintedWorkbook, TellsEachOpeningThatIsntKnown) {
    MadeDayBook made = SecondDay();
    made.positions.clear();
    Print(made);
    EXPECT_EQ(Column("平仓明细", 4), (Texts{"--", "--", ""}));
    ASSERT_EQ(printed_.findings.size(), 3u);  // and that the day's profit lacks that of the positions
    EXPECT_EQ(printed_.findings[1].code, FindingCode::Opening);
    EXPECT_EQ(printed_.findings[1].day, "20240103");
    EXPECT_EQ(printed_.findings[1].text, "The trade 00071551 that opened lc2402 stands in no imported statement.");
}

TEST_F(PrintedWorkbook, TakesAnOpeningOnTheSameDayBeforeAnEarlierOne) {
    known_.days = {{{"lc2402", "00080009"}, "20231229"}};
    MadeDayBook made = SecondDay();
    made.trades.push_back(
        {"lc2402", "00080009", "09:00:00", "买", "投机", "97000", "2", "194000.00", "开", "15.52", "--"});
    made.closings[0][8] = "00080009";
    Print(made);
    EXPECT_EQ(Column("平仓明细", 4)[0], "20240103");
}

TEST_F(PrintedWorkbook, TellsAProfitThatItsSheetsDontMake) {
    MadeDayBook made = FirstDay();
    made.money[4].second = "-900.01";
    Print(made);
    ExpectIdentity("-900.01", "-900.00");
}

TEST_F(PrintedWorkbook, TellsAPremiumThatItsTradesDontMake) {
    MadeDayBook made = FirstDay();
    made.money[6].second = "2250.00";
    Print(made);
    ExpectIdentity("2250.00", "-2250.00");
    made.money.erase(made.money.begin() + 6);
    Print(made);
    EXPECT_EQ(Findings(), Texts());
}

TEST_F(PrintedWorkbook, HasDepositsAndWithdrawals) {
    Print(FirstDay());
    EXPECT_EQ(printed_.text.find("出入金明细"), std::string::npos);
    Print(SecondDay());
    EXPECT_EQ(Rows("出入金明细"), (std::vector<Texts>{{"20240103", "银期转账", "1500.00", "0.00", "转入"},
                                                      {"20240103", "银期转账", "0.00", "500.00", ""},
                                                      {"共2条", "", "1500.00", "500.00", ""}}));
}

TEST_F(PrintedWorkbook, LeavesNamesAndUnitsOpenThatNobodyKnows) {
    MadeDayBook made = FirstDay();
    for (MadeRows* rows : {&made.trades, &made.positions, &made.futureSums}) {
        for (auto& row : *rows) row[0] = row[0] == "i2405" ? "xy2405" : row[0];
    }
    Print(made);
    EXPECT_EQ(printed_.unknown, Texts{"xy2405"});
    EXPECT_EQ(Rows("成交记录")[2][1], "");
    EXPECT_EQ(Column("持仓明细", 10)[2], "-1000.00");  // its trade tells the unit
    EXPECT_EQ(Findings(), Texts());
    made.trades.pop_back();
    Print(made);
    EXPECT_EQ(Column("持仓明细", 10)[2], "0.00");
    EXPECT_EQ(Findings().front(), "The unit of xy2405 isn't known: the floating P/L of its positions is left at 0.00.");
}

TEST_F(PrintedWorkbook, KeepsTheTotalsOfTheSheetsSoThatACheckFindsWhatIsMissing) {
    const WorkbookDay whole = ReadWorkbookDay(Filled(DayWorkbook(FirstDay())));
    WorkbookDay day = whole;
    day.totals.tradeLots = 12'0000;
    day.totals.positionProfit = -901'0000;
    printed_ = PrintWorkbookDay(day, {.account = "9001", .day = "20240103"});
    EXPECT_EQ(Rows("成交记录").back()[7], "12");
    EXPECT_EQ(Rows("持仓明细").back()[11], "-901.00");
}

TEST_F(PrintedWorkbook, HasNoCellThatCouldBreakARow) {
    MadeDayBook made = FirstDay();
    made.trades[0][4] = "投|机\n保";
    Print(made);
    EXPECT_EQ(Rows("成交记录")[0][5], "投 机 保");
    EXPECT_EQ(Rows("成交记录").size(), 5u);
}

}  // namespace
}  // namespace tradebill::workbook_text_test
