// The domestic form of the section of results per contract.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/page_sections.h"
#include "page/statement_rows.h"
#include "support/host_objects.h"

namespace tradebill::trade_section_test {
namespace {

// clang-format off
const Columns kColumns = {
    {"合约　　　　　　　", "14%"},
    {"多空　　　　", "9%"},
    {"盈亏　　　　", "9%"},
    {"交易次数　　　　", "10%"},
    {"手数　　　　    ", "10%"},
    {"利润　　　　　　　　　　　", "16%"},
    {"平均单次利润　　　　　　　", "16%"},
    {"平均每手利润　　　　　　　", "16%"},
};
// clang-format on

const std::string kPlain = "tradespannormal";
const std::string kDashes = DashRow("", kPlain, kColumns);

std::string Top() {
    return TitleBlock({"交易统计", "clickStatistics", "Statisticsbtn", "TradeStatistics.jpg", " </div> \r\n", " "}) +
           TableTop("tabTrade", kPlain, kColumns);
}

std::string Pale(const std::vector<std::string>& texts, const Marks& marks = {}) {
    return HtmlRow("billclr1", kPlain, texts, marks);
}

std::string Dark(const std::vector<std::string>& texts, const Marks& marks = {}) {
    return HtmlRow("billclr2", kPlain, texts, marks);
}

std::string Total(const std::vector<std::string>& texts) {
    return HtmlRow("", "tradespansum", texts);
}

/// The five rows of a side without trades whose first row is pale or, with `startsDark`, dark.
std::string IdleSide(const std::string& name, const std::string& nameClass, bool startsDark) {
    const std::vector<std::vector<std::string>> rows = {
        {"", name, "", "0", "0", "0.00", "0.00", "0.00"},   {"", "", "盈利", "0", "0", "0.00", "0.00", "0.00"},
        {"", "", "亏损", "0", "0", "0.00", "0.00", "0.00"}, {"", "", "最大盈利", "", "", "0.00", "", ""},
        {"", "", "最大亏损", "", "", "0.00", "", ""},
    };
    std::string text;
    bool dark = startsDark;
    for (const auto& row : rows) {
        const Marks marks = &row == &rows.front() ? Marks{{1, nameClass}} : Marks{};
        text += dark ? Dark(row, marks) : Pale(row, marks);
        dark = !dark;
    }
    return text;
}

class TradeSection : public PageFixture {
protected:
    /// The closed page's rows between header and table end.
    std::string Rows() {
        CHtmlBuilder page(path_);
        EXPECT_TRUE(AddTradeSection(page, report));
        const std::string text = Page();
        const std::string before = "<html>\r\n" + kHead + "<body>\r\n" + Top();
        const std::string after = kTableFoot + "\r\n</body>\r\n</html>\r\n";
        EXPECT_TRUE(text.starts_with(before)) << text;
        EXPECT_TRUE(text.ends_with(after)) << text;
        return text.substr(before.size(), text.size() - before.size() - after.size());
    }

