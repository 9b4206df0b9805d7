// Results of closed positions, group by group.
#include "analysis/closed_groups.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/analysed_account.h"
#include "analysis/closed_results.h"
#include "report/request_copy.h"

namespace tradebill::closed_groups_test {
namespace {

class ClosedGroups : public AnalysedAccount {
protected:
    /// Four rows of rebar at 10 a point, all closed in February: + 200, - 100, 0 and + 60.
    void AddRebar() {
        products.units = {{"rb2405", 10}, {"rb2410", 10}};
        AddClosed({.day = "20240205",
                   .contract = "rb2405",
                   .side = "买",
                   .lots = "2",
                   .openDay = "20240201",
                   .openPrice = "4000",
                   .closePrice = "4010",
                   .stated = "150.00"});  // 2 x 10 x 10
        AddClosed({.day = "20240205",
                   .contract = "rb2405",
                   .side = "卖",
                   .lots = "1",
                   .openDay = "20240205",
                   .openPrice = "4000",
                   .closePrice = "4010",
                   .stated = "-90.00"});  // 1 x -10 x 10
        AddClosed({.day = "20240206",
                   .contract = "rb2410",
                   .side = "买",
                   .lots = "1",
                   .openDay = "20240205",
                   .openPrice = "4000",
                   .closePrice = "4000",
                   .stated = "0.00"});
        AddClosed({.day = "20240206",
                   .contract = "rb2410",
                   .side = "卖",
                   .lots = "3",
                   .openDay = "20240131",
                   .openPrice = "4002",
                   .closePrice = "4000",
                   .stated = "60.00"});  // 3 x 2 x 10
    }
    static std::vector<std::string> Keys(const std::vector<ClosedGroup>& groups) {
        std::vector<std::string> keys;
        for (const ClosedGroup& group : groups) keys.push_back(group.currency + group.key);
        return keys;
    }
    using List = std::vector<std::string>;
};

TEST_F(ClosedGroups, OfAProductHaveAllFiguresOfItsRows) {
    AddRebar();
    const Analysis analysis = Analysed();
    ASSERT_EQ(Keys(analysis.products), (List{"rb"}));
    const ClosedGroup& rebar = analysis.products[0];
    EXPECT_EQ(rebar.count, 4);
    EXPECT_EQ(rebar.lots, 7);
    EXPECT_EQ(rebar.pl, 160);        // 200 - 100 + 0 + 60
    EXPECT_EQ(rebar.statedPl, 120);  // 150 - 90 + 0 + 60
    EXPECT_EQ(rebar.wins, 2);
    EXPECT_EQ(rebar.losses, 1);
    EXPECT_EQ(rebar.flats, 1);
    EXPECT_EQ(rebar.winRate, 0.5);
    EXPECT_EQ(rebar.averageWin, 130);  // (200 + 60) / 2
    EXPECT_EQ(rebar.averageLoss, -100);
    EXPECT_EQ(rebar.profitFactor, 2.6);  // 260 / 100
    EXPECT_EQ(rebar.expectancy, 40);     // 160 / 4
    EXPECT_EQ(rebar.largestWin, 200);
    EXPECT_EQ(rebar.largestLoss, -100);
    EXPECT_EQ(rebar.medianHoldingDays, 2.5);  // of 4, 0, 1, 6
    EXPECT_EQ(rebar.meanHoldingDays, 2.75);   // 11 / 4
    EXPECT_EQ(rebar.intradayShare, 0.25);
    EXPECT_EQ(rebar.turnover, 280300);  // 10 x (2 x 4010 + 4010 + 4000 + 3 x 4000)
}

TEST_F(ClosedGroups, AreThoseOfContractsSidesExchangesAndMonths) {
    AddRebar();
    AddClosed({.day = "20240102",
               .contract = "m2405",
               .side = "买",
               .lots = "1",
               .openDay = "20240102",
               .openPrice = "3000",
               .closePrice = "2995",
               .exchange = "大商所"});  // - 5
    AddTrade({"20240205", "rb2405", "1", "1", "0", "上期所"});
    const Analysis analysis = Analysed();
    EXPECT_EQ(Keys(analysis.products), (List{"m", "rb"}));
    EXPECT_EQ(Keys(analysis.contracts), (List{"m2405", "rb2410", "rb2405"}));       // - 5, 60, 100
    EXPECT_EQ(Keys(analysis.sides), (List{"short", "long"}));                       // - 40, 195
    EXPECT_EQ(Keys(analysis.exchanges), (List{Gbk("大商所"), "", Gbk("上期所")}));  // - 5, 60, 100
    EXPECT_EQ(Keys(analysis.closedMonths), (List{"202401", "202402"}));
    EXPECT_EQ(analysis.sides[0].pl, -40);  // - 100 + 60
    EXPECT_EQ(analysis.sides[1].count, 3);
    EXPECT_EQ(analysis.closedMonths[1].pl, 160);
}

TEST_F(ClosedGroups, ComeWorstFirst) {
    for (const char* const contract : {"c2405", "a2405", "b2405"}) {
        AddClosed({.day = "20240102",
                   .contract = contract,
                   .side = "买",
                   .lots = "1",
                   .openDay = "20240102",
                   .openPrice = contract == std::string_view("b2405") ? "20" : "10",
                   .closePrice = "15"});
    }
    EXPECT_EQ(Keys(Analysed().products), (List{"b", "a", "c"}));  // - 5, 5, 5: equal ones by their key
}

TEST_F(ClosedGroups, LeaveOutRowsWithoutASide) {
    AddClosed({.day = "20240102",
               .contract = "m2405",
               .side = "",
               .lots = "1",
               .openDay = "20240102",
               .openPrice = "3000",
               .closePrice = "2995"});
    EXPECT_TRUE(Analysed().products.empty());
    EXPECT_TRUE(Analysed().concentration.empty());
}

TEST_F(ClosedGroups, TellWhyFiguresAreNull) {
    AddClosed({.day = "20240102",
               .contract = "m2405",
               .side = "买",
               .lots = "1",
               .openDay = "--",
               .openPrice = "3000",
               .closePrice = "2995",
               .stated = ""});
    AddClosed({.day = "20240102",
               .contract = "c2405",
               .side = "买",
               .lots = "1",
               .openDay = "",
               .openPrice = "3000",
               .closePrice = "3005",
               .stated = "5"});
    const Analysis analysis = Analysed();
    ASSERT_EQ(Keys(analysis.products), (List{"m", "c"}));
    const ClosedGroup& lost = analysis.products[0];
    EXPECT_FALSE(lost.statedPl || lost.averageWin || lost.largestWin || lost.medianHoldingDays ||
                 lost.meanHoldingDays || lost.intradayShare || lost.fees);
    EXPECT_EQ(lost.profitFactor, 0);
    const ClosedGroup& won = analysis.products[1];
    EXPECT_FALSE(won.averageLoss || won.largestLoss || won.profitFactor);
    EXPECT_EQ(ReasonOf(analysis, "products[0].statedPl"), "a row states no P/L");
    EXPECT_EQ(ReasonOf(analysis, "products[0].averageWin"), "there is no win");
    EXPECT_EQ(ReasonOf(analysis, "products[0].intradayShare"), "no row states when it was opened");
    EXPECT_EQ(ReasonOf(analysis, "products[0].fees"), "no trade of the days of opening and closing is known");
    EXPECT_EQ(ReasonOf(analysis, "products[1].profitFactor"), "there is no loss");
}

TEST_F(ClosedGroups, TakeTheDayOfTheClosingWhereTheStatementNamesNone) {
    PingDetail& row = report.PingDetailStore.Add();
    row = Closed({{"MATCH_DATE", "20240205"}, {"OPEN_DATE", "2024-02-01"}, {"CONTRACT", "m2405"}, {"BID", Gbk("买")}});
    const Analysis analysis = Analysed();
    EXPECT_EQ(Keys(analysis.closedMonths), (List{"202402"}));
    EXPECT_EQ(analysis.products[0].meanHoldingDays, 4);
}

TEST_F(ClosedGroups, PayFeesForClosingAndOpening) {
    AddTrade({"20240102", "rb2405", "4", "8.00"});  // 2 a lot
    AddTrade({"20240103", "rb2405", "3", "9.00"});  // 3 a lot
    AddClosed({.day = "20240103",
               .contract = "rb2405",
               .side = "买",
               .lots = "2",
               .openDay = "20240102",
               .openPrice = "1",
               .closePrice = "1"});
    AddClosed({.day = "20240103",
               .contract = "rb2405",
               .side = "卖",
               .lots = "1",
               .openDay = "20240103",
               .openPrice = "1",
               .closePrice = "1"});
    const ClosedGroup both = Analysed().products[0];
    EXPECT_EQ(both.fees, 16);  // 2 x (3 + 2) + 1 x (3 + 3)
    EXPECT_EQ(both.lotsWithoutFees, 0);
}

TEST_F(ClosedGroups, CountLotsWhoseFeesArentAllKnown) {
    AddTrade({"20240103", "rb2405", "3", "9.00"});
    AddClosed({.day = "20240103",
               .contract = "rb2405",
               .side = "买",
               .lots = "2",
               .openDay = "20231229",
               .openPrice = "1",
               .closePrice = "1"});
    const ClosedGroup half = Analysed().products[0];
    EXPECT_EQ(half.fees, 6);  // of the closing alone
    EXPECT_EQ(half.lotsWithoutFees, 2);
}

TEST_F(ClosedGroups, JoinOptionsToTheirFutureAndNamesToTheirCode) {
    report.Request.StatementFormat = 0;
    products.codes = {{Gbk("豆粕"), "m"}};
    for (const char* const contract : {"豆粕", "豆粕P3000"}) {
        AddClosed({.day = "20240102",
                   .contract = contract,
                   .side = "买",
                   .lots = "1",
                   .openDay = "20240102",
                   .openPrice = "10",
                   .closePrice = "11",
                   .delivery = "2405"});
    }
    const Analysis analysis = Analysed();
    ASSERT_EQ(Keys(analysis.products), (List{"m"}));
    EXPECT_EQ(analysis.products[0].name, Gbk("豆粕"));
    EXPECT_EQ(analysis.products[0].count, 2);
    EXPECT_EQ(Keys(analysis.contracts), (List{Gbk("豆粕2405"), Gbk("豆粕P30002405")}));
}

TEST_F(ClosedGroups, ConcentrateOnTheFiveLargest) {
    // 60 50 40 30 20 and 10, of either sign: 200 of 210
    const char* const prices[] = {"40", "150", "60", "130", "80", "110"};
    const char* const contracts[] = {"a1", "b1", "c1", "d1", "e1", "e2"};
    for (std::size_t i = 0; i < std::size(prices); ++i) {
        AddClosed({.day = "20240102",
                   .contract = contracts[i],
                   .side = "买",
                   .lots = "1",
                   .openDay = "20240102",
                   .openPrice = "100",
                   .closePrice = prices[i]});
    }
    const Analysis analysis = Analysed();
    ASSERT_EQ(analysis.concentration.size(), 1U);
    EXPECT_NEAR(*analysis.concentration[0].rows, 200.0 / 210, 1e-15);
    EXPECT_NEAR(*analysis.concentration[0].contracts, 200.0 / 210, 1e-15);
    EXPECT_EQ(analysis.concentration[0].products, 1);  // e is - 10 now, one of five
}

TEST_F(ClosedGroups, ConcentrateOnNothingWithoutResult) {
    AddClosed({.day = "20240102",
               .contract = "m2405",
               .side = "买",
               .lots = "1",
               .openDay = "20240102",
               .openPrice = "1",
               .closePrice = "1"});
    const Analysis analysis = Analysed();
    EXPECT_EQ(analysis.concentration[0].rows, std::nullopt);
    EXPECT_EQ(ReasonOf(analysis, "concentration[0].products"), "there is neither gain nor loss");
}

class ForeignGroups : public ClosedGroups {
protected:
    ForeignGroups() {
        report.Request.StatementKind = kForeignKind;
        report.Request.StatementFormat = 0;
    }
    void AddForeign(std::string_view contract, std::string_view closingSide, std::string_view stated,
                    std::string_view currency) {
        report.ForeignClosedStore.Add() = Closed({{"BILL_DATE", "20240108"},
                                                  {"OPEN_DATE", "20240105"},
                                                  {"CONTRACT", contract},
                                                  {"BID", Gbk(closingSide)},
                                                  {"MATCH_VOL", "2"},
                                                  {"MATCH_PRICE", "100"},
                                                  {"OFFSETPL", stated},
                                                  {"CURRENCY", currency}});
    }
};

TEST_F(ForeignGroups, AreOfOneCurrencyEach) {
    AddForeign("S2403", "卖", "-50", "USD");
    AddForeign("S2403", "卖", "70", "EUR");
    AddForeign("ES2403", "买", "-80", "USD");
    const Analysis analysis = Analysed();
    EXPECT_EQ(Keys(analysis.products), (List{"EURS", "USDES", "USDS"}));
    EXPECT_EQ(Keys(analysis.sides), (List{"EURlong", "USDshort", "USDlong"}));  // a sale closes what was bought
    EXPECT_EQ(Keys(analysis.closedMonths), (List{"EUR202401", "USD202401"}));
    ASSERT_EQ(analysis.concentration.size(), 2U);
    EXPECT_EQ(analysis.concentration[0].currency, "EUR");
    EXPECT_EQ(analysis.concentration[1].rows, 1);
    const ClosedGroup& soybeans = analysis.products[2];
    EXPECT_EQ(soybeans.lots, 2);
    EXPECT_EQ(soybeans.pl, -50);
    EXPECT_EQ(soybeans.statedPl, -50);
    EXPECT_EQ(soybeans.meanHoldingDays, 3);
    EXPECT_EQ(soybeans.turnover, std::nullopt);
    EXPECT_EQ(ReasonOf(analysis, "products[2].turnover"), "statements of foreign accounts state no turnover");
}

TEST_F(ForeignGroups, HaveTheExchangeOfTheirTrades) {
    AddTrade({"20240108", "S2403", "1", "4", "", "CBOT"});
    AddForeign("S2403", "卖", "-50", "USD");
    EXPECT_EQ(Keys(Analysed().exchanges), (List{"USDCBOT"}));
}

}  // namespace
}  // namespace tradebill::closed_groups_test
