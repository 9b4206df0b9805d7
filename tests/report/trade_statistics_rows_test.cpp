// How position rows become the day's net position per product.
#include "report/trade_statistics.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "report/record_makers.h"
#include "support/gbk_text.h"
#include "support/store_fixture.h"

namespace tradebill {
namespace {

constexpr std::string_view kDay = "20240102";

struct LotsRow {
    std::string_view contract;
    std::string_view side;
    std::string_view lots;
    std::string_view margin;
    std::string_view day = kDay;
};

void FeedDetail(const LotsRow& row) {
    TradeStatistics.FeedOpiDetail(Open({{"BILL_DATE", row.day},
                                        {"CONTRACT", row.contract},
                                        {"BID", Gbk(row.side)},
                                        {"POSITION_VOL", row.lots},
                                        {"DEPOSIT", row.margin}}));
}

void FeedSum(const LotsRow& row) {
    TradeStatistics.FeedOpiSum(OpenSum({{"BILL_DATE", row.day},
                                        {"CONTRACT", row.contract},
                                        {"BID", Gbk(row.side)},
                                        {"POSITION_VOL", row.lots},
                                        {"DEPOSIT", row.margin}}));
}

class PositionRows : public StoreFixture {
protected:
    PositionRows() { Request.StatementFormat = 1; }

    static std::vector<std::string> Products(std::string_view day = kDay) {
        std::vector<std::string> products;
        const CDayUsage* const usage = TradeStatistics.DayUsages.Find(day);
        if (usage == nullptr) return {"no day"};
        for (const auto& position : usage->Positions) products.push_back(position->Product);
        return products;
    }
    static ContractPosition Position() {
        const CDayUsage* const usage = TradeStatistics.DayUsages.Find(kDay);
        const bool isThere = usage != nullptr && !usage->Positions.empty();
        EXPECT_TRUE(isThere);
        return isThere ? *usage->Positions.front() : ContractPosition{};
    }
    static void ExpectPosition(std::string_view side, std::int32_t lots, double margin, double unitMargin) {
        const ContractPosition position = Position();
        EXPECT_EQ(position.Side, Gbk(side));
        EXPECT_EQ(position.Lots, lots);
        EXPECT_EQ(position.Margin, margin);
        EXPECT_EQ(position.UnitMargin, unitMargin);
    }
};

TEST_F(PositionRows, OpenAPosition) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        TradeStatistics.Clear();
        feed({"cu1105", "买", "4", "1000"});
        ExpectPosition("买", 4, 1000, 250);
        EXPECT_EQ(Position().Product, "cu");
        EXPECT_EQ(Position().Day, kDay);
        EXPECT_EQ(Position().NetLots, 0);
    }
}

TEST_F(PositionRows, AddUpOnOneSide) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        TradeStatistics.Clear();
        feed({"cu1105", "卖", "4", "1000"});
        feed({"cu1105", "卖", "6", "2000"});
        ExpectPosition("卖", 10, 3000, 300);
    }
}

TEST_F(PositionRows, TakeLotsOfTheOtherSideOffAtTheMeanMarginOfAllLots) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        TradeStatistics.Clear();
        feed({"cu1105", "买", "10", "1000"});
        feed({"cu1105", "卖", "4", "500"});
        ExpectPosition("买", 6, 6 * (1500.0 / 14), 1500.0 / 14);
    }
}

TEST_F(PositionRows, TurnToTheSideOfMoreLots) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        TradeStatistics.Clear();
        feed({"cu1105", "买", "4", "500"});
        feed({"cu1105", "卖", "10", "1000"});
        ExpectPosition("卖", 6, 6 * (1500.0 / 14), 1500.0 / 14);
    }
}

TEST_F(PositionRows, NetOutToNoLotsWithoutMargin) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        TradeStatistics.Clear();
        feed({"cu1105", "买", "5", "500"});
        feed({"cu1106", "卖", "5", "700"});
        ExpectPosition("买", 0, 0, 120);  // the margin per lot stays
        feed({"cu1107", "卖", "2", "90"});
        ExpectPosition("卖", 2, 90, 45);  // afresh
    }
}

