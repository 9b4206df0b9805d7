// Use of margin, and what is held in the end.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/analysed_account.h"
#include "analysis/margin_results.h"
#include "analysis/margin_use.h"
#include "analysis/open_positions.h"
#include "analysis/position_rows.h"
#include "report/request_copy.h"

namespace tradebill::margin_test {
namespace {

class Margin : public AnalysedAccount {
protected:
    void AddUse(std::string_view day, std::string_view equity, std::string_view margin) {
        AddRecord(Money(day, {{"KHQY", equity}, {"CRJ", "0"}, {"BZJZY", margin}}));
    }
    void AddOpen(std::string_view day, std::string_view contract, std::string_view side, std::string_view lots,
                 std::string_view openDay, std::string_view deposit, std::string_view floating = "0.00") {
        report.OpiDetailStore.Add() = Open({{"BILL_DATE", day},
                                            {"CONTRACT", contract},
                                            {"BID", Gbk(side)},
                                            {"POSITION_VOL", lots},
                                            {"OPEN_DATE", openDay},
                                            {"FLOATPL", floating},
                                            {"DEPOSIT", deposit}});
    }
    void AddSum(std::string_view day, std::string_view contract, std::string_view side, std::string_view lots,
                std::string_view deposit, std::string_view profit = "1.00") {
        report.OpiSumStore.Add() = OpenSum({{"BILL_DATE", day},
                                            {"CONTRACT", contract},
                                            {"BID", Gbk(side)},
                                            {"POSITION_VOL", lots},
                                            {"DSYK", profit},
                                            {"DEPOSIT", deposit}});
    }
};

TEST_F(Margin, IsUsedByDays) {
    AddUse("20240102", "100", "50");   // not above 50 %
    AddUse("20240103", "100", "80");   // above 50 %
    AddUse("20240104", "100", "100");  // above 80 %
    AddUse("20240105", "100", "110");
    AddUse("20240108", "0", "10");  // no use
    const MarginResult margin = Analysed().margin;
    EXPECT_NEAR(*margin.mean, 0.85, 1e-15);  // 3.4 / 4
    EXPECT_EQ(margin.max, 1.1);
    EXPECT_EQ(margin.above50, 3);
    EXPECT_EQ(margin.above80, 2);
    EXPECT_EQ(margin.above100, 1);
}

TEST_F(Margin, OfNoDayIsNull) {
    const Analysis analysis = Analysed();
    EXPECT_EQ(analysis.margin.mean, std::nullopt);
    EXPECT_EQ(ReasonOf(analysis, "margin.mean"), "no day has margin and an equity above 0");
    EXPECT_EQ(ReasonOf(analysis, "margin.max"), "no day has margin and an equity above 0");
}

TEST_F(Margin, OfAProductIsThatOfBothItsSidesDayByDay) {
    AddUse("20240102", "1000", "400");
    AddUse("20240103", "400", "300");
    AddUse("20240104", "1000", "100");
    AddOpen("20240102", "rb2405", "买", "1", "20240102", "100.00");
    AddOpen("20240102", "rb2410", "卖", "1", "20240102", "200.00");
    AddOpen("20240102", "m2405", "买", "1", "20240102", "100.00");
    AddOpen("20240103", "rb2405", "买", "1", "20240102", "200.00");
    AddOpen("20240103", "m2405", "买", "1", "20240102", "50.00");
    AddOpen("20240103", "m2405-C-3200", "买", "1", "20240102", "50.00");
    AddOpen("20240104", "cu2405", "买", "1", "20240104", "0.00");
    const MarginResult result = Analysed().margin;
    const auto& margins = result.products;
    ASSERT_EQ(margins.size(), 2U);  // copper ties up nothing
    EXPECT_EQ(margins[0].product, "rb");
    EXPECT_EQ(margins[0].days, 2);
    EXPECT_EQ(margins[0].mean, 250);  // (100 + 200 + 200) / 2
    EXPECT_EQ(margins[0].max, 300);
    EXPECT_EQ(margins[0].maxDay, "20240102");
    EXPECT_EQ(margins[0].maxUse, 0.5);  // 200 / 400, above 300 / 1000
    EXPECT_EQ(margins[1].product, "m");
    EXPECT_EQ(margins[1].max, 100);
    EXPECT_EQ(margins[1].maxDay, "20240102");  // the first of two
    EXPECT_EQ(margins[1].maxUse, 0.25);
    std::vector<std::string> days;
    for (const ProductMarginDay& day : result.productDays) {
        days.push_back(day.day + " " + day.product + " " + std::to_string(static_cast<int>(day.margin)));
    }
    EXPECT_EQ(days,
              (std::vector<std::string>{"20240102 rb 300", "20240103 rb 200", "20240102 m 100", "20240103 m 100"}));
}

TEST_F(Margin, OfAProductHasNoUseWithoutEquity) {
    AddUse("20240102", "-1", "400");
    AddOpen("20240102", "rb2405", "买", "1", "20240102", "100.00");
    const Analysis analysis = Analysed();
    EXPECT_EQ(analysis.margin.products[0].max, 100);
    EXPECT_EQ(analysis.margin.products[0].maxUse, std::nullopt);
    EXPECT_EQ(ReasonOf(analysis, "margin.products[0].maxUse"), "no day of it has an equity above 0");
}

TEST_F(Margin, OfAForeignProductHasNoUse) {
    report.Request.StatementKind = kForeignKind;
    AddUse("20240102", "1000", "400");
    AddOpen("20240102", "S2403", "买", "1", "20240102", "100.00");
    const Analysis analysis = Analysed();
    ASSERT_EQ(analysis.margin.products.size(), 1U);
    EXPECT_EQ(analysis.margin.products[0].maxUse, std::nullopt);
    EXPECT_EQ(ReasonOf(analysis, "margin.products[0].maxUse"),
              "margin of a foreign account is in its own currency, equity in the base currency");
}

TEST_F(Margin, IsThatOfTheSummaryWhereDetailsStateNone) {
    AddOpen("20240102", "rb2405", "买", "1", "20240102", "");
    AddSum("20240102", "rb2405", "买", "1", "70.00");
    AddOpen("20240103", "rb2405", "买", "1", "20240102", "80.00");
    AddSum("20240103", "rb2405", "买", "1", "999.00");
    const auto margins = Analysed().margin.products;
    ASSERT_EQ(margins.size(), 1U);
    EXPECT_EQ(margins[0].mean, 75);
}

TEST_F(Margin, OfARowThatHoldsBothSidesCountsOnce) {
    AddSum("20240102", "rb2405", "买", "3", "70.00");
    AddSum("20240102", "rb2405", "卖", "3", "70.00");
    AddSum("20240102", "m2405", "买", "1", "30.00");
    AddSum("20240103", "rb2405", "买", "3", "60.00", "5.00");  // rows of their own: their results differ
    AddSum("20240103", "rb2405", "卖", "3", "60.00", "-5.00");
    const auto margins = Analysed().margin.products;
    ASSERT_EQ(margins.size(), 2U);
    EXPECT_EQ(margins[0].max, 120);
    EXPECT_EQ(margins[0].mean, 95);  // (70 + 120) / 2
}

TEST_F(Margin, OfRowsThatDifferInAnythingCountsBoth) {
    for (const char* const field : {"", "EXCH_NAME", "DELIVERY", "YSETTLE_PRICE", "SETTLE_PRICE", "DEPOSIT", "HEDGE"}) {
        report.Clear();
        AddSum("20240102", "rb2405", "买", "3", "70.00");
        const std::string other = *field == '\0' ? "HEDGE" : field;
        report.OpiSumStore.Add() = OpenSum({{"BILL_DATE", "20240102"},
                                            {"CONTRACT", "rb2405"},
                                            {"BID", Gbk("卖")},
                                            {"POSITION_VOL", "3"},
                                            {"DSYK", "1.00"},
                                            {"DEPOSIT", "70.00"},
                                            {other, *field == '\0' ? "" : "70.000"}});
        const auto margins = Analysed().margin.products;
        ASSERT_EQ(margins.size(), 1U) << field;
        EXPECT_EQ(margins[0].max, *field == '\0' ? 70 : 140) << field;
    }
}

TEST_F(Margin, OpenPositionsAreThoseOfTheLastStatement) {
    AddUse("20240105", "1000", "300");
    AddUse("20240108", "1000", "300");
    AddOpen("20240105", "m2405", "买", "1", "20240102", "100.00");
    AddOpen("20240108", "rb2405", "卖", "2", "20240105", "100.50", "-20.00");
    AddOpen("20240108", "cu2405", "买", "1", "", "", "");
    const Analysis analysis = Analysed();
    ASSERT_EQ(analysis.open.size(), 2U);
    const OpenPosition& rebar = analysis.open[0];
    EXPECT_EQ(rebar.contract, "rb2405");
    EXPECT_EQ(rebar.side, "short");
    EXPECT_EQ(rebar.lots, 2);
    EXPECT_EQ(rebar.openDay, "20240105");
    EXPECT_EQ(rebar.daysHeld, 3);
    EXPECT_EQ(rebar.floatPl, -20);
    EXPECT_EQ(rebar.margin, 100.5);
    const OpenPosition& copper = analysis.open[1];
    EXPECT_EQ(copper.side, "long");
    EXPECT_FALSE(copper.openDay || copper.daysHeld || copper.floatPl || copper.margin);
    EXPECT_EQ(ReasonOf(analysis, "open[1].openDay"), "the row doesn't state when it was opened");
    EXPECT_EQ(ReasonOf(analysis, "open[1].daysHeld"), "the row doesn't state when it was opened");
    EXPECT_EQ(ReasonOf(analysis, "open[1].floatPl"), "the row states no floating P/L");
    EXPECT_EQ(ReasonOf(analysis, "open[1].margin"), "the row states no margin of this side alone");
}

TEST_F(Margin, NothingIsOpenWhereTheLastStatementListsNothing) {
    AddUse("20240105", "1000", "300");
    AddOpen("20240105", "m2405", "买", "1", "20240102", "100.00");
    AddUse("20240108", "1000", "0");
    EXPECT_TRUE(Analysed().open.empty());
}

TEST_F(Margin, OpenPositionsOutlastAHostsLiveRecord) {
    AddUse("20240105", "1000", "300");
    AddOpen("20240105", "m2405", "买", "1", "20240102", "100.00");
    AddRecord(Money("20240108", {{"KHQY", "1000"}, {"CRJ", "0"}, {"HOST_POSITION_MARGIN", "5"}}));
    ASSERT_EQ(Analysed().open.size(), 1U);
    EXPECT_EQ(Analysed().open[0].daysHeld, 3);
}

TEST_F(Margin, OpenPositionsAreThoseOfTheSummaryWithoutOthers) {
    AddSum("20240105", "rb2405", "买", "3", "70.00");
    AddSum("20240105", "rb2405", "卖", "2", "70.00");
    AddSum("20240105", "m2405", "买", "1", "30.00");
    const auto open = Analysed().open;
    ASSERT_EQ(open.size(), 3U);
    EXPECT_EQ(open[0].lots, 3);
    EXPECT_EQ(open[0].margin, std::nullopt);  // of both sides together
    EXPECT_EQ(open[1].side, "short");
    EXPECT_EQ(open[1].margin, std::nullopt);
    EXPECT_EQ(open[2].margin, 30);
}

TEST_F(Margin, OpenPositionsHaveTheLotsOfTheirSideWhereRowsShowBoth) {
    const auto add = [&](std::string_view side, std::string_view field, std::string_view lots) {
        report.OpiSumStore.Add() = OpenSum({{"BILL_DATE", "20240105"}, {"BID", Gbk(side)}, {field, lots}});
    };
    add("买", "BID_POSITION_VOL", "9");
    add("卖", "ASK_POSITION_VOL", "4");
    const auto open = Analysed().open;
    ASSERT_EQ(open.size(), 2U);
    EXPECT_EQ(open[0].lots, 9);
    EXPECT_EQ(open[1].lots, 4);
}

TEST_F(Margin, OpenPositionsOfForeignAccountsHaveTheirCurrency) {
    report.Request.StatementKind = kForeignKind;
    AddOpen("20240105", "S2403", "买", "4", "20240105", "", "-1850.00");
    CopyField(report.OpiDetailStore.Rows[0].CURRENCY, "USD");
    const auto open = Analysed().open;
    ASSERT_EQ(open.size(), 1U);
    EXPECT_EQ(open[0].currency, "USD");
    EXPECT_EQ(open[0].floatPl, -1850);
}

}  // namespace
}  // namespace tradebill::margin_test
