// The analysis as a whole: its tables of names, its reasons, and that of a report of nothing.
#include "analysis/analysis.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "analysis/analysed_account.h"
#include "analysis/analysis_fields.h"
#include "analysis/null_reasons.h"

namespace tradebill::analysis_test {
namespace {

class AnalysisOf : public AnalysedAccount {
protected:
    /// The paths of all nulls, by the tables.
    static std::vector<std::string> NullPaths(const Analysis& analysis) {
        std::vector<std::string> paths;
        const auto add = [&](const std::string& path, const auto& owner, auto fields) {
            for (const auto& field : fields) {
                if (std::holds_alternative<std::monostate>(field.value(owner))) {
                    paths.push_back(path + "." + std::string(field.name));
                }
            }
        };
        VisitAnalysis(
            analysis,
            [&](std::string_view name, const auto& owner, auto fields) { add(std::string(name), owner, fields); },
            [&](std::string_view name, const auto& rows, auto fields) {
                for (std::size_t i = 0; i < rows.size(); ++i) {
                    add(std::string(name) + "[" + std::to_string(i) + "]", rows[i], fields);
                }
            });
        return paths;
    }
    static void ExpectAReasonForEachNull(const Analysis& analysis) {
        std::vector<std::string> paths;
        for (const NullReason& reason : analysis.reasons) {
            paths.push_back(reason.path);
            EXPECT_NE(reason.reason, "") << reason.path;
            EXPECT_NE(reason.reason, "it isn't known") << reason.path;
        }
        EXPECT_EQ(paths, NullPaths(analysis));
    }
};

TEST_F(AnalysisOf, NothingIsEmptyAndSaysWhy) {
    const Analysis analysis = Analysed();
    EXPECT_TRUE(analysis.days.empty() && analysis.drawdowns.empty() && analysis.months.empty());
    EXPECT_TRUE(analysis.products.empty() && analysis.closedMonths.empty() && analysis.open.empty());
    EXPECT_FALSE(analysis.reasons.empty());
    ExpectAReasonForEachNull(analysis);
}

TEST_F(AnalysisOf, AnAccountInTroubleHasAReasonForEachNull) {
    AddDay("20240102", "x", "y", "z");
    AddDay("20240103", "-5");
    AddDay("20240104", "0");
    AddTrade({"20240104", "m2405", "1", "1", ""});
    AddClosed({.day = "20240104",
               .contract = "m2405",
               .side = "买",
               .lots = "1",
               .openDay = "",
               .openPrice = "1",
               .closePrice = "1",
               .stated = ""});
    report.OpiDetailStore.Add() = Open({{"BILL_DATE", "20240104"}, {"CONTRACT", "m2405"}});
    ExpectAReasonForEachNull(Analysed());
}

TEST_F(AnalysisOf, DaysWithoutAClosedPositionHasNoGroups) {
    AddIndexes({1.1, 1.2});
    const Analysis analysis = Analysed();
    EXPECT_EQ(analysis.days.size(), 2U);
    EXPECT_TRUE(analysis.products.empty() && analysis.sides.empty() && analysis.concentration.empty());
    ExpectAReasonForEachNull(analysis);
}

TEST(AnalysisFields, NameEachListAndFieldOnce) {
    std::set<std::string> lists;
    const auto check = [&](std::string_view name, const auto& /*owner*/, auto fields) {
        EXPECT_TRUE(lists.emplace(name).second) << name;
        std::set<std::string> names;
        for (const auto& field : fields) EXPECT_TRUE(names.emplace(field.name).second) << name << "." << field.name;
    };
    VisitAnalysis(Analysis(), check, check);
    EXPECT_EQ(lists.size(), 18U);
}

TEST(AnalysisFields, GiveTheFirstFieldOfAGroupTheNameOfItsKind) {
    EXPECT_EQ(kProductFields[0].name, "product");
    EXPECT_EQ(kContractFields[0].name, "contract");
    EXPECT_EQ(kSideFields[0].name, "side");
    EXPECT_EQ(kExchangeFields[0].name, "exchange");
    EXPECT_EQ(kClosedMonthFields[0].name, "month");
    EXPECT_EQ(kMonthFields[0].name, "month");
    EXPECT_EQ(kYearFields[0].name, "year");
    EXPECT_EQ(kYearFields[1].name, kMonthFields[1].name);
}

TEST(AnalysisFields, HoldTheirMembersByTheirType) {
    DayResult day;
    day.day = "20240102";
    day.pl = -1.5;
    day.lots = 3;
    EXPECT_EQ(kDayResultFields[0].type, AnalysisType::Day);
    EXPECT_EQ(std::get<std::string_view>(kDayResultFields[0].value(day)), "20240102");
    EXPECT_EQ(kDayResultFields[4].name, "pl");
    EXPECT_EQ(kDayResultFields[4].type, AnalysisType::Number);
    EXPECT_EQ(std::get<double>(kDayResultFields[4].value(day)), -1.5);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(kDayResultFields[5].value(day)));
    EXPECT_EQ(kDayResultFields[11].type, AnalysisType::Whole);
    EXPECT_EQ(std::get<std::int64_t>(kDayResultFields[11].value(day)), 3);
    Drawdown drawdown;
    EXPECT_EQ(kDrawdownFields[0].type, AnalysisType::Day);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(kDrawdownFields[0].value(drawdown)));
    drawdown.peak = "20240103";
    EXPECT_EQ(std::get<std::string_view>(kDrawdownFields[0].value(drawdown)), "20240103");
}

}  // namespace
}  // namespace tradebill::analysis_test
