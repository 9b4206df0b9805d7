// The section of all trades, in its three domestic layouts and the foreign one.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/page_sections.h"
#include "page/statement_rows.h"

namespace tradebill::match_section_test {
namespace {

// clang-format off
const Columns kColumnsOfFormat1 = {
    {"交易所          ", "10%"},
    {"合约            ", "10%"},
    {"成交日期        ", "10%"},
    {"买卖            ", "10%"},
    {"开平            ", "10%"},
    {"手数            ", "10%"},
    {"成交价                ", "12%"},
    {"成交额                ", "16%"},
    {"手续费          ", "12%"},
};
const Columns kColumnsOfFormat0 = {
    {"交易所          ", "8%"},
    {"合约            ", "10%"},
    {"成交日期        ", "10%"},
    {"买卖            ", "6%"},
    {"开平            ", "6%"},
    {"手数            ", "6%"},
    {"成交价              ", "14%"},
    {"成交额              ", "14%"},
    {"平仓盈亏            ", "14%"},
    {"手续费              ", "12%"},
};
const Columns kColumnsOfOthers = {
    {"交易所              ", "8%"},
    {"合约                ", "8%"},
    {"成交日期            ", "8%"},
    {"买卖                ", "6%"},
    {"开平                ", "6%"},
    {"手数                ", "6%"},
    {"成交价              ", "12%"},
    {"成交额              ", "12%"},
    {"平仓盈亏            ", "12%"},
    {"手续费              ", "10%"},
    {"成交编号           ", "12%"},
};
const Columns kForeignColumns = {
    {"交易所              ", "12%"},
    {"合约                ", "12%"},
    {"成交日期            ", "14%"},
    {"买卖                ", "12%"},
    {"手数                ", "10%"},
    {"成交价              ", "15%"},
    {"手续费              ", "15%"},
    {"币种                ", "10%"},
};
// clang-format on

const std::string kPlain = "matchspannormal";
constexpr std::size_t kProfitColumn = 8;  // in formats 0 and other

std::string Top(const Columns& columns) {
    return TitleBlock({"成交明细", "clickMatch", "Matchbtn", "MatchDetails.jpg", "</div>\r\n", "  "}) +
           TableTop("tabMatch", kPlain, columns);
}

/// One trade with all its fields.
void AddFullTrade(CReport& report, std::string_view day) {
    AddTrade(report, {{"BILL_DATE", day},
                      {"MATCH_DATE", "20231229"},
                      {"EXCH_NAME", "上期所"},
                      {"CONTRACT", "铜"},
                      {"DELIVERY", "2405"},
                      {"HEDGE", "投"},
                      {"BID", "买"},
                      {"MATCH_PRICE", "68,000.0"},
                      {"MATCH_VOL", "3"},
                      {"TURNOVER", "1020000"},
                      {"OFFSET", "平仓"},
                      {"POUNDAGE", "12.345"},
                      {"OFFSETPL", "250"},
                      {"MATCHNO", "00042"},
                      {"ROYALTY", "9"},
                      {"CURRENCY", "USD"}});
}

class MatchSection : public PageFixture {
protected:
    /// Rows with the layout's dashes behind each.
    struct Layout {
        Columns columns;

        [[nodiscard]] std::string Row(const std::string& band, const std::vector<std::string>& texts,
                                      const Marks& marks = {}) const {
            return HtmlRow(band, kPlain, texts, marks) + DashRow(band, kPlain, columns);
        }
        [[nodiscard]] std::string Subtotal(const std::string& band, const std::vector<std::string>& texts,
                                           const Marks& marks = {}) const {
            return HtmlRow(band, "matchsumnormal", texts, marks) + DashRow(band, kPlain, columns);
        }
    };

    void ExpectRows(const Columns& columns, const std::string& rows) {
        CHtmlBuilder page(path_);
        EXPECT_TRUE(report.Request.StatementKind == 2 ? AddForeignMatchSection(page, report)
                                                      : AddMatchSection(page, report));
        EXPECT_EQ(Page(), ClosedPage(Top(columns) + rows + kTableFoot + "\r\n"));
    }

