// How position rows become the day's net position per product.
#include "report/trade_statistics.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "report/product_text.h"
#include "report/record_makers.h"
#include "support/gbk_text.h"

namespace tradebill::trade_statistics_rows_test {
namespace {

constexpr std::string_view kDay = "20240102";

struct LotsRow {
    std::string_view contract;
    std::string_view side;
    std::string_view lots;
    std::string_view margin;
    std::string_view day = kDay;
};

void FeedDetail(CTradeStatistics& statistics, const LotsRow& row) {
    statistics.FeedOpiDetail(Open({{"BILL_DATE", row.day},
                                   {"CONTRACT", row.contract},
                                   {"BID", Gbk(row.side)},
                                   {"POSITION_VOL", row.lots},
                                   {"DEPOSIT", row.margin}}),
                             CProductText(row.contract).View());
}

void FeedSum(CTradeStatistics& statistics, const LotsRow& row) {
    statistics.FeedOpiSum(OpenSum({{"BILL_DATE", row.day},
                                   {"CONTRACT", row.contract},
                                   {"BID", Gbk(row.side)},
                                   {"POSITION_VOL", row.lots},
                                   {"DEPOSIT", row.margin}}),
                          CProductText(row.contract).View());
}

class PositionRows : public testing::Test {
protected:
    std::vector<std::string> Products(std::string_view day = kDay) const {
        std::vector<std::string> products;
        const CDayUsage* const usage = statistics_.DayUsages.Find(day);
        if (usage == nullptr) return {"no day"};
        for (const auto& position : usage->Positions) products.push_back(position->Product);
        return products;
    }
    ContractPosition Position() const {
        const CDayUsage* const usage = statistics_.DayUsages.Find(kDay);
        const bool isThere = usage != nullptr && !usage->Positions.empty();
        EXPECT_TRUE(isThere);
        return isThere ? *usage->Positions.front() : ContractPosition{};
    }
    void ExpectPosition(std::string_view side, std::int32_t lots, double margin, double unitMargin) const {
        const ContractPosition position = Position();
        EXPECT_EQ(position.Side, Gbk(side));
        EXPECT_EQ(position.Lots, lots);
        EXPECT_EQ(position.Margin, margin);
        EXPECT_EQ(position.UnitMargin, unitMargin);
    }

    CTradeStatistics statistics_;
};

TEST_F(PositionRows, OpenAPosition) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        statistics_.Clear();
        feed(statistics_, {"cu1105", "买", "4", "1000"});
        ExpectPosition("买", 4, 1000, 250);
        EXPECT_EQ(Position().Product, "cu");
        EXPECT_EQ(Position().Day, kDay);
        EXPECT_EQ(Position().NetLots, 0);
    }
}

TEST_F(PositionRows, AddUpOnOneSide) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        statistics_.Clear();
        feed(statistics_, {"cu1105", "卖", "4", "1000"});
        feed(statistics_, {"cu1105", "卖", "6", "2000"});
        ExpectPosition("卖", 10, 3000, 300);
    }
}

TEST_F(PositionRows, TakeLotsOfTheOtherSideOffAtTheMeanMarginOfAllLots) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        statistics_.Clear();
        feed(statistics_, {"cu1105", "买", "10", "1000"});
        feed(statistics_, {"cu1105", "卖", "4", "500"});
        ExpectPosition("买", 6, 6 * (1500.0 / 14), 1500.0 / 14);
    }
}

TEST_F(PositionRows, TurnToTheSideOfMoreLots) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        statistics_.Clear();
        feed(statistics_, {"cu1105", "买", "4", "500"});
        feed(statistics_, {"cu1105", "卖", "10", "1000"});
        ExpectPosition("卖", 6, 6 * (1500.0 / 14), 1500.0 / 14);
    }
}

TEST_F(PositionRows, NetOutToNoLotsWithoutMargin) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        statistics_.Clear();
        feed(statistics_, {"cu1105", "买", "5", "500"});
        feed(statistics_, {"cu1106", "卖", "5", "700"});
        ExpectPosition("买", 0, 0, 120);  // the margin per lot stays
        feed(statistics_, {"cu1107", "卖", "2", "90"});
        ExpectPosition("卖", 2, 90, 45);  // afresh
    }
}

