// The day that a run takes for the present one: under which name its statement is found, and when live figures follow.
#include "driver/present_day.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/day.h"
#include "driver/run_fixture.h"

namespace tradebill::present_day_test {
namespace {

using Texts = std::vector<std::string>;

class PresentDays : public RunFixture {
protected:
    /// The report of 2 and 3 January in the eyes of the program, on `day`.
    RunResult RunOn(const CalendarDay& day, bool hasLiveFigures = false) {
        return RunAlone({.present = {.day = day, .mayBeFinished = true, .hasLiveFigures = hasLiveFigures}});
    }
    void PutFinished(const std::string& day, const std::string& closing) {
        Put("D10086." + day + "o.txt", FundsOf(day, closing));
    }

    const CalendarDay kSecond{2024, 1, 2};
    const CalendarDay kThird{2024, 1, 3};
    const CalendarDay kFourth{2024, 1, 4};
};

TEST_F(PresentDays, HaveTheSameReportTheEveningBeforeOnTheDayAndTheMorningAfter) {
    PutFinished("20240102", "1.00");
    PutFinished("20240103", "2.00");
    for (const CalendarDay& day : {kSecond, kThird, kFourth}) {
        const RunResult result = RunOn(day);
        EXPECT_EQ(result.statementsRead, 2) << day.day;
        EXPECT_EQ(DaysWithMoney(report), (Texts{"20240102", "20240103"})) << day.day;
        EXPECT_FALSE(result.hasLiveRecord) << day.day;
        EXPECT_EQ(report.MoneyStore.ClosingEquity, 2) << day.day;
    }
}

TEST_F(PresentDays, ReadTheStatementUnderTheNameOfAnUnfinishedDay) {
    PutFinished("20240102", "1.00");
    Put("D10086.20240103.txt", FundsOf("20240103", "3.00"));
    EXPECT_EQ(RunOn(kThird).statementsRead, 2);
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 3);
    EXPECT_EQ(RunOn(kFourth).statementsRead, 1) << "the day is over";
}

TEST_F(PresentDays, TakeTheFinishedStatementBeforeTheUnfinishedOne) {
    Put("D10086.20240103.txt", FundsOf("20240103", "3.00"));
    PutFinished("20240103", "2.00");
    EXPECT_EQ(RunOn(kThird).statementsRead, 1);
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 2);
}

TEST_F(PresentDays, TellAFinishedStatementThatIsNoFileAndReadNoOther) {
    Put("D10086.20240103.txt", FundsOf("20240103", "3.00"));
    std::filesystem::create_directories(root_.Path("Users/u/Data/Bill/D10086.20240103o.txt"));
    const RunResult result = RunOn(kThird);
    EXPECT_EQ(result.statementsRead, 0);
    ASSERT_EQ(result.problems.statements.size(), 1U);
    EXPECT_TRUE(result.problems.statements[0].path.ends_with("20240103o.txt"));
}

TEST_F(PresentDays, EndWithAnEmptyRecordWhereTheirStatementIsMissing) {
    PutFinished("20240102", "1.00");
    const RunResult result = RunOn(kThird);
    EXPECT_TRUE(result.hasLiveRecord);
    EXPECT_EQ(DaysWithMoney(report), (Texts{"20240102", ""}));
}

TEST_F(PresentDays, GetLiveFiguresThatAreGiven) {
    PutFinished("20240103", "2.00");
    CopyField(request_.BaseMoney.KHQY, "7.00");
    EXPECT_TRUE(RunOn(kThird, true).hasLiveRecord);
    EXPECT_EQ(DaysWithMoney(report), (Texts{"20240103", ""}));
    EXPECT_FALSE(RunOn(kFourth, true).hasLiveRecord) << "the report ends before the present day";
}

// A host's statement of the present day bears a name of its own, and its figures come last.
TEST_F(PresentDays, AreThoseOfTheClockForHosts) {
    const CalendarDay today = DayFromToday(0);
    PutFinished(DayText(today), "2.00");
    SetDates(today, today);
    const RunResult result = Run();
    EXPECT_EQ(result.statementsRead, 0);
    EXPECT_TRUE(result.hasLiveRecord);
}

}  // namespace
}  // namespace tradebill::present_day_test