TEST_F(PositionRows, OfANewDayDontReachThePositionOfAnother) {
    FeedDetail({"cu1105", "买", "5", "500"});
    FeedDetail({"cu1105", "卖", "2", "90", "20240103"});
    ExpectPosition("买", 5, 500, 100);
    EXPECT_EQ(Products("20240103"), (std::vector<std::string>{"cu"}));
    EXPECT_EQ(TradeStatistics.DayUsages.Days.size(), 2U);
}

TEST_F(PositionRows, OfAllDeliveryMonthsMakeOnePosition) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        TradeStatistics.Clear();
        feed({"rb1105", "买", "1", "10"});
        feed({"al1105", "买", "1", "10"});
        feed({"rb1110", "买", "2", "20"});
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
        TradeStatistics.Clear();
        FeedDetail({row.contract, "买", "1", "10"});
        EXPECT_EQ(Products(), (std::vector<std::string>{row.product}));
        TradeStatistics.Clear();
        FeedSum({row.contract, "买", "1", "10"});
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
        TradeStatistics.Clear();
        FeedDetail({"cu", row.bid, "1", "10"});
        EXPECT_EQ(Position().Side, Gbk(row.detail)) << row.bid;
        TradeStatistics.Clear();
        FeedSum({"cu", row.bid, "1", "10"});
        EXPECT_EQ(Position().Side, Gbk(row.sum)) << row.bid;
    }
}

TEST_F(PositionRows, WithoutLotsLeaveANewPositionWithAMarginOfOne) {
    for (const auto feed : {FeedDetail, FeedSum}) {
        for (const char* const lots : {"0", "-3", "", "x"}) {
            TradeStatistics.Clear();
            feed({"cu1105", "买", lots, "500"});
            EXPECT_EQ(Products(), (std::vector<std::string>{"cu"})) << lots;
            ExpectPosition("", 0, 1, 1);
            EXPECT_EQ(Position().Day, "") << lots;
        }
    }
}

TEST_F(PositionRows, WithoutLotsArePassedOverInSummaries) {
    FeedSum({"cu1105", "买", "10", "1000"});
    for (const char* const lots : {"0", "-3"}) {
        FeedSum({"cu1105", "买", lots, "500"});
        FeedSum({"cu1105", "卖", lots, "500"});
        ExpectPosition("买", 10, 1000, 100);
    }
}

TEST_F(PositionRows, WithoutLotsBringTheirMarginInDetails) {
    FeedDetail({"cu1105", "买", "10", "1000"});
    FeedDetail({"cu1105", "买", "0", "500"});
    ExpectPosition("买", 10, 1500, 150);
    FeedDetail({"cu1105", "卖", "0", "500"});
    ExpectPosition("买", 10, 2000, 200);
    FeedDetail({"cu1105", "买", "-6", "0"});
    ExpectPosition("买", 4, 2000, 500);
}

TEST_F(PositionRows, ThatTakeAllLotsAwayLeaveNoMargin) {
    FeedDetail({"cu1105", "买", "5", "1000"});
    FeedDetail({"cu1105", "买", "-5", "0"});
    EXPECT_EQ(Position().Lots, 0);
    EXPECT_EQ(Position().Margin, 0);
    FeedDetail({"cu1105", "卖", "2", "90"});
    ExpectPosition("卖", 2, 90, 45);
}

TEST_F(PositionRows, KeepTheDayThatOpenedThePosition) {
    FeedDetail({"cu1105", "买", "4", "500", "20240102"});
    FeedDetail({"cu1105", "卖", "10", "1000", "20240102"});
    EXPECT_EQ(Position().Day, "20240102");
    EXPECT_EQ(TradeStatistics.DayUsages.Days.at(0)->Day, "20240102");
}

