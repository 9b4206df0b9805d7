#include "analysis/periods.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/account_maker.h"
#include "analysis/day_results.h"

namespace tradebill::periods_test {
namespace {

class Periods : public AccountMaker {
protected:
    void AddDayWithFee(std::string_view day, std::string_view equity, std::string_view fee,
                       std::string_view opening = "") {
        AddRecord(Money(day, {{"KHQY", equity}, {"CRJ", "0"}, {"SXF", fee}, {"QCQY", opening}}));
    }
    std::vector<PeriodResult> Of(std::size_t length) const { return PeriodsOf(Days().results, length); }
};

TEST_F(Periods, AreMonthsAndYears) {
    AddDayWithFee("20231228", "1100", "1", "1000");  // + 10 %
    AddDayWithFee("20231229", "990", "2");           // - 10 %
    AddDayWithFee("20240102", "1089", "4");          // + 10 %
    const auto months = Of(kMonthLength);
    ASSERT_EQ(months.size(), 2U);
    EXPECT_EQ(months[0].period, "202312");
    EXPECT_NEAR(*months[0].periodReturn, -0.01, 1e-14);  // 1.1 x 0.9 - 1
    EXPECT_EQ(months[0].pl, -10);
    EXPECT_EQ(months[0].fees, 3);
    EXPECT_NEAR(*months[0].bestDay, 0.1, 1e-14);
    EXPECT_NEAR(*months[0].worstDay, -0.1, 1e-14);
    EXPECT_EQ(months[1].period, "202401");
    EXPECT_NEAR(*months[1].periodReturn, 0.1, 1e-14);
    EXPECT_NEAR(*months[1].worstDay, 0.1, 1e-14);
    const auto years = Of(kYearLength);
    ASSERT_EQ(years.size(), 2U);
    EXPECT_EQ(years[0].period, "2023");
    EXPECT_EQ(years[1].period, "2024");
    EXPECT_EQ(years[1].pl, 99);
}

TEST_F(Periods, HaveTheReturnOfTheIndexWhereItComesToNothing) {
    AddDay("20240102", "-500", "0", "1000");  // - 150 %, but the index loses no more than all
    AddDay("20240201", "100", "600");
    const auto months = Of(kMonthLength);
    EXPECT_EQ(months[0].periodReturn, -1);
    EXPECT_EQ(months[0].worstDay, -1.5);
    EXPECT_EQ(months[1].periodReturn, std::nullopt);
    EXPECT_EQ(months[1].bestDay, std::nullopt);
    EXPECT_EQ(months[1].pl, 0);  // 100 + 500 - 600
    const Analysis analysis = Analysed();
    EXPECT_EQ(ReasonOf(analysis, "months[1].return"), "no day has a return");
    EXPECT_EQ(ReasonOf(analysis, "months[1].bestDay"), "no day has a return");
    EXPECT_EQ(ReasonOf(analysis, "months[1].pl"), "");
}

TEST_F(Periods, AddUpTheDaysThatHaveAResult) {
    AddDay("20240102", "1000");  // opened with nobody knows what
    EXPECT_EQ(Of(kMonthLength)[0].pl, std::nullopt);
    EXPECT_EQ(ReasonOf(Analysed(), "years[0].pl"), "no day has a P/L");
    AddDay("20240103", "1100");
    EXPECT_EQ(Of(kMonthLength)[0].pl, 100);
    EXPECT_NEAR(*Of(kMonthLength)[0].periodReturn, 0.1, 1e-14);
}

TEST_F(Periods, WeekdaysHaveTheMeanOfTheirReturns) {
    AddDayWithFee("20240102", "1100", "1", "1000");  // Tuesday, + 10 %
    AddDayWithFee("20240105", "1155", "2");          // Friday, + 5 %
    AddDayWithFee("20240109", "924", "4");           // Tuesday, - 20 %
    AddDayWithFee("20240114", "924", "8");           // Sunday, 0
    const auto weekdays = WeekdaysOf(Days());
    ASSERT_EQ(weekdays.size(), 3U);
    EXPECT_EQ(weekdays[0].weekday, 2);
    EXPECT_EQ(weekdays[0].days, 2);
    EXPECT_NEAR(*weekdays[0].meanReturn, -0.05, 1e-14);
    EXPECT_EQ(weekdays[0].pl, -131);  // 100 - 231
    EXPECT_EQ(weekdays[0].fees, 5);
    EXPECT_NEAR(*weekdays[0].bestDay, 0.1, 1e-14);
    EXPECT_NEAR(*weekdays[0].worstDay, -0.2, 1e-14);
    EXPECT_EQ(weekdays[1].weekday, 5);
    EXPECT_EQ(weekdays[2].weekday, 7);
    EXPECT_EQ(weekdays[2].meanReturn, 0);
}

TEST_F(Periods, WeekdaysCountDaysWithoutAReturn) {
    AddDay("20240102", "1000");
    const auto weekdays = WeekdaysOf(Days());
    ASSERT_EQ(weekdays.size(), 1U);
    EXPECT_EQ(weekdays[0].days, 1);
    EXPECT_EQ(weekdays[0].meanReturn, std::nullopt);
    EXPECT_EQ(ReasonOf(Analysed(), "weekdays[0].return"), "no day has a return");
}

/// Of days with these results; nothing is none.
Streaks StreaksOfResults(std::initializer_list<std::optional<double>> results) {
    std::vector<DayResult> days;
    for (const auto& pl : results) days.emplace_back().pl = pl;
    return StreaksOf(days);
}

TEST(Streak, IsTheLongestRunOfDays) {
    const Streaks streaks = StreaksOfResults({1, 2, -1, 3, 1, 2, -5, -6});
    EXPECT_EQ(streaks.longestWin, 3);
    EXPECT_EQ(streaks.longestLoss, 2);
}

TEST(Streak, EndsWithAFlatDayAndOneWithoutResult) {
    EXPECT_EQ(StreaksOfResults({1, 0.00005, 1}).longestWin, 1);
    EXPECT_EQ(StreaksOfResults({1, 0.000051, 1}).longestWin, 3);
    EXPECT_EQ(StreaksOfResults({-1, -0.00005, -1}).longestLoss, 1);
    EXPECT_EQ(StreaksOfResults({-1, -0.000051, -1}).longestLoss, 3);
    EXPECT_EQ(StreaksOfResults({1, std::nullopt, 1}).longestWin, 1);
    EXPECT_EQ(StreaksOfResults({}).longestWin, 0);
}

}  // namespace
}  // namespace tradebill::periods_test