    const Layout format1_{kColumnsOfFormat1};
    const Layout format0_{kColumnsOfFormat0};
    const Layout others_{kColumnsOfOthers};
    const Layout foreign_{kForeignColumns};
};

TEST_F(MatchSection, OfNothingIsHeaderAndDashesInTheLayoutOfItsFormat) {
    report.Request.StatementFormat = 1;
    ExpectRows(kColumnsOfFormat1, "");
    report.Request.StatementFormat = 0;
    ExpectRows(kColumnsOfFormat0, "");
    for (const int format : {2, 3, 6, 201, 4, -1}) {
        report.Request.StatementFormat = format;
        ExpectRows(kColumnsOfOthers, "");
    }
    report.Request.StatementKind = 2;
    for (const int format : {0, 1, 2}) {
        report.Request.StatementFormat = format;
        ExpectRows(kForeignColumns, "");
    }
}

TEST_F(MatchSection, Format1ShowsNineColumnsWithoutProfit) {
    report.Request.StatementFormat = 1;
    AddFullTrade(report, "20240102");
    ExpectRows(
        kColumnsOfFormat1,
        format1_.Row("billclr1", {"上期所", "铜2405", "20231229", "买", "平仓", "3", "68,000.0", "1020000", "12.345"}) +
            format1_.Subtotal("billclr1", {"小计", "", "", "", "", "3", "", "1020000.00", "12.35"}));
}

TEST_F(MatchSection, Format1ColoursNoAmount) {
    report.Request.StatementFormat = 1;
    AddTrade(report, {{"TURNOVER", "-5"}, {"POUNDAGE", "-7"}, {"OFFSETPL", "-9"}});
    ExpectRows(kColumnsOfFormat1,
               format1_.Row("billclr1", {"", "", "", "", "", "", "", "-5", "-7"}) +
                   format1_.Subtotal("billclr1", {"小计", "", "", "", "", "0", "", "-5.00", "-7.00"}));
}

TEST_F(MatchSection, Format0ShowsTenColumnsWithProfit) {
    AddFullTrade(report, "20240102");
    ExpectRows(kColumnsOfFormat0,
               format0_.Row("billclr1",
                            {"上期所", "铜2405", "20231229", "买", "平仓", "3", "68,000.0", "1020000", "250", "12.345"},
                            {{kProfitColumn, "matchspanbid"}}) +
                   format0_.Subtotal("billclr1", {"小计", "", "", "", "", "3", "", "1020000.00", "250.00", "12.35"},
                                     {{kProfitColumn, "matchsumbid"}}));
}

TEST_F(MatchSection, OtherFormatsShowElevenColumnsWithTheTradeNumber) {
    for (const int format : {2, 3, 6, 201}) {
        report.MatchStore.Clear();
        report.Request.StatementFormat = format;
        AddFullTrade(report, "20240102");
        ExpectRows(
            kColumnsOfOthers,
            others_.Row(
                "billclr1",
                {"上期所", "铜2405", "20231229", "买", "平仓", "3", "68,000.0", "1020000", "250", "12.345", "00042"},
                {{kProfitColumn, "matchspanbid"}}) +
                others_.Subtotal("billclr1", {"小计", "", "", "", "", "3", "", "1020000.00", "250.00", "12.35", ""},
                                 {{kProfitColumn, "matchsumbid"}}));
    }
}

TEST_F(MatchSection, ForeignFormShowsEightColumnsWithTheCurrency) {
    report.Request.StatementKind = 2;
    for (const int format : {0, 1, 2}) {
        report.MatchStore.Clear();
        report.Request.StatementFormat = format;
        AddFullTrade(report, "20240102");
        ExpectRows(kForeignColumns,
                   foreign_.Row("billclr1", {"上期所", "铜2405", "20231229", "买", "3", "68,000.0", "12.345", "USD"}) +
                       foreign_.Subtotal("billclr1", {"小计", "", "", "", "3", "", "12.35", ""}));
    }
}

TEST_F(MatchSection, OpeningTradesHaveNoProfit) {
    AddTrade(report, {{"OFFSET", "开"}, {"OFFSETPL", "100"}});
    AddTrade(report, {{"OFFSET", " 开仓"}, {"OFFSETPL", "-100"}});
    AddTrade(report, {{"OFFSET", "平"}, {"OFFSETPL", "-7.5"}});
    AddTrade(report, {{"OFFSETPL", "2.5"}});
    ExpectRows(
        kColumnsOfFormat0,
        format0_.Row("billclr1", {"", "", "", "", "开", "", "", "", "", ""}) +
            format0_.Row("billclr1", {"", "", "", "", " 开仓", "", "", "", "", ""}) +
            format0_.Row("billclr1", {"", "", "", "", "平", "", "", "", "-7.5", ""},
                         {{kProfitColumn, "matchspanask"}}) +
            format0_.Row("billclr1", {"", "", "", "", "", "", "", "", "2.5", ""}, {{kProfitColumn, "matchspanbid"}}) +
            format0_.Subtotal("billclr1", {"小计", "", "", "", "", "0", "", "0.00", "-5.00", "0.00"},
                              {{kProfitColumn, "matchsumask"}}));
}

TEST_F(MatchSection, AProfitOfZeroIsBlack) {
    AddTrade(report, {{"OFFSET", "平"}, {"OFFSETPL", "0"}});
    AddTrade(report, {{"OFFSET", "平"}, {"OFFSETPL", "-0.00"}});
    AddTrade(report, {{"OFFSET", "平"}, {"OFFSETPL", "--"}});
    ExpectRows(kColumnsOfFormat0,
               format0_.Row("billclr1", {"", "", "", "", "平", "", "", "", "0", ""}) +
                   format0_.Row("billclr1", {"", "", "", "", "平", "", "", "", "-0.00", ""}) +
                   format0_.Row("billclr1", {"", "", "", "", "平", "", "", "", "--", ""}) +
                   format0_.Subtotal("billclr1", {"小计", "", "", "", "", "0", "", "0.00", "0.00", "0.00"}));
}

TEST_F(MatchSection, GivesEachDayABandAndFreshSums) {
    const auto trade = [this](std::string_view day, std::string_view lots, std::string_view profit) {
        AddTrade(
            report,
            {{"BILL_DATE", day}, {"MATCH_VOL", lots}, {"TURNOVER", "1.5"}, {"POUNDAGE", "2"}, {"OFFSETPL", profit}});
    };
    trade("20240102", "1", "10");
    trade("20240102", "2", "-30");
    trade("20240103", "4", "5");
    trade("20240102", "8", "");
    const Marks red = {{kProfitColumn, "matchspanbid"}};
    const Marks green = {{kProfitColumn, "matchspanask"}};
    ExpectRows(kColumnsOfFormat0,
               format0_.Row("billclr1", {"", "", "", "", "", "1", "", "1.5", "10", "2"}, red) +
                   format0_.Row("billclr1", {"", "", "", "", "", "2", "", "1.5", "-30", "2"}, green) +
                   format0_.Subtotal("billclr1", {"小计", "", "", "", "", "3", "", "3.00", "-20.00", "4.00"},
                                     {{kProfitColumn, "matchsumask"}}) +
                   format0_.Row("billclr2", {"", "", "", "", "", "4", "", "1.5", "5", "2"}, red) +
                   format0_.Subtotal("billclr2", {"小计", "", "", "", "", "4", "", "1.50", "5.00", "2.00"},
                                     {{kProfitColumn, "matchsumbid"}}) +
                   format0_.Row("billclr1", {"", "", "", "", "", "8", "", "1.5", "", "2"}) +
                   format0_.Subtotal("billclr1", {"小计", "", "", "", "", "8", "", "1.50", "0.00", "2.00"}));
}

TEST_F(MatchSection, GivesForeignDaysFreshSumsToo) {
    report.Request.StatementKind = 2;
    AddTrade(report, {{"BILL_DATE", "1"}, {"MATCH_VOL", "1"}, {"POUNDAGE", "1.25"}, {"CURRENCY", "USD"}});
    AddTrade(report, {{"BILL_DATE", "1"}, {"MATCH_VOL", "2"}, {"POUNDAGE", "200"}, {"CURRENCY", "JPY"}});
    AddTrade(report, {{"BILL_DATE", "2"}, {"MATCH_VOL", "4"}, {"POUNDAGE", "-3"}, {"CURRENCY", "USD"}});
    ExpectRows(kForeignColumns, foreign_.Row("billclr1", {"", "", "", "", "1", "", "1.25", "USD"}) +
                                    foreign_.Row("billclr1", {"", "", "", "", "2", "", "200", "JPY"}) +
                                    foreign_.Subtotal("billclr1", {"小计", "", "", "", "3", "", "201.25", ""}) +
                                    foreign_.Row("billclr2", {"", "", "", "", "4", "", "-3", "USD"}) +
                                    foreign_.Subtotal("billclr2", {"小计", "", "", "", "4", "", "-3.00", ""}));
}

TEST_F(MatchSection, FirstRecordOpensAGroupEvenWithoutADay) {
    report.Request.StatementFormat = 1;
    AddTrade(report, {{"MATCH_VOL", "1"}});
    AddTrade(report, {{"BILL_DATE", "20240102"}, {"MATCH_VOL", "2"}});
    ExpectRows(kColumnsOfFormat1, format1_.Row("billclr1", {"", "", "", "", "", "1", "", "", ""}) +
                                      format1_.Subtotal("billclr1", {"小计", "", "", "", "", "1", "", "0.00", "0.00"}) +
                                      format1_.Row("billclr2", {"", "", "", "", "", "2", "", "", ""}) +
                                      format1_.Subtotal("billclr2", {"小计", "", "", "", "", "2", "", "0.00", "0.00"}));
}

TEST_F(MatchSection, CountsLotsByTheirWholePart) {
    report.Request.StatementFormat = 1;
    AddTrade(report, {{"MATCH_VOL", "2.9"}});
    AddTrade(report, {{"MATCH_VOL", " 3手"}});
    AddTrade(report, {{"MATCH_VOL", "x4"}});
    ExpectRows(kColumnsOfFormat1, format1_.Row("billclr1", {"", "", "", "", "", "2.9", "", "", ""}) +
                                      format1_.Row("billclr1", {"", "", "", "", "", " 3手", "", "", ""}) +
                                      format1_.Row("billclr1", {"", "", "", "", "", "x4", "", "", ""}) +
                                      format1_.Subtotal("billclr1", {"小计", "", "", "", "", "5", "", "0.00", "0.00"}));
}

TEST_F(MatchSection, TrimsTheFrontOfExchangeAndContract) {
    report.Request.StatementFormat = 1;
    AddTrade(report, {{"EXCH_NAME", " \t　　上期所 "}, {"CONTRACT", "　cu "}, {"DELIVERY", "2405"}});
    report.Request.StatementKind = 2;
    ExpectRows(kForeignColumns, foreign_.Row("billclr1", {"上期所 ", "cu 2405", "", "", "", "", "", ""}) +
                                    foreign_.Subtotal("billclr1", {"小计", "", "", "", "0", "", "0.00", ""}));
    report.Request.StatementKind = 1;
    ExpectRows(kColumnsOfFormat1, format1_.Row("billclr1", {"上期所 ", "cu 2405", "", "", "", "", "", "", ""}) +
                                      format1_.Subtotal("billclr1", {"小计", "", "", "", "", "0", "", "0.00", "0.00"}));
}

TEST_F(MatchSection, TakesThePageWidth) {
    report.ReportDocument.PageWidth = 801;
    CHtmlBuilder page(path_);
    EXPECT_TRUE(AddMatchSection(page, report));
    EXPECT_NE(Page().find("<table width = \"801\" style=\"table-layout: fixed;\" cellspacing = \"0\" border=\"0\" "
                          "id= \"tabMatch\">\r\n"),
              std::string::npos);
}

}  // namespace
}  // namespace tradebill::match_section_test