TEST_F(PositionRows, OfANewDayDontReachThePositionOfAnother) {
    FeedDetail(statistics_, {"cu1105", "买", "5", "500"});
    FeedDetail(statistics_, {"cu1105", "卖", "2", "90", "20240103"});
    ExpectPosition("买", 5, 500, 100);
    EXPECT_EQ(Products("20240103"), (std::vector<std::string>{"cu"}));
    EXPECT_EQ(statistics_.DayUsages.Days.size(), 2U);
}

TEST(DaySeries, FindsItsDaysInAnyOrder) {
    CDaySeries<DayFigure> series;
    DayFigure& first = series.FindOrCreate("20240102");
    DayFigure& second = series.FindOrCreate("20240103");
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(&series.FindOrCreate("20240102"), &first);
        EXPECT_EQ(&series.FindOrCreate("20240102"), &first);
        EXPECT_EQ(&series.FindOrCreate("20240103"), &second);
    }
    EXPECT_EQ(series.Find("20240102"), &first);
    EXPECT_EQ(series.Find("20240104"), nullptr);
    EXPECT_EQ(series.Days.size(), 2U);
}

TEST(DaySeries, KnowsNoDayAfterClear) {
    CDaySeries<DayFigure> series;
    series.FindOrCreate("20240102").Closing = 5;
    series.Clear();
    EXPECT_EQ(series.Find("20240102"), nullptr);
    EXPECT_EQ(series.FindOrCreate("20240102").Closing, 0);
    EXPECT_EQ(series.Days.size(), 1U);
}

TEST(DayUsage, FindsItsProductsInAnyOrder) {
    CDayUsage usage;
    const auto add = [&usage](std::string_view product) {
        usage.AddRow(product, {.day = "20240102", .side = "x", .lots = 1, .margin = 10, .isSummary = false});
    };
    for (const char* const product : {"cu", "cu", "al", "cu", "al", "al", ""}) add(product);
    ASSERT_EQ(usage.Positions.size(), 3U);
    EXPECT_EQ(usage.Positions[0]->Product, "cu");
    EXPECT_EQ(usage.Positions[0]->Lots, 3);
    EXPECT_EQ(usage.Positions[1]->Product, "al");
    EXPECT_EQ(usage.Positions[1]->Lots, 3);
    EXPECT_EQ(usage.Positions[2]->Product, "");
}

TEST_F(PositionRows, OfAllDeliveryMonthsMakeOnePosition) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        statistics_.Clear();
        feed(statistics_, {"rb1105", "买", "1", "10"});
        feed(statistics_, {"al1105", "买", "1", "10"});
        feed(statistics_, {"rb1110", "买", "2", "20"});
        EXPECT_EQ(Products(), (std::vector<std::string>{"rb", "al"}));
        ExpectPosition("买", 3, 30, 10);
    }
}

TEST_F(PositionRows, CutTheContractAtItsFirstDigit) {
    const std::string longest(31, 'p');
    const struct {
        std::string contract;
        std::string product;
    } cases[] = {
        {"cu", "cu"},
        {"m1501-C-2500", "m"},
        {"1105cu", ""},
        {"", ""},
        {" cu 1105", " cu "},
        {longest, longest},
        {longest + "q", longest},
        {Gbk("铜1105"), Gbk("铜")},
        {Gbk("　铜　"), Gbk("　铜　")},
    };
    for (const auto& row : cases) {
        statistics_.Clear();
        FeedDetail(statistics_, {row.contract, "买", "1", "10"});
        EXPECT_EQ(Products(), (std::vector<std::string>{row.product}));
        statistics_.Clear();
        FeedSum(statistics_, {row.contract, "买", "1", "10"});
        EXPECT_EQ(Products(), (std::vector<std::string>{row.product}));
    }
}

TEST_F(PositionRows, TakeTheirSideFromTheWholeField) {
    const struct {
        const char* bid;
        const char* detail;
        const char* sum;
    } cases[] = {
        {"买", "买", "买"}, {"多", "买", "卖"},  {"卖", "卖", "卖"},   {"空", "卖", "卖"},
        {"", "卖", "卖"},   {" 买", "卖", "卖"}, {"买入", "卖", "卖"},
    };
    for (const auto& row : cases) {
        statistics_.Clear();
        FeedDetail(statistics_, {"cu", row.bid, "1", "10"});
        EXPECT_EQ(Position().Side, Gbk(row.detail)) << row.bid;
        statistics_.Clear();
        FeedSum(statistics_, {"cu", row.bid, "1", "10"});
        EXPECT_EQ(Position().Side, Gbk(row.sum)) << row.bid;
    }
}