    /// The contract as the first data row shows it.
    std::string ShownContract(int format) {
        report.Request.StatementFormat = format;
        const std::string rows = Rows();
        const std::size_t from = rows.find("normal'>") + 8;
        return rows.substr(from, rows.find("</span>") - from);
    }
};

TEST_F(TradeSection, OfNothingHasATotalOfZeros) {
    CHtmlBuilder page(path_);
    EXPECT_TRUE(AddTradeSection(page, report));
    EXPECT_EQ(Page(),
              ClosedPage(Top() + Total({"总计", "", "", "0", "0", "0.00", "0.00", "0.00"}) + kTableFoot + "\r\n"));
}

TEST_F(TradeSection, TakesThePageWidth) {
    report.ReportDocument.PageWidth = 1040;
    CHtmlBuilder page(path_);
    EXPECT_TRUE(AddTradeSection(page, report));
    EXPECT_NE(Page().find("<table width = \"1040\" style=\"table-layout: fixed;\" cellspacing = \"0\" border=\"0\" "
                          "id= \"tabTrade\">\r\n"),
              std::string::npos);
}

TEST_F(TradeSection, ShowsBothSidesOfAContract) {
    ContractOffset& tally = AddTally(report, "铜", "2405");
    tally.LONG_COUNT = 3;
    tally.LONG_VOL = 8;
    tally.LONG_WIN_COUNT = 2;
    tally.LONG_WIN_VOL = 5;
    tally.LONG_WIN_PL = 1000.5;
    tally.LONG_LOSE_COUNT = 1;
    tally.LONG_LOSE_VOL = 3;
    tally.LONG_LOSE_PL = -100;
    tally.LONG_MAX_WIN = 700.25;
    tally.LONG_MAX_LOSS = -100;
    tally.SHORT_COUNT = 5;
    tally.SHORT_VOL = 12;
    tally.SHORT_WIN_COUNT = 1;
    tally.SHORT_WIN_VOL = 2;
    tally.SHORT_WIN_PL = 50;
    tally.SHORT_LOSE_COUNT = 4;
    tally.SHORT_LOSE_VOL = 10;
    tally.SHORT_LOSE_PL = -2000;
    tally.SHORT_MAX_WIN = 50;
    tally.SHORT_MAX_LOSS = -900.126;
    tally.LONG_PL = 111;  // read by nothing
    tally.SHORT_PL = 222;

    EXPECT_EQ(Rows(), Pale({"铜2405", "", "", "8", "20", "-1049.50", "-131.19", "-52.48"}) +
                          Dark({"", "多头", "", "3", "8", "900.50", "300.17", "112.56"}, {{1, "tradespanbid"}}) +
                          Pale({"", "", "盈利", "2", "5", "1000.50", "500.25", "200.10"}) +
                          Dark({"", "", "亏损", "1", "3", "-100.00", "-100.00", "-33.33"}) +
                          Pale({"", "", "最大盈利", "", "", "700.25", "", ""}) +
                          Dark({"", "", "最大亏损", "", "", "-100.00", "", ""}) +
                          Pale({"", "空头", "", "5", "12", "-1950.00", "-390.00", "-162.50"}, {{1, "tradespanask"}}) +
                          Dark({"", "", "盈利", "1", "2", "50.00", "50.00", "25.00"}) +
                          Pale({"", "", "亏损", "4", "10", "-2000.00", "-500.00", "-200.00"}) +
                          Dark({"", "", "最大盈利", "", "", "50.00", "", ""}) +
                          Pale({"", "", "最大亏损", "", "", "-900.13", "", ""}) + kDashes +
                          Total({"总计", "", "", "8", "20", "-1049.50", "-131.19", "-52.48"}));
}

TEST_F(TradeSection, RunsItsBandsThroughAllContracts) {
    ContractOffset& first = AddTally(report, "a", "1");
    first.LONG_COUNT = first.LONG_VOL = first.LONG_WIN_COUNT = first.LONG_WIN_VOL = 1;
    first.LONG_WIN_PL = first.LONG_MAX_WIN = 10;
    ContractOffset& second = AddTally(report, "b", "2");
    second.SHORT_COUNT = second.SHORT_VOL = second.SHORT_LOSE_COUNT = second.SHORT_LOSE_VOL = 2;
    second.SHORT_LOSE_PL = -4;
    second.SHORT_MAX_LOSS = -3;

    EXPECT_EQ(
        Rows(),
        Pale({"a1", "", "", "1", "1", "10.00", "10.00", "10.00"}) +
            Dark({"", "多头", "", "1", "1", "10.00", "10.00", "10.00"}, {{1, "tradespanbid"}}) +
            Pale({"", "", "盈利", "1", "1", "10.00", "10.00", "10.00"}) +
            Dark({"", "", "亏损", "0", "0", "0.00", "0.00", "0.00"}) +
            Pale({"", "", "最大盈利", "", "", "10.00", "", ""}) + Dark({"", "", "最大亏损", "", "", "0.00", "", ""}) +
            IdleSide("空头", "tradespanask", false) + kDashes +
            // eleven rows so far: the second contract begins dark
            Dark({"b2", "", "", "2", "2", "-4.00", "-2.00", "-2.00"}) + IdleSide("多头", "tradespanbid", false) +
            Dark({"", "空头", "", "2", "2", "-4.00", "-2.00", "-2.00"}, {{1, "tradespanask"}}) +
            Pale({"", "", "盈利", "0", "0", "0.00", "0.00", "0.00"}) +
            Dark({"", "", "亏损", "2", "2", "-4.00", "-2.00", "-2.00"}) +
            Pale({"", "", "最大盈利", "", "", "0.00", "", ""}) + Dark({"", "", "最大亏损", "", "", "-3.00", "", ""}) +
            kDashes + Total({"总计", "", "", "3", "3", "6.00", "2.00", "2.00"}));
}

TEST_F(TradeSection, ShowsTheLargestAmountsOfASideWithoutTrades) {
    ContractOffset& tally = AddTally(report, "a");
    tally.LONG_COUNT = tally.LONG_VOL = 1;
    tally.SHORT_MAX_WIN = 7;
    tally.SHORT_MAX_LOSS = -8;
    const std::string rows = Rows();
    EXPECT_NE(rows.find(Dark({"", "", "最大盈利", "", "", "7.00", "", ""}) +
                        Pale({"", "", "最大亏损", "", "", "-8.00", "", ""})),
              std::string::npos);
}

TEST_F(TradeSection, ShowsZerosForASideUnderOneTrade) {
    ContractOffset& tally = AddTally(report, "a");
    tally.LONG_COUNT = 0;  // although all else is there
    tally.LONG_VOL = tally.LONG_WIN_COUNT = tally.LONG_WIN_VOL = tally.LONG_LOSE_COUNT = tally.LONG_LOSE_VOL = 4;
    tally.LONG_WIN_PL = 8;
    tally.LONG_LOSE_PL = -2;
    tally.SHORT_COUNT = 2;
    tally.SHORT_VOL = 2;
    EXPECT_NE(
        Rows().find(Pale({"a", "", "", "2", "6", "6.00", "3.00", "1.00"}) + IdleSide("多头", "tradespanbid", true)),
        std::string::npos);
}

TEST_F(TradeSection, ShowsZerosForAnOutcomeUnderOneLot) {
    ContractOffset& tally = AddTally(report, "a");
    tally.LONG_COUNT = tally.LONG_VOL = 3;
    tally.LONG_WIN_COUNT = 2;  // of rows of no lots
    tally.LONG_WIN_PL = 5;
    tally.LONG_LOSE_COUNT = 1;
    tally.LONG_LOSE_VOL = 1;
    tally.LONG_LOSE_PL = -2;
    const std::string rows = Rows();
    EXPECT_NE(rows.find(Pale({"", "", "盈利", "0", "0", "0.00", "0.00", "0.00"}) +
                        Dark({"", "", "亏损", "1", "1", "-2.00", "-2.00", "-2.00"})),
              std::string::npos);
}

TEST_F(TradeSection, DividesByZeroLotsWithoutAGuard) {
    ContractOffset& tally = AddTally(report, "a");
    tally.LONG_COUNT = tally.LONG_WIN_COUNT = 1;
    tally.LONG_WIN_PL = 5;
    EXPECT_EQ(Rows(), Pale({"a", "", "", "1", "0", "5.00", "5.00", "inf"}) +
                          Dark({"", "多头", "", "1", "0", "5.00", "5.00", "inf"}, {{1, "tradespanbid"}}) +
                          Pale({"", "", "盈利", "0", "0", "0.00", "0.00", "0.00"}) +
                          Dark({"", "", "亏损", "0", "0", "0.00", "0.00", "0.00"}) +
                          Pale({"", "", "最大盈利", "", "", "0.00", "", ""}) +
                          Dark({"", "", "最大亏损", "", "", "0.00", "", ""}) + IdleSide("空头", "tradespanask", false) +
                          kDashes + Total({"总计", "", "", "1", "0", "5.00", "5.00", "0.00"}));
}

TEST_F(TradeSection, ShowsNoNumberForAContractWithoutTrades) {
    AddTally(report, "a");  // a row of no side
    const std::string rows = Rows();
    const std::string contract = rows.substr(0, rows.find("</tr>"));
    EXPECT_NE(contract.find("<span class='tradespannormal'>0.00</span>"), std::string::npos);
    EXPECT_NE(contract.find("nan</span></td><td"), std::string::npos) << contract;  // per trade
    EXPECT_TRUE(contract.ends_with("nan</span></td>")) << contract;                 // per lot
    EXPECT_TRUE(rows.ends_with(Total({"总计", "", "", "0", "0", "0.00", "0.00", "0.00"})));
}

TEST_F(TradeSection, NamesTheDeliveryMonthWhereItStandsApart) {
    AddTally(report, "cu", "2405").LONG_COUNT = 1;
    for (const int format : {0, 1, 3}) EXPECT_EQ(ShownContract(format), "cu2405") << format;
    for (const int format : {2, 6, 201, 4, -1}) EXPECT_EQ(ShownContract(format), "cu") << format;
}

TEST_F(TradeSection, TrimsTheFrontOfAContract) {
    AddTally(report, " \t　cu ", "2405").LONG_COUNT = 1;
    EXPECT_EQ(ShownContract(1), "cu 2405");
    EXPECT_EQ(ShownContract(2), "cu ");
}

TEST_F(TradeSection, LeavesThePageOpenAtAStop) {
    const UniqueEvent stop(CreateHostEvent(1));
    report.Request.StopEvent = stop.get();
    SignalHostEvent(stop.get());
    AddTally(report, "a");
    CHtmlBuilder page(path_);
    EXPECT_FALSE(AddTradeSection(page, report));
    EXPECT_EQ(Page(), kHead + Top());
}

}  // namespace
}  // namespace tradebill::trade_section_test
