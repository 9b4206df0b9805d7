// Which days a run walks, and the statement file that it reads on each.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "driver/run_fixture.h"
#include "support/time_zone.h"

namespace tradebill::day_walk_test {
namespace {

using Texts = std::vector<std::string>;

class DayWalk : public RunFixture {};

TEST_F(DayWalk, GoesFromTheFirstDayToTheLast) {
    SetDates("2024-2-27", "2024-3-2");
    const RunResult result = Run();
    EXPECT_EQ(watcher_.days, (Texts{"20240227", "20240228", "20240229", "20240301", "20240302"}));
    EXPECT_EQ(watcher_.counts, (std::vector<std::pair<int, int>>{{1, 5}, {2, 5}, {3, 5}, {4, 5}, {5, 5}}));
    EXPECT_EQ(result.days, 5);
}

TEST_F(DayWalk, IsOneDayFromADayToItself) {
    SetDates("2024-12-31", "2024-12-31");
    Run();
    EXPECT_EQ(watcher_.days, (Texts{"20241231"}));
}

TEST_F(DayWalk, IsTodayAloneWithoutDates) {
    SetDates("", "");
    const std::string today = DayText(DayFromToday(0));
    Run();
    EXPECT_EQ(watcher_.days, (Texts{today}));
}

TEST_F(DayWalk, IsEmptyIfTheStartLiesAfterTheEnd) {
    PutBothDays();
    SetDates("2024-1-3", "2024-1-2");
    const RunResult result = Run();
    EXPECT_TRUE(watcher_.days.empty());
    EXPECT_EQ(result.end, RunEnd::Finished);
    EXPECT_EQ(result.days, 0);
    EXPECT_TRUE(StoresAreEmpty(report));
    EXPECT_TRUE(result.pageWritten);  // built from nothing
    EXPECT_EQ(report.MoneyStore.StartDateText, "2024-01-03");
    EXPECT_EQ(report.MoneyStore.EndDateText, "2024-01-02");
}

#if !defined(_WIN32)  // where a process has no say in when clocks change
// Steps are 86400 seconds. Where a day has 25 hours it is walked twice, and the last midnight is never reached.
TEST_F(DayWalk, MeetsADayTwiceWhenTheClockGoesBack) {
    const CTimeZone zone("EST5EDT,M3.2.0,M11.1.0");
    SetDates("2024-11-2", "2024-11-4");
    Run();
    EXPECT_EQ(watcher_.days, (Texts{"20241102", "20241103", "20241103"}));
}
#endif

#if !defined(_WIN32)  // where a process has no say in when clocks change
// Where a day has 23 hours the cursor runs ahead of the last midnight.
TEST_F(DayWalk, MissesTheLastDayWhenTheClockGoesForward) {
    const CTimeZone zone("EST5EDT,M3.2.0,M11.1.0");
    SetDates("2024-3-9", "2024-3-11");
    Run();
    EXPECT_EQ(watcher_.days, (Texts{"20240309", "20240310"}));
}
#endif

TEST_F(DayWalk, TakesDaysOfTheLocalTime) {
    const CTimeZone zone("CST-8");
    Put("D10086.20240102o.txt", FundsOf("20240102", "1.00"));
    SetDates("2024-1-2", "2024-1-3");
    EXPECT_EQ(Run().statementsRead, 1);
    EXPECT_EQ(watcher_.days, (Texts{"20240102", "20240103"}));
    EXPECT_EQ(report.MoneyStore.StartDateText, "2024-01-02");
}

TEST_F(DayWalk, ReadsFinishedDaysFromFilesEndingInO) {
    Put("D10086.20240102o.txt", FundsOf("20240102", "2.00"));
    Put("D10086.20240103.txt", FundsOf("20240103", "3.00"));     // no "o"
    Put("D20086.20240103o.txt", FundsOf("20240103", "4.00"));    // another account
    Put("DWP10086.20240103o.txt", FundsOf("20240103", "5.00"));  // the other family
    Put("D10086.20240104o.txt", FundsOf("20240104", "6.00"));    // behind the range
    Put("D10086.20240101o.txt", FundsOf("20240101", "7.00"));    // before it
    const RunResult result = Run();
    EXPECT_EQ(result.statementsRead, 1);
    EXPECT_EQ(DaysWithMoney(report), (Texts{"20240102"}));
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 2);
}

TEST_F(DayWalk, PassesOverDaysWithoutAFile) {
    Put("D10086.20240102o.txt", FundsOf("20240102", "2.00"));
    Put("D10086.20240105o.txt", FundsOf("20240105", "5.00"));
    SetDates("2024-1-1", "2024-1-6");
    const RunResult result = Run();
    EXPECT_EQ(result.days, 6);
    EXPECT_EQ(result.statementsRead, 2);
    EXPECT_EQ(DaysWithMoney(report), (Texts{"20240102", "20240105"}));
}

TEST_F(DayWalk, ReadsTodayFromTheFileWithoutO) {
    const CalendarDay yesterday = DayFromToday(-1);
    const CalendarDay today = DayFromToday(0);
    Put("D10086." + DayText(yesterday) + "o.txt", FundsOf(DayText(yesterday), "1.00"));
    Put("D10086." + DayText(yesterday) + ".txt", FundsOf("19990101", "2.00"));
    Put("D10086." + DayText(today) + ".txt", FundsOf(DayText(today), "3.00"));
    Put("D10086." + DayText(today) + "o.txt", FundsOf("19990102", "4.00"));
    SetDates(yesterday, today);
    EXPECT_EQ(Run().statementsRead, 2);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 0);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Find(DayText(yesterday))->Closing, 1);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Find("19990101"), nullptr);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Find("19990102"), nullptr);
    EXPECT_NE(report.TradeStatistics.DayFigures.Find(DayText(today)), nullptr);
}