TEST_F(PositionRows, WithoutLotsLeaveANewPositionWithAMarginOfOne) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        for (const char* const lots : {"0", "-3", "", "x"}) {
            statistics_.Clear();
            feed(statistics_, {"cu1105", "买", lots, "500"});
            EXPECT_EQ(Products(), (std::vector<std::string>{"cu"})) << lots;
            ExpectPosition("", 0, 1, 1);
            EXPECT_EQ(Position().Day, "") << lots;
        }
    }
}

TEST_F(PositionRows, WithoutLotsArePassedOverInSummaries) {
    FeedSum(statistics_, {"cu1105", "买", "10", "1000"});
    for (const char* const lots : {"0", "-3"}) {
        FeedSum(statistics_, {"cu1105", "买", lots, "500"});
        FeedSum(statistics_, {"cu1105", "卖", lots, "500"});
        ExpectPosition("买", 10, 1000, 100);
    }
}

TEST_F(PositionRows, WithoutLotsBringTheirMarginInDetails) {
    FeedDetail(statistics_, {"cu1105", "买", "10", "1000"});
    FeedDetail(statistics_, {"cu1105", "买", "0", "500"});
    ExpectPosition("买", 10, 1500, 150);
    FeedDetail(statistics_, {"cu1105", "卖", "0", "500"});
    ExpectPosition("买", 10, 2000, 200);
    FeedDetail(statistics_, {"cu1105", "买", "-6", "0"});
    ExpectPosition("买", 4, 2000, 500);
}

TEST_F(PositionRows, ThatTakeAllLotsAwayLeaveNoMargin) {
    FeedDetail(statistics_, {"cu1105", "买", "5", "1000"});
    FeedDetail(statistics_, {"cu1105", "买", "-5", "0"});
    EXPECT_EQ(Position().Lots, 0);
    EXPECT_EQ(Position().Margin, 0);
    FeedDetail(statistics_, {"cu1105", "卖", "2", "90"});
    ExpectPosition("卖", 2, 90, 45);
}

TEST_F(PositionRows, KeepTheDayThatOpenedThePosition) {
    FeedDetail(statistics_, {"cu1105", "买", "4", "500", "20240102"});
    FeedDetail(statistics_, {"cu1105", "卖", "10", "1000", "20240102"});
    EXPECT_EQ(Position().Day, "20240102");
    EXPECT_EQ(statistics_.DayUsages.Days.at(0)->Day, "20240102");
}

TEST_F(PositionRows, LeaveTheDaysFiguresAlone) {
    FeedDetail(statistics_, {"cu1105", "买", "4", "500"});
    const CDayUsage& usage = *statistics_.DayUsages.Find(kDay);
    EXPECT_EQ(usage.HasFigures, 0);
    EXPECT_EQ(usage.Margin, 0);
    EXPECT_EQ(usage.Risk, 0);
    statistics_.SetEquity(kDay, 100, 30);
    FeedDetail(statistics_, {"cu1105", "买", "4", "500"});
    EXPECT_EQ(usage.Margin, 30);
    EXPECT_EQ(usage.Risk, 0.3);
    EXPECT_EQ(statistics_.DayUsages.Days.size(), 1U);
}

TEST_F(PositionRows, SurviveLotsAtTheEndsOfTheRange) {
    for (const char* const one : {"99999999999", "-99999999999", "1"}) {
        for (const char* const side : {"买", "卖"}) {
            statistics_.Clear();
            FeedDetail(statistics_, {"cu1105", "买", "99999999999", "1e300"});
            FeedDetail(statistics_, {"cu1105", side, one, "1e308"});
            FeedDetail(statistics_, {"cu1105", side, one, "x"});
            EXPECT_EQ(Products().size(), 1U);
        }
    }
}

}  // namespace
}  // namespace tradebill::trade_statistics_rows_test
