// The four account charts as rows of a table: how each looks, what it shows of a day, how its axis is found, and in
// what the form that is painted again differs from that of the report. chart_filling.h makes charts of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "graph/graph.h"
#include "images/chart_scale.h"
#include "images/chart_values.h"
#include "paint/geometry.h"

namespace tradebill {

/// The right axis, its bars and their swatch.
struct SecondAxisSettings {
    std::string_view title;
    std::string_view unit;
    std::string_view suffix;
    std::int32_t graphType;
    std::int32_t legendKind;
    Color colorLow;
    Color colorHigh;
    double valueDivisor;
    double minTick;
    double maxTick;
    std::int32_t decimals;
};

/// Texts are GBK. What is empty stays as a new chart has it.
struct ChartSettings {
    std::string_view title;
    Color lineColor;
    std::string_view unit = {};
    std::string_view suffix = {};
    std::optional<double> valueDivisor = {};
    std::optional<std::int32_t> decimals = {};
    std::optional<std::int32_t> titleFontSize = {};
    std::optional<std::int32_t> valueGapDivisor = {};
    std::int32_t topRowMode = 0;
    std::int32_t baseRow = 0;
    std::int32_t rightBorder = 0;
    std::int32_t swatchTitle = 0;
    std::int32_t midLineThick = 0;
    std::optional<SecondAxisSettings> second = {};
};

/// In what the two forms of a chart differ.
struct FormSettings {
    std::int32_t avoidLabelOverlap;
    std::int32_t showValues;
    bool holdsLastValue;  ///< a day without a value shows that of the day before it; otherwise 0
};

/// Where a chart's width and height begin in the ChartSizes of a money store.
enum ChartSizeIndex : std::size_t {
    kEquitySize = 0,
    kRealisedSize = 2,
    kAccountYieldSize = 4,
    kTradeYieldSize = 6,
};

using ValueOfDay = std::optional<double>(const ChartDay& day);

struct AccountChart {
    std::string_view name;  ///< for people: ASCII, without blanks
    ChartSettings settings;
    FormSettings plain;      ///< in the report
    FormSettings stretched;  ///< painted again for the host
    ChartSizeIndex ownSize;
    ChartSizeIndex comparedSize;                  ///< whose width the dots of a stretched chart grow with
    std::int32_t (*days)(const CReport& report);  ///< whose number decides the size of the dots
    bool beginsWithOpening;                       ///< a point of the opening equity stands ahead of all days
    ValueOfDay* value;
    ValueOfDay* secondValue;  ///< null without a right axis
    ChartScale (*scale)(const CReport& report, const SeriesList& points);
};

/// All of them, in the order of their sizes in ChartSizes.
[[nodiscard]] std::span<const AccountChart* const> AccountCharts();

/// The chart called `name`, or null.
[[nodiscard]] const AccountChart* FindAccountChart(std::string_view name);

extern const AccountChart kEquityChart;
extern const AccountChart kRealisedChart;
extern const AccountChart kAccountYieldChart;
extern const AccountChart kTradeYieldChart;

}  // namespace tradebill