TEST_F(DayWalk, ReadsTodayFromTheFileWithoutOInsideARangeToo) {
    const CalendarDay today = DayFromToday(0);
    const CalendarDay tomorrow = DayFromToday(1);
    Put("D10086." + DayText(today) + ".txt", FundsOf(DayText(today), "3.00"));
    Put("D10086." + DayText(tomorrow) + "o.txt", FundsOf(DayText(tomorrow), "4.00"));
    SetDates(today, tomorrow);
    EXPECT_EQ(Run().statementsRead, 2);
    EXPECT_EQ(DaysWithMoney(report), (Texts{DayText(today), DayText(tomorrow)}));
}

TEST_F(DayWalk, ReadsForeignStatementsFromFilesNamedDWP) {
    Put("DWP10086.20240102o.txt", "a");
    Put("D10086.20240103o.txt", FundsOf("20240103", "3.00"));
    request_.StatementKind = 2;
    EXPECT_EQ(Run().statementsRead, 1);
    EXPECT_TRUE(report.MoneyStore.Records.empty());
}

TEST_F(DayWalk, ReadsTodaysForeignStatementFromTheFileWithoutO) {
    const std::string today = DayText(DayFromToday(0));
    Put("DWP10086." + today + ".txt", "a");
    request_.StatementKind = 2;
    SetDates("", "");
    EXPECT_EQ(Run().statementsRead, 1);
}

TEST_F(DayWalk, IsDomesticForAllKindsButTwo) {
    PutBothDays();
    for (const std::int32_t kind : {0, 1, 3, -2, 201, std::numeric_limits<std::int32_t>::max()}) {
        request_.StatementKind = kind;
        EXPECT_EQ(Run().statementsRead, 2) << kind;
        EXPECT_EQ(DaysWithMoney(report), (Texts{"20240102", "20240103"})) << kind;
    }
}

TEST_F(DayWalk, ReadsNothingForAnUnknownFormat) {
    PutBothDays();
    request_.StatementFormat = 7;
    const RunResult result = Run();
    EXPECT_EQ(result.statementsRead, 2);  // the files are there
    EXPECT_TRUE(StoresAreEmpty(report));
    EXPECT_TRUE(result.pageWritten);
}

TEST_F(DayWalk, HandsTheDayOfTheFileToTheReader) {
    // This layout with option premium files its rows under the day of the file, not under the date that it states.
    Put("D10086.20240103o.txt",
        Statement({"日  期:20240102", "资金状况", "----------", "当日结存: 5.00", "权利金收入: 2.00", "----------"}));
    Run();
    EXPECT_EQ(DaysWithMoney(report), (Texts{"20240103"}));
}

}  // namespace
}  // namespace tradebill::day_walk_test
