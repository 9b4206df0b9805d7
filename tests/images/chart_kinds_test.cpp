// How each of the four charts looks, in both forms.
#include "images/chart_kinds.h"

#include <gtest/gtest.h>

#include <string>

#include "base/text.h"
#include "images/chart_fixture.h"
#include "report/request_copy.h"
#include "support/gbk_text.h"

namespace tradebill::chart_kinds_test {
namespace {

class ChartKinds : public ChartFixture {};

/// What a chart says about its looks, its right axis left aside. Texts are UTF-8.
struct Look {
    const AccountChart* chart;
    const char* graphTitle;
    const char* unitText;
    const char* valueSuffix;
    double valueDivisor;
    std::int32_t decimalDigits;
    std::int32_t titleFontSize;
    std::int32_t topRowMode;
    std::int32_t baseRow;
    std::int32_t rightBorder;
    std::int32_t swatchTitle;
    std::int32_t midLineThick;
    Color lineColor;
    std::int32_t valueGapDivisor;
    std::int32_t labelled;  // in the report: of avoidLabelOverlap and showValues
};

constexpr Look kLooks[] = {
    {&kEquityChart, "权益曲线", "权益", "", 10000.0, 3, 12, 1, 0, 0, 0, 0, 0x000000, 15, 0},
    {&kAccountYieldChart, "账户收益率", "账户收益率", "%", 0.01, 0, 12, 1, 1, 1, 1, 1, 0x007CFE, 15, 0},
    {&kTradeYieldChart, "交易收益率", "交易收益率", "%", 0.01, 0, 12, 1, 1, 1, 1, 1, 0xC48037, 15, 0},
    {&kRealisedChart, "平仓盈亏曲线图", "万元", "", 10000.0, 3, 16, 0, 0, 0, 0, 0, 0x007CFE, 100, 1},
};

void ExpectLook(const CGraph& graph, const Look& look) {
    SCOPED_TRACE(look.graphTitle);
    EXPECT_EQ(graph.graphType, 1);
    EXPECT_EQ(graph.graphAlignment, 1);
    EXPECT_EQ(graph.xAxisAlign, 0);
    EXPECT_EQ(graph.graphHasGridLines, 1);
    EXPECT_EQ(graph.fillArea, 0);
    EXPECT_EQ(graph.lineWidth, 2);
    EXPECT_EQ(graph.tickFontSize, 11);
    EXPECT_EQ(graph.xLabelFontSize, 11);
    EXPECT_EQ(graph.graphTitle, Gbk(look.graphTitle));
    EXPECT_EQ(FieldText(graph.unitText), Gbk(look.unitText));
    EXPECT_EQ(FieldText(graph.valueSuffix), look.valueSuffix);
    EXPECT_EQ(graph.valueDivisor, look.valueDivisor);
    EXPECT_EQ(graph.decimalDigits, look.decimalDigits);
    EXPECT_EQ(graph.titleFontSize, look.titleFontSize);
    EXPECT_EQ(graph.topRowMode, look.topRowMode);
    EXPECT_EQ(graph.baseRow, look.baseRow);
    EXPECT_EQ(graph.rightBorder, look.rightBorder);
    EXPECT_EQ(graph.swatchTitle, look.swatchTitle);
    EXPECT_EQ(graph.midLineThick, look.midLineThick);
    EXPECT_EQ(graph.valueGapDivisor, look.valueGapDivisor);
    ASSERT_EQ(graph.colorList.size(), 1u);
    EXPECT_EQ(graph.colorList.front()->group, 0);
    EXPECT_EQ(graph.colorList.front()->color, look.lineColor);
}

TEST_F(ChartKinds, LookAsTheyShould) {
    for (const Look& look : kLooks) {
        ExpectLook(*Plain(*look.chart), look);
        ExpectLook(*Stretched(*look.chart), look);
    }
}

TEST_F(ChartKinds, ShowValuesAndAllTheirTicksAtLarge) {
    for (const Look& look : kLooks) {
        EXPECT_EQ(Plain(*look.chart)->avoidLabelOverlap, look.labelled) << look.graphTitle;
        EXPECT_EQ(Plain(*look.chart)->showValues, look.labelled) << look.graphTitle;
        EXPECT_EQ(Stretched(*look.chart)->avoidLabelOverlap, 1) << look.graphTitle;
        EXPECT_EQ(Stretched(*look.chart)->showValues, 1) << look.graphTitle;
    }
}

TEST_F(ChartKinds, HaveARightAxisForCapitalUsageAlone) {
    for (const FormSettings* const form : {&kEquityChart.plain, &kEquityChart.stretched}) {
        const auto graph = Filled(kEquityChart, *form);
        EXPECT_EQ(graph->dualAxis, 1);
        EXPECT_EQ(graph->graphTitle2, Gbk("资金使用率"));
        EXPECT_EQ(FieldText(graph->unitText2), Gbk("资金使用率"));
        EXPECT_EQ(FieldText(graph->valueSuffix2), "%");
        EXPECT_EQ(graph->graphType2, 0);
        EXPECT_EQ(graph->legendKind2, 2);
        EXPECT_EQ(graph->color2Low, 0xB0CDA4u);
        EXPECT_EQ(graph->color2High, 0xB3AADDu);
        EXPECT_EQ(graph->valueDivisor2, 0.01);
        EXPECT_EQ(graph->minTick2, 0.0);
        EXPECT_EQ(graph->maxTick2, 1.0);
        EXPECT_EQ(graph->tickSpace2, 0.1);
        EXPECT_EQ(graph->decimalDigits2, 0);
    }
}

TEST_F(ChartKinds, LeaveTheRightAxisOfTheOthersAsANewChartHasIt) {
    const CGraph fresh(kLineGraph);
    for (const AccountChart* const chart : {&kRealisedChart, &kAccountYieldChart, &kTradeYieldChart}) {
        for (const FormSettings* const form : {&chart->plain, &chart->stretched}) {
            const auto graph = Filled(*chart, *form);
            EXPECT_EQ(graph->dualAxis, 0);
            EXPECT_EQ(graph->graphTitle2, "");
            EXPECT_EQ(FieldText(graph->unitText2), FieldText(fresh.unitText2));
            EXPECT_EQ(FieldText(graph->valueSuffix2), "");
            EXPECT_EQ(graph->graphType2, fresh.graphType2);
            EXPECT_EQ(graph->legendKind2, fresh.legendKind2);
            EXPECT_EQ(graph->color2Low, fresh.color2Low);
            EXPECT_EQ(graph->color2High, fresh.color2High);
            EXPECT_EQ(graph->valueDivisor2, fresh.valueDivisor2);
            EXPECT_EQ(graph->tickSpace2, fresh.tickSpace2);
            EXPECT_EQ(graph->decimalDigits2, fresh.decimalDigits2);
        }
    }
}

TEST_F(ChartKinds, WriteNoDecimalsOfLargeEquities) {
    AddDay("20240102", "100000");
    EXPECT_EQ(Plain(kEquityChart)->decimalDigits, 0);  // up to 200000
    EXPECT_EQ(Stretched(kEquityChart)->decimalDigits, 0);
    report.MoneyStore.Clear();
    AddDay("20240102", "99999");
    EXPECT_EQ(Plain(kEquityChart)->decimalDigits, 3);  // up to 100000
    EXPECT_EQ(Stretched(kEquityChart)->decimalDigits, 3);
}

TEST_F(ChartKinds, GrowTheirSmallFontsWithTheResolution) {
    const struct { std::int32_t dpi, height; } cases[] = {{0, 11}, {96, 11}, {120, 14}, {192, 22}};  // at 120: 13.75
    for (const auto& one : cases) {
        report.Request.Dpi = one.dpi;
        for (const Look& look : kLooks) {
            for (const FormSettings* const form : {&look.chart->plain, &look.chart->stretched}) {
                const auto graph = Filled(*look.chart, *form);
                EXPECT_EQ(graph->tickFontSize, one.height) << one.dpi;
                EXPECT_EQ(graph->xLabelFontSize, one.height) << one.dpi;
                EXPECT_EQ(graph->titleFontSize, look.titleFontSize) << one.dpi;
                EXPECT_EQ(graph->dpi, one.dpi);
            }
        }
    }
}

TEST_F(ChartKinds, AreTheSameForTheForeignFamily) {
    AddDay("20240102", "123456");
    report.Request.StatementKind = kForeignKind;
    for (const FormSettings* const form : {&kEquityChart.plain, &kEquityChart.stretched}) {
        const auto graph = Filled(kEquityChart, *form);
        EXPECT_EQ(graph->graphTitle, Gbk("权益曲线"));
        EXPECT_EQ(FieldText(graph->unitText), Gbk("权益"));
        EXPECT_EQ(graph->valueDivisor, 10000.0);
        EXPECT_EQ(graph->maxTick, 200000.0);
    }
}

TEST_F(ChartKinds, HaveTheirSizesAtFixedPlaces) {
    EXPECT_EQ(kEquityChart.ownSize, 0u);
    EXPECT_EQ(kRealisedChart.ownSize, 2u);
    EXPECT_EQ(kAccountYieldChart.ownSize, 4u);
    EXPECT_EQ(kTradeYieldChart.ownSize, 6u);
}

}  // namespace
}  // namespace tradebill::chart_kinds_test
