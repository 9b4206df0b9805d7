// Points, labels and scale of charts filled from made-up stores.
#include "images/chart_filling.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "images/chart_fixture.h"
#include "support/time_zone.h"

namespace tradebill::chart_filling_test {
namespace {

using Texts = std::vector<std::string>;
using Values = std::vector<double>;

class ChartFilling : public ChartFixture {};

TEST_F(ChartFilling, PutsTheOpeningEquityAheadOfAllDays) {
    SetDays("2024-1-1", "2024-1-5");
    report.MoneyStore.Add(CopyOf(Money("20240102", {{"QCQY", "9000"}, {"KHQY", "12000"}})), MoneySource::Statement);
    AddDay("20240104", "15000");
    for (const FormSettings* const form : {&kEquityChart.plain, &kEquityChart.stretched}) {
        const auto graph = Filled(kEquityChart, *form);
        EXPECT_EQ(LabelsOf(graph->graphSeries), (Texts{"01/01", "01/02", "01/04"}));  // the first day has no record
        EXPECT_EQ(ValuesOf(graph->graphSeries), (Values{9000, 12000, 15000}));
        EXPECT_EQ(LabelsOf(graph->graphSeries2), (Texts{"01/02", "01/04"}));
        EXPECT_EQ(graph->seriesSize, 1);
        EXPECT_EQ(graph->seriesSize2, 1);
    }
}

TEST_F(ChartFilling, LabelsTheOpeningLikeTheFirstDay) {
    SetDays("2024-1-2", "2024-1-5");
    AddDay("20240102", "12000");
    const auto graph = Plain(kEquityChart);  // one day of statements: two points
    EXPECT_EQ(LabelsOf(graph->graphSeries), (Texts{"01/02", "01/02"}));
    EXPECT_EQ(LabelsOf(Plain(kAccountYieldChart)->graphSeries), (Texts{"01/02"}));
    EXPECT_EQ(LabelsOf(Plain(kTradeYieldChart)->graphSeries), (Texts{"01/02"}));
    EXPECT_EQ(LabelsOf(Plain(kRealisedChart)->graphSeries), (Texts{"01/02"}));
}

TEST_F(ChartFilling, KeepsTheOpeningIfNoRecordFallsIntoTheRange) {
    SetDays("2024-3-1", "2024-3-5");
    AddDay("20240229", "12000");
    AddDay("20240306", "13000");
    const auto graph = Plain(kEquityChart);
    EXPECT_EQ(LabelsOf(graph->graphSeries), (Texts{"03/01"}));
    EXPECT_EQ(ValuesOf(graph->graphSeries), (Values{12000}));
    EXPECT_TRUE(graph->graphSeries2.empty());
    for (const AccountChart* const chart : {&kRealisedChart, &kAccountYieldChart, &kTradeYieldChart}) {
        EXPECT_TRUE(Plain(*chart)->graphSeries.empty());
        EXPECT_EQ(Plain(*chart)->seriesSize, 0);
    }
}

TEST_F(ChartFilling, ShowsEachDaysShareOfCapitalInUse) {
    AddDay("20240102", "12000");
    AddDay("20240103", "12000");
    AddDay("20240104", "12000");
    SetRisk("20240102", 0.25);
    SetRisk("20240104", 0.75);
    for (const FormSettings* const form : {&kEquityChart.plain, &kEquityChart.stretched}) {
        EXPECT_EQ(ValuesOf(Filled(kEquityChart, *form)->graphSeries2), (Values{0.25, 0, 0.75}));
    }
}

TEST_F(ChartFilling, DividesAmountsByTheRateOfTheirDay) {
    AddDay("20240102", "12000", "300", 1.0);
    AddDay("20240103", "12000", "300", 8.0);
    EXPECT_EQ(ValuesOf(Plain(kEquityChart)->graphSeries), (Values{12000, 12000, 1500}));
    EXPECT_EQ(ValuesOf(Stretched(kEquityChart)->graphSeries), (Values{12000, 12000, 1500}));
    EXPECT_EQ(ValuesOf(Plain(kRealisedChart)->graphSeries), (Values{300, 37.5}));
    EXPECT_EQ(ValuesOf(Stretched(kRealisedChart)->graphSeries), (Values{300, 37.5}));
}

TEST_F(ChartFilling, CountsUnreadableAmountsAsNothing) {
    AddDay("20240102", "", "x");
    EXPECT_EQ(ValuesOf(Plain(kEquityChart)->graphSeries), (Values{0, 0}));
    EXPECT_EQ(ValuesOf(Plain(kRealisedChart)->graphSeries), (Values{0}));
}

TEST_F(ChartFilling, PassesOverDaysWithoutRecord) {
    SetDays("2024-1-5", "2024-1-9");  // a weekend in between
    for (const char* const day : {"20240104", "20240105", "20240108", "20240109", "20240110"}) AddDay(day, "12000");
    for (const AccountChart* const chart : {&kRealisedChart, &kAccountYieldChart, &kTradeYieldChart}) {
        EXPECT_EQ(LabelsOf(Plain(*chart)->graphSeries), (Texts{"01/05", "01/08", "01/09"}));
        EXPECT_EQ(LabelsOf(Stretched(*chart)->graphSeries), (Texts{"01/05", "01/08", "01/09"}));
    }
}

TEST_F(ChartFilling, GoesByTheCalendarWhateverTheOrderOfTheRecords) {
    AddDay("20240103", "13000");
    AddDay("20240102", "12000");
    EXPECT_EQ(ValuesOf(Plain(kEquityChart)->graphSeries), (Values{13000, 12000, 13000}));  // the first read opens
}

TEST_F(ChartFilling, NamesTheYearIfTheRangeHasTwo) {
    AddDay("20231229", "12000");
    AddDay("20240102", "12000");
    SetDays("2023-12-29", "2024-1-2");
    for (const AccountChart* const chart : {&kRealisedChart, &kAccountYieldChart, &kTradeYieldChart}) {
        EXPECT_EQ(LabelsOf(Plain(*chart)->graphSeries), (Texts{"2023/12/29", "2024/01/02"}));
        EXPECT_EQ(LabelsOf(Stretched(*chart)->graphSeries), (Texts{"2023/12/29", "2024/01/02"}));
    }
    const auto equity = Plain(kEquityChart);
    EXPECT_EQ(LabelsOf(equity->graphSeries), (Texts{"2023/12/29", "2023/12/29", "2024/01/02"}));
    EXPECT_EQ(LabelsOf(equity->graphSeries2), (Texts{"2023/12/29", "2024/01/02"}));
    SetDays("2023-1-1", "2024-1-1");  // it's the range that counts, not what falls into it
    EXPECT_EQ(LabelsOf(Plain(kRealisedChart)->graphSeries), (Texts{"2023/12/29"}));
    SetDays("2023-1-1", "2023-12-31");
    EXPECT_EQ(LabelsOf(Plain(kRealisedChart)->graphSeries), (Texts{"12/29"}));
}

TEST_F(ChartFilling, ShowsTheYieldOfEachDay) {
    AddDay("20240102", "12000");
    AddDay("20240103", "12000");
    AddDay("20240104", "12000");
    SetYield("20240102", 0.12);
    SetYield("20240104", -0.03);
    for (const FormSettings* const form : {&kAccountYieldChart.plain, &kAccountYieldChart.stretched}) {
        const auto graph = Filled(kAccountYieldChart, *form);
        EXPECT_EQ(ValuesOf(graph->graphSeries), (Values{0.12, 0, -0.03}));
        EXPECT_TRUE(graph->graphSeries2.empty());
        EXPECT_DOUBLE_EQ(graph->maxTick, 0.15);  // 0.12 + 0.015
        EXPECT_DOUBLE_EQ(graph->minTick, -0.15);
        EXPECT_DOUBLE_EQ(graph->tickSpace, 0.03);
        EXPECT_EQ(graph->numTicks, 10);
        EXPECT_EQ(graph->seriesSize, 1);
    }
}

TEST_F(ChartFilling, HoldsTheLastTradingYieldInTheReportAndDropsItAtLarge) {
    const struct {
        const char* day;
        double usage, yield;
        double plain, stretched;
    } cases[] = {
        {"20240102", 0.0, 0.5, 0.0, 0.0},  // nothing to hold yet
        {"20240103", 0.5, 0.125, 0.25, 0.25},
        {"20240104", 0.0, 0.5, 0.25, 0.0},
        {"20240105", 1.1920928955078125e-07, 0.5, 0.25, 0.0},  // not over the limit
        {"20240108", 2.384185791015625e-07, 0.0, 0.0, 0.0},    // over it
        {"20240109", 0.25, -0.125, -0.5, -0.5},
        {"20240110", -0.5, 0.5, -0.5, 0.0},
    };
    Values plain;
    Values stretched;
    for (const auto& one : cases) {
        AddDay(one.day, "12000");
        SetRisk(one.day, one.usage);
        SetYield(one.day, one.yield);
        plain.push_back(one.plain);
        stretched.push_back(one.stretched);
    }
    AddDay("20240111", "12000");  // fed to nobody
    plain.push_back(-0.5);
    stretched.push_back(0.0);
    EXPECT_EQ(ValuesOf(Plain(kTradeYieldChart)->graphSeries), plain);
    EXPECT_EQ(ValuesOf(Stretched(kTradeYieldChart)->graphSeries), stretched);
}

TEST_F(ChartFilling, FindsTheTradingScaleFromWhatIsShown) {
    AddDay("20240102", "12000");
    AddDay("20240103", "12000");
    SetRisk("20240102", 0.5);
    SetYield("20240102", 0.2);  // 0.4; then held, or 0
    SetYield("20240103", 3.0);
    const auto plain = Plain(kTradeYieldChart);
    EXPECT_EQ(ValuesOf(plain->graphSeries), (Values{0.4, 0.4}));
    EXPECT_DOUBLE_EQ(plain->maxTick, 0.45);
    const auto stretched = Stretched(kTradeYieldChart);
    EXPECT_EQ(ValuesOf(stretched->graphSeries), (Values{0.4, 0}));
    EXPECT_DOUBLE_EQ(stretched->maxTick, 0.45);  // 0.44
    EXPECT_DOUBLE_EQ(stretched->minTick, -0.45);
}

TEST_F(ChartFilling, MakesChartsWithoutPointsOfAnEmptyStore) {
    for (const AccountChart* const chart : kAllCharts) {
        for (const FormSettings* const form : {&chart->plain, &chart->stretched}) {
            const auto graph = Filled(*chart, *form);
            EXPECT_TRUE(graph->graphSeries.empty());
            EXPECT_TRUE(graph->graphSeries2.empty());
            EXPECT_EQ(graph->seriesSize, 0);
            EXPECT_EQ(graph->numTicks, 10);
        }
    }
    const auto equity = Plain(kEquityChart);
    EXPECT_EQ(equity->minTick, 0);
    EXPECT_EQ(equity->maxTick, 10000);
    EXPECT_EQ(equity->tickSpace, 1000);
    EXPECT_EQ(equity->decimalDigits, 3);
    const auto yield = Plain(kAccountYieldChart);
    EXPECT_DOUBLE_EQ(yield->minTick, -1.05);
    EXPECT_DOUBLE_EQ(yield->maxTick, 1.05);
    const auto realised = Plain(kRealisedChart);
    EXPECT_EQ(realised->minTick, -0.001);
    EXPECT_EQ(realised->maxTick, 0.001);
}

TEST_F(ChartFilling, FindsTheEquityScaleFromTheStoreNotFromTheRange) {
    report.MoneyStore.Add(CopyOf(Money("20240102", {{"QCQY", "80000"}, {"KHQY", "61000"}})), MoneySource::Statement);
    AddDay("20240301", "48000");  // behind the range
    const auto graph = Plain(kEquityChart);
    EXPECT_EQ(ValuesOf(graph->graphSeries), (Values{80000, 61000}));
    EXPECT_EQ(graph->minTick, 40000);  // 48000 - 3200
    EXPECT_EQ(graph->maxTick, 90000);  // 80000 + 3200
    EXPECT_EQ(graph->tickSpace, 5000);
    EXPECT_EQ(graph->numTicks, 10);
}

TEST_F(ChartFilling, FindsTheRealisedScaleFromTheStore) {
    AddDay("20240102", "12000", "-100");
    AddDay("20240103", "12000", "200");
    for (const FormSettings* const form : {&kRealisedChart.plain, &kRealisedChart.stretched}) {
        const auto graph = Filled(kRealisedChart, *form);
        EXPECT_EQ(ValuesOf(graph->graphSeries), (Values{-100, 200}));
        EXPECT_DOUBLE_EQ(graph->minTick, -120);
        EXPECT_DOUBLE_EQ(graph->maxTick, 240);
        EXPECT_DOUBLE_EQ(graph->tickSpace, 36);
        EXPECT_EQ(graph->numTicks, 10);
    }
}

TEST_F(ChartFilling, LaysTicksOnOneAnotherForAmountsNextToNothing) {
    report.MoneyStore.MinDayPL = report.MoneyStore.MaxDayPL = std::numeric_limits<double>::denorm_min();
    for (const FormSettings* const form : {&kRealisedChart.plain, &kRealisedChart.stretched}) {
        const auto graph = Filled(kRealisedChart, *form);
        EXPECT_EQ(graph->tickSpace, 0);
        EXPECT_EQ(graph->numTicks, 10);
    }
}

TEST_F(ChartFilling, StepsInDaysFromAnyTimeOfDay) {
    AddDay("20240102", "12000", "1");
    AddDay("20240103", "13000", "2");
    report.ReportDays.first += 14 * 3600;  // a report without dates begins and ends now
    report.ReportDays.last = report.ReportDays.first;
    EXPECT_TRUE(Plain(kRealisedChart)->graphSeries.empty());
    report.ReportDays.first = report.ReportDays.last = Days("2024-1-2", "2024-1-2").first + 86399;
    EXPECT_EQ(ValuesOf(Plain(kRealisedChart)->graphSeries), (Values{1}));
    report.ReportDays.last += 86399;  // a second too early for the next step
    EXPECT_EQ(ValuesOf(Plain(kRealisedChart)->graphSeries), (Values{1}));
    report.ReportDays.last += 1;
    EXPECT_EQ(ValuesOf(Plain(kRealisedChart)->graphSeries), (Values{1, 2}));
}

#if !defined(_WIN32)  // where a process has no say in when clocks change
TEST_F(ChartFilling, MeetsADayTwiceThatHasAnHourMore) {
    const CTimeZone zone("EST5EDT,M3.2.0,M11.1.0");
    SetDays("2024-11-2", "2024-11-5");  // clocks go back on the 3rd, so each step behind it ends an hour early
    for (const char* const day : {"20241102", "20241103", "20241104", "20241105"}) AddDay(day, "12000");
    EXPECT_EQ(LabelsOf(Plain(kRealisedChart)->graphSeries), (Texts{"11/02", "11/03", "11/03", "11/04"}));
    report.MoneyStore.Clear();
    AddDay("20241103", "12000");  // steps that can't meet a record make no difference
    EXPECT_EQ(LabelsOf(Plain(kRealisedChart)->graphSeries), (Texts{"11/03", "11/03"}));
    report.MoneyStore.Clear();
    AddDay("20241104", "12000");
    EXPECT_EQ(LabelsOf(Plain(kRealisedChart)->graphSeries), (Texts{"11/04"}));
}
#endif

TEST_F(ChartFilling, FindsItsDaysInTheMiddleOfCenturies) {
    SetDays("1970-1-2", "3000-12-31");
    AddDay("20240102", "12000", "1");
    AddDay("20240103", "12000", "2");
    EXPECT_EQ(LabelsOf(Plain(kRealisedChart)->graphSeries), (Texts{"2024/01/02", "2024/01/03"}));
    EXPECT_EQ(LabelsOf(Plain(kEquityChart)->graphSeries), (Texts{"1970/01/02", "2024/01/02", "2024/01/03"}));
    AddDay("19700102", "12000", "3");
    AddDay("30001231", "12000", "4");
    EXPECT_EQ(ValuesOf(Plain(kRealisedChart)->graphSeries), (Values{3, 1, 2, 4}));
}

TEST_F(ChartFilling, EndsForAnyRange) {
    AddDay("20240102", "12000", "1");
    using Limits = std::numeric_limits<std::time_t>;
    for (const ReportRange range :
         {ReportRange{Limits::min(), Limits::max()}, ReportRange{Limits::min(), Limits::min()},
          ReportRange{Limits::max(), Limits::max()}, ReportRange{Limits::max(), Limits::min()},
          ReportRange{report.ReportDays.last, report.ReportDays.first}}) {
        report.ReportDays = range;
        for (const AccountChart* const chart : kAllCharts) {
            const auto graph = Plain(*chart);
            EXPECT_LE(graph->graphSeries.size(), 2u);
        }
    }
    report.ReportDays = {Limits::min(), Limits::max()};
    EXPECT_EQ(ValuesOf(Plain(kRealisedChart)->graphSeries), (Values{1}));
}

TEST_F(ChartFilling, PassesOverRecordsOfNoDay) {
    for (const char* const day : {"", "2024", "20240000", "20241332", "abcdefgh", "18991231", "99999999"}) {
        AddDay(day, "12000", "7");
    }
    EXPECT_TRUE(Plain(kRealisedChart)->graphSeries.empty());
    AddDay("20240102", "12000", "1");
    EXPECT_EQ(ValuesOf(Plain(kRealisedChart)->graphSeries), (Values{1}));
}

TEST_F(ChartFilling, TakesInfiniteAmountsAsTheyAre) {
    AddDay("20240102", "12000", "-5", 0.0);  // a rate of 0
    const auto equity = Plain(kEquityChart);
    EXPECT_EQ(equity->graphSeries.size(), 2u);
    EXPECT_LT(equity->minTick, equity->maxTick);
    EXPECT_EQ(Plain(kRealisedChart)->numTicks, 10);
}

}  // namespace
}  // namespace tradebill::chart_filling_test