TEST_F(PositionRows, LeaveTheDaysFiguresAlone) {
    FeedDetail({"cu1105", "买", "4", "500"});
    const CDayUsage& usage = *TradeStatistics.DayUsages.Find(kDay);
    EXPECT_EQ(usage.HasFigures, 0);
    EXPECT_EQ(usage.Margin, 0);
    EXPECT_EQ(usage.Risk, 0);
    TradeStatistics.SetEquity(kDay, 100, 30);
    FeedDetail({"cu1105", "买", "4", "500"});
    EXPECT_EQ(usage.Margin, 30);
    EXPECT_EQ(usage.Risk, 0.3);
    EXPECT_EQ(TradeStatistics.DayUsages.Days.size(), 1U);
}

TEST_F(PositionRows, SurviveLotsAtTheEndsOfTheRange) {
    for (const char* const one : {"99999999999", "-99999999999", "1"}) {
        for (const char* const side : {"买", "卖"}) {
            TradeStatistics.Clear();
            FeedDetail({"cu1105", "买", "99999999999", "1e300"});
            FeedDetail({"cu1105", side, one, "1e308"});
            FeedDetail({"cu1105", side, one, "x"});
            EXPECT_EQ(Products().size(), 1U);
        }
    }
}

std::vector<std::string> namesAsked;

std::int32_t CodeOfCopper(const char* name, char* code) {
    namesAsked.emplace_back(name);
    for (int i = 0; i < 32; ++i) EXPECT_EQ(code[i], '\0');
    if (name == Gbk("铜")) {
        std::strcpy(code, "cu99");
        return 1;
    }
    if (name == Gbk("铝")) {
        std::memset(code, 'a', 32);  // no zero
        return 1;
    }
    std::strcpy(code, "no");
    return 2;
}

class ProductNames : public PositionRows {
protected:
    ProductNames() {
        namesAsked.clear();
        Request.StatementFormat = 0;
        Request.ProductNameCallback = CodeOfCopper;
    }
    static std::string ProductOf(std::string_view contract) {
        TradeStatistics.Clear();
        FeedDetail({contract, "买", "1", "10"});
        return Products().front();
    }
};

TEST_F(ProductNames, BecomeTheHostsCodeUpToItsFirstDigit) {
    EXPECT_EQ(ProductOf(Gbk("铜")), "cu");
    EXPECT_EQ(ProductOf(" " + Gbk("　铜　") + " "), "cu");
    EXPECT_EQ(namesAsked, (std::vector<std::string>{Gbk("铜"), Gbk("铜")}));
}

TEST_F(ProductNames, AreCutAt31BytesWhereTheHostWritesMore) {
    EXPECT_EQ(ProductOf(Gbk("铝")), std::string(31, 'a'));
}

TEST_F(ProductNames, StayWhereTheHostKnowsNoCode) {
    EXPECT_EQ(ProductOf(Gbk("　锌　")), Gbk("锌"));
    EXPECT_EQ(ProductOf("zn1105"), "zn");
    EXPECT_EQ(namesAsked.back(), "zn1105");
}

TEST_F(ProductNames, LoseTheirBlanksWithoutAHostToo) {
    Request.ProductNameCallback = nullptr;
    EXPECT_EQ(ProductOf(" " + Gbk("　锌　") + " "), Gbk("锌"));
}

TEST_F(ProductNames, AreAskedForInDetailsOfFormatZeroAlone) {
    FeedSum({Gbk("　铜"), "买", "1", "10"});
    EXPECT_EQ(Products(), (std::vector<std::string>{Gbk("　铜")}));
    for (const std::int32_t format : {1, 2, 3, 6, 201}) {
        Request.StatementFormat = format;
        EXPECT_EQ(ProductOf(Gbk("　铜")), Gbk("　铜")) << format;
    }
    EXPECT_TRUE(namesAsked.empty());
}

}  // namespace
}  // namespace tradebill
