// The foreign form of the section of results per contract: the long fields alone, with a currency.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/page_sections.h"
#include "page/statement_rows.h"

namespace tradebill::foreign_trade_section_test {
namespace {

// clang-format off
const Columns kColumns = {
    {"合约　　　　　　　　", "14%"},
    {"盈亏　　　　     ", "10%"},
    {"交易次数　　　　", "12%"},
    {"手数　　　　    ", "10%"},
    {"利润　　　　　　　　　　", "15%"},
    {"平均单次利润　　　　　　", "15%"},
    {"平均每手利润　　　　　　", "15%"},
    {"币种　　           ", "9%"},
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

class ForeignTradeSection : public PageFixture {
protected:
    ForeignTradeSection() { report.Request.StatementKind = 2; }

    void ExpectRows(const std::string& rows) {
        CHtmlBuilder page(path_);
        EXPECT_TRUE(AddForeignTradeSection(page, report));
        EXPECT_EQ(Page(), ClosedPage(Top() + rows + kTableFoot + "\r\n"));
    }
};

TEST_F(ForeignTradeSection, OfNothingHasATotalOfZeros) {
    ExpectRows(Total({"总计", "               ", "0", "0", "0.00", "0.00", "0.00", ""}));
}

TEST_F(ForeignTradeSection, ShowsWinsLossesAndLargestAmounts) {
    ContractOffset& tally = AddTally(report, "CL2406", "2406", "USD");
    tally.LONG_COUNT = 4;
    tally.LONG_VOL = 8;
    tally.LONG_WIN_COUNT = 3;
    tally.LONG_WIN_VOL = 6;
    tally.LONG_WIN_PL = 100;
    tally.LONG_LOSE_COUNT = 1;
    tally.LONG_LOSE_VOL = 2;
    tally.LONG_LOSE_PL = -60.5;
    tally.LONG_MAX_WIN = 50;
    tally.LONG_MAX_LOSS = -60.5;
    tally.SHORT_COUNT = 9;  // the foreign family never looks at these
    tally.SHORT_WIN_PL = 1000;

    ExpectRows(Pale({"CL2406", "", "4", "8", "39.50", "9.88", "4.94", ""}, {{1, "tradespanbid"}}) +
               Dark({"", "盈利", "3", "6", "100.00", "33.33", "16.67", "USD"}) +
               Pale({"", "亏损", "1", "2", "-60.50", "-60.50", "-30.25", "USD"}) +
               Dark({"", "最大盈利", "", "", "50.00", "", "", ""}) +
               Pale({"", "最大亏损", "", "", "-60.50", "", "", ""}) + kDashes +
               Total({"总计", "               ", "4", "8", "39.50", "9.88", "4.94", ""}));
}

TEST_F(ForeignTradeSection, NamesTheContractAloneInAllFormats) {
    ContractOffset& tally = AddTally(report, " \t　cu", "2405", "HKD");
    tally.LONG_COUNT = tally.LONG_VOL = 1;
    for (const int format : {0, 1, 2, 3, 6}) {
        report.Request.StatementFormat = format;
        ExpectRows(Pale({"cu", "", "1", "1", "0.00", "0.00", "0.00", ""}, {{1, "tradespanbid"}}) +
                   Dark({"", "盈利", "0", "0", "0.00", "0.00", "0.00", "HKD"}) +
                   Pale({"", "亏损", "0", "0", "0.00", "0.00", "0.00", "HKD"}) +
                   Dark({"", "最大盈利", "", "", "0.00", "", "", ""}) +
                   Pale({"", "最大亏损", "", "", "0.00", "", "", ""}) + kDashes +
                   Total({"总计", "               ", "1", "1", "0.00", "0.00", "0.00", ""}));
    }
}

TEST_F(ForeignTradeSection, PassesOverContractsUnderOneTrade) {
    ContractOffset& passed = AddTally(report, "passed", "", "USD");
    passed.LONG_COUNT = 0;
    passed.LONG_VOL = 5;
    passed.LONG_WIN_PL = 99;
    ContractOffset& shown = AddTally(report, "shown", "", "USD");
    shown.LONG_COUNT = shown.LONG_WIN_COUNT = 1;
    shown.LONG_VOL = shown.LONG_WIN_VOL = 2;
    shown.LONG_WIN_PL = shown.LONG_MAX_WIN = 3;
    AddTally(report, "passed too").LONG_COUNT = -1;

    ExpectRows(Pale({"shown", "", "1", "2", "3.00", "3.00", "1.50", ""}, {{1, "tradespanbid"}}) +
               Dark({"", "盈利", "1", "2", "3.00", "3.00", "1.50", "USD"}) +
               Pale({"", "亏损", "0", "0", "0.00", "0.00", "0.00", "USD"}) +
               Dark({"", "最大盈利", "", "", "3.00", "", "", ""}) + Pale({"", "最大亏损", "", "", "0.00", "", "", ""}) +
               kDashes + Total({"总计", "               ", "1", "2", "3.00", "3.00", "1.50", ""}));
}

TEST_F(ForeignTradeSection, RunsBandsOnAndMixesCurrenciesInItsTotal) {
    ContractOffset& first = AddTally(report, "a", "", "USD");
    first.LONG_COUNT = first.LONG_WIN_COUNT = 1;
    first.LONG_VOL = first.LONG_WIN_VOL = 1;
    first.LONG_WIN_PL = first.LONG_MAX_WIN = 10;
    ContractOffset& second = AddTally(report, "b", "", "JPY");
    second.LONG_COUNT = second.LONG_LOSE_COUNT = 1;
    second.LONG_VOL = second.LONG_LOSE_VOL = 3;
    second.LONG_LOSE_PL = second.LONG_MAX_LOSS = -2;

    ExpectRows(
        Pale({"a", "", "1", "1", "10.00", "10.00", "10.00", ""}, {{1, "tradespanbid"}}) +
        Dark({"", "盈利", "1", "1", "10.00", "10.00", "10.00", "USD"}) +
        Pale({"", "亏损", "0", "0", "0.00", "0.00", "0.00", "USD"}) +
        Dark({"", "最大盈利", "", "", "10.00", "", "", ""}) + Pale({"", "最大亏损", "", "", "0.00", "", "", ""}) +
        kDashes + Dark({"b", "", "1", "3", "-2.00", "-2.00", "-0.67", ""}, {{1, "tradespanbid"}}) +
        Pale({"", "盈利", "0", "0", "0.00", "0.00", "0.00", "JPY"}) +
        Dark({"", "亏损", "1", "3", "-2.00", "-2.00", "-0.67", "JPY"}) +
        Pale({"", "最大盈利", "", "", "0.00", "", "", ""}) + Dark({"", "最大亏损", "", "", "-2.00", "", "", ""}) +
        kDashes + Total({"总计", "               ", "2", "4", "8.00", "4.00", "2.00", ""}));
}

TEST_F(ForeignTradeSection, ShowsZerosForAnOutcomeUnderOneLot) {
    ContractOffset& tally = AddTally(report, "a", "", "EUR");
    tally.LONG_COUNT = tally.LONG_WIN_COUNT = 1;
    tally.LONG_WIN_PL = tally.LONG_MAX_WIN = 5;
    ExpectRows(Pale({"a", "", "1", "0", "5.00", "5.00", "inf", ""}, {{1, "tradespanbid"}}) +
               Dark({"", "盈利", "0", "0", "0.00", "0.00", "0.00", "EUR"}) +
               Pale({"", "亏损", "0", "0", "0.00", "0.00", "0.00", "EUR"}) +
               Dark({"", "最大盈利", "", "", "5.00", "", "", ""}) + Pale({"", "最大亏损", "", "", "0.00", "", "", ""}) +
               kDashes + Total({"总计", "               ", "1", "0", "5.00", "5.00", "0.00", ""}));
}

}  // namespace
}  // namespace tradebill::foreign_trade_section_test
