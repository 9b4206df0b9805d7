// Made-up days of an account, and the charts filled from them.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/day.h"
#include "graph/graph.h"
#include "images/chart_filling.h"
#include "images/chart_kinds.h"
#include "report/record_makers.h"
#include "support/store_fixture.h"

namespace tradebill {

class ChartFixture : public StoreFixture {
protected:
    ChartFixture() { report.ReportDays = Days("2024-1-1", "2024-1-31"); }

    /// A record of `day` (yyyymmdd) with its equity and realised amount.
    void AddDay(std::string_view day, std::string_view equity, std::string_view realised = "0", double rate = 1.0) {
        const MoneyRecord money = Money(day, {{"KHQY", equity}, {"PCYK", realised}, {"QCQY", equity}}, rate);
        report.MoneyStore.Add(CopyOf(money), MoneySource::Statement);
    }
    void SetRisk(std::string_view day, double risk) { report.TradeStatistics.DayUsages.FindOrCreate(day).Risk = risk; }
    void SetYield(std::string_view day, double yield) {
        report.TradeStatistics.DayFigures.FindOrCreate(day).Yield = yield;
    }

    /// A range of the report, from dashed days.
    static ReportRange Days(std::string_view first, std::string_view last) {
        return {MidnightOf(ParseDashedDay(first)), MidnightOf(ParseDashedDay(last))};
    }
    /// The range that charts of the report get, and its texts for those painted again.
    void SetDays(std::string_view first, std::string_view last) {
        report.ReportDays = Days(first, last);
        report.MoneyStore.StartDateText = first;
        report.MoneyStore.EndDateText = last;
    }

    std::unique_ptr<CGraph> Filled(const AccountChart& chart, const FormSettings& form) const {
        auto graph = std::make_unique<CGraph>(kLineGraph);
        FillChart(*graph, report, chart, form, report.ReportDays);
        return graph;
    }
    std::unique_ptr<CGraph> Plain(const AccountChart& chart) const { return Filled(chart, chart.plain); }
    std::unique_ptr<CGraph> Stretched(const AccountChart& chart) const { return Filled(chart, chart.stretched); }

    static std::vector<std::string> LabelsOf(const SeriesList& list) {
        std::vector<std::string> labels;
        for (const auto& series : list) labels.push_back(series->GetLabel());
        return labels;
    }
    static std::vector<double> ValuesOf(const SeriesList& list) {
        std::vector<double> values;
        for (const auto& series : list) {
            EXPECT_EQ(series->dataValues.size(), 1u);
            values.push_back(series->ValueOf(0));
        }
        return values;
    }
};

inline constexpr const AccountChart* kAllCharts[] = {&kEquityChart, &kRealisedChart, &kAccountYieldChart,
                                                     &kTradeYieldChart};

}  // namespace tradebill
