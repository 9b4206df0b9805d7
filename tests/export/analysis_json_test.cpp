// Every figure of an analysis under its name, and why one is null.
#include "export/analysis_json.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "analysis/analysis.h"
#include "export/json_text.h"
#include "support/gbk_text.h"

namespace tradebill::analysis_json_test {
namespace {

using Json = nlohmann::ordered_json;
using Names = std::vector<std::string>;

Json Written(const Analysis& analysis) {
    std::ostringstream out;
    {
        CJsonText json(out);
        WriteAnalysis(json, analysis);
    }
    return Json::parse(out.str());
}

Names KeysOf(const Json& object) {
    Names keys;
    for (const auto& [key, value] : object.items()) keys.push_back(key);
    return keys;
}

bool HasAll(const Json& object, const Names& names) {
    for (const std::string& name : names) {
        if (!object.contains(name)) return false;
    }
    return true;
}

TEST(AnalysisJson, HasItsBlocksInTheirOrder) {
    Analysis analysis;
    analysis.tradingDays = 250;
    const Json json = Written(analysis);
    EXPECT_EQ(KeysOf(json), (Names{"tradingDays", "days", "drawdowns", "months", "years", "weekdays", "streaks",
                                   "distribution", "ratios", "products", "contracts", "sides", "exchanges",
                                   "closedMonths", "concentration", "margin", "open", "cashKinds", "reasons"}));
    EXPECT_EQ(json["tradingDays"], 250);
    EXPECT_EQ(json["days"], Json::array());
    EXPECT_EQ(json["margin"]["products"], Json::array());
    EXPECT_EQ(json["reasons"], Json::object());
}

TEST(AnalysisJson, NamesEveryFigure) {
    Analysis analysis;
    analysis.days.resize(1);
    analysis.drawdowns.resize(1);
    analysis.months.resize(1);
    analysis.years.resize(1);
    analysis.weekdays.resize(1);
    for (auto* const groups : {&analysis.products, &analysis.contracts, &analysis.sides, &analysis.exchanges}) {
        groups->resize(1);
    }
    analysis.margin.products.resize(1);
    analysis.open.resize(1);
    const Json json = Written(analysis);
    EXPECT_TRUE(HasAll(json["days"][0],
                       {"day", "pl", "return", "index", "moneyIndex", "marginUse", "fees", "turnover", "lots"}));
    EXPECT_TRUE(HasAll(json["drawdowns"][0],
                       {"peak", "valley", "recovery", "depth", "money", "daysDown", "daysUp", "calendarDays"}));
    EXPECT_TRUE(HasAll(json["months"][0], {"month", "return", "pl", "fees", "bestDay", "worstDay"}));
    EXPECT_TRUE(HasAll(json["years"][0], {"year", "return", "pl", "fees", "bestDay", "worstDay"}));
    EXPECT_TRUE(HasAll(json["weekdays"][0], {"weekday", "days", "return", "pl", "fees", "bestDay", "worstDay"}));
    EXPECT_TRUE(HasAll(json["streaks"], {"longestWin", "longestLoss"}));
    EXPECT_TRUE(HasAll(json["distribution"], {"mean", "deviation", "skewness", "kurtosis", "quantile5"}));
    EXPECT_TRUE(HasAll(json["ratios"], {"annualReturn", "volatility", "sharpe", "sortino", "calmar", "timeUnderWater",
                                        "moneyWeightedReturn"}));
    const Names figures = {"count",           "lots",          "pl",         "statedPl",    "wins",
                           "losses",          "flats",         "winRate",    "averageWin",  "averageLoss",
                           "profitFactor",    "expectancy",    "largestWin", "largestLoss", "medianHoldingDays",
                           "meanHoldingDays", "intradayShare", "fees",       "turnover",    "currency"};
    for (const auto& [list, key] :
         {std::pair{"products", "product"}, {"contracts", "contract"}, {"sides", "side"}, {"exchanges", "exchange"}}) {
        EXPECT_TRUE(json[list][0].contains(key)) << list;
        EXPECT_TRUE(HasAll(json[list][0], figures)) << list;
    }
    EXPECT_TRUE(HasAll(json["margin"], {"mean", "max", "above50", "above80", "above100", "products"}));
    EXPECT_TRUE(HasAll(json["margin"]["products"][0], {"product", "mean", "max", "maxDay", "maxUse"}));
    EXPECT_TRUE(HasAll(json["open"][0], {"contract", "side", "lots", "openDay", "daysHeld", "floatPl", "margin"}));
}

TEST(AnalysisJson, WritesValuesAsTheyAre) {
    Analysis analysis;
    analysis.days.resize(2);
    analysis.days[0].day = "20240102";
    analysis.days[0].pl = -12.5;
    analysis.days[0].lots = 3;
    analysis.days[1].index = 1.25;
    analysis.products.resize(1);
    analysis.products[0].key = Gbk("螺纹钢");
    analysis.reasons = {{"days[1].pl", "the day states no equity"}, {"ratios.sharpe", "no return"}};
    const Json json = Written(analysis);
    EXPECT_EQ(json["days"][0]["day"], "20240102");
    EXPECT_EQ(json["days"][0]["pl"], -12.5);
    EXPECT_EQ(json["days"][0]["lots"], 3);
    EXPECT_EQ(json["days"][1]["pl"], Json());
    EXPECT_EQ(json["days"][1]["index"], 1.25);
    EXPECT_EQ(json["products"][0]["product"], "螺纹钢");
    EXPECT_EQ(json["reasons"], Json({{"days[1].pl", "the day states no equity"}, {"ratios.sharpe", "no return"}}));
}

}  // namespace
}  // namespace tradebill::analysis_json_test
