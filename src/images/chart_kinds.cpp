#include "images/chart_kinds.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string_view>
#include <tuple>

#include "base/gbk.h"
#include "graph/graph.h"
#include "images/chart_scale.h"
#include "images/chart_values.h"
#include "paint/geometry.h"
#include "report/money_store.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr Color kBlack = 0x000000;
constexpr Color kOrange = 0x007CFE;
constexpr Color kBlue = 0xC48037;

constexpr FormSettings kBare{.avoidLabelOverlap = 0, .showValues = 0, .holdsLastValue = true};
constexpr FormSettings kLabelled{.avoidLabelOverlap = 1, .showValues = 1, .holdsLastValue = true};
constexpr FormSettings kAtLarge{.avoidLabelOverlap = 1, .showValues = 1, .holdsLastValue = false};

ChartScale ScaleOfEquity(const CReport& report, const SeriesList& /*points*/) {
    const CMoneyStore& store = report.MoneyStore;
    return EquityScale(store.OpeningEquity, store.MinEquity, store.MaxEquity);
}

ChartScale ScaleOfRealised(const CReport& report, const SeriesList& /*points*/) {
    return RealisedScale(report.MoneyStore.MinDayPL, report.MoneyStore.MaxDayPL);
}

/// The ends start at 1 and 0, so a yield axis reaches at least from 0 down and from 1 up to what the points show.
ChartScale ScaleOfYields(const CReport& /*report*/, const SeriesList& points) {
    double lowest = 1.0;
    double highest = 0.0;
    for (const auto& point : points) {
        const double value = point->ValueOf(0);
        if (value < lowest) lowest = value;
        if (value > highest) highest = value;
    }
    return YieldScale(lowest, highest);
}

constexpr SecondAxisSettings kCapitalUsage{
    .title = "资金使用率"_gbk,
    .unit = "资金使用率"_gbk,
    .suffix = "%",
    .graphType = 0,
    .legendKind = 2,
    .colorLow = 0xB0CDA4,
    .colorHigh = 0xB3AADD,
    .valueDivisor = 0.01,
    .minTick = 0.0,
    .maxTick = 1.0,
    .decimals = 0,
};

/// Both yield charts look alike but for their name and line.
constexpr ChartSettings YieldSettings(std::string_view title, Color lineColor) {
    return {
        .title = title,
        .lineColor = lineColor,
        .unit = title,
        .suffix = "%",
        .valueDivisor = 0.01,
        .decimals = 0,
        .titleFontSize = 12,
        .topRowMode = 1,
        .baseRow = 1,
        .rightBorder = 1,
        .swatchTitle = 1,
        .midLineThick = 1,
    };
}

}  // namespace

constexpr AccountChart kEquityChart{
    .name = "equity",
    .settings =
        {
            .title = "权益曲线"_gbk,
            .lineColor = kBlack,
            .unit = "权益"_gbk,
            .valueDivisor = 10000.0,
            .titleFontSize = 12,
            .topRowMode = 1,
            .second = kCapitalUsage,
        },
    .plain = kBare,
    .stretched = kAtLarge,
    .ownSize = kEquitySize,
    .comparedSize = kEquitySize,
    .days = MoneyDays,
    .beginsWithOpening = true,
    .value = EquityOf,
    .secondValue = CapitalUsageOf,
    .scale = ScaleOfEquity,
};

constexpr AccountChart kRealisedChart{
    .name = "realised",
    .settings =
        {
            .title = "平仓盈亏曲线图"_gbk,
            .lineColor = kOrange,
            .valueGapDivisor = 100,
        },
    .plain = kLabelled,
    .stretched = kAtLarge,
    .ownSize = kRealisedSize,
    .comparedSize = kEquitySize,
    .days = MoneyDays,
    .beginsWithOpening = false,
    .value = RealisedOf,
    .secondValue = nullptr,
    .scale = ScaleOfRealised,
};

constexpr AccountChart kAccountYieldChart{
    .name = "account-yield",
    .settings = YieldSettings("账户收益率"_gbk, kOrange),
    .plain = kBare,
    .stretched = kAtLarge,
    .ownSize = kAccountYieldSize,
    .comparedSize = kAccountYieldSize,
    .days = UsageDays,
    .beginsWithOpening = false,
    .value = AccountYieldOf,
    .secondValue = nullptr,
    .scale = ScaleOfYields,
};

constexpr AccountChart kTradeYieldChart{
    .name = "trading-yield",
    .settings = YieldSettings("交易收益率"_gbk, kBlue),
    .plain = kBare,
    .stretched = kAtLarge,
    .ownSize = kTradeYieldSize,
    .comparedSize = kAccountYieldSize,
    .days = UsageDays,
    .beginsWithOpening = false,
    .value = TradeYieldOf,
    .secondValue = nullptr,
    .scale = ScaleOfYields,
};

namespace {

constexpr const AccountChart* kCharts[] = {&kEquityChart, &kRealisedChart, &kAccountYieldChart, &kTradeYieldChart};
static_assert(std::ranges::all_of(kCharts, [](const AccountChart* chart) {
    return chart->ownSize + 1 < std::tuple_size_v<ChartSizes> && chart->comparedSize < std::tuple_size_v<ChartSizes>;
}));

}  // namespace

std::span<const AccountChart* const> AccountCharts() {
    return kCharts;
}

const AccountChart* FindAccountChart(std::string_view name) {
    const auto* const found = std::ranges::find(kCharts, name, &AccountChart::name);
    return found != std::end(kCharts) ? *found : nullptr;
}

}  // namespace tradebill
