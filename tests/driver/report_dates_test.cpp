// Which dates a run takes, which days they mean, and what a refused date leaves behind.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>

#include "base/report_error.h"
#include "base/text.h"
#include "driver/run_fixture.h"
#include "support/host_objects.h"

namespace tradebill::report_dates_test {
namespace {

constexpr std::uint32_t kNoError = 0;

class ReportDates : public RunFixture {
protected:
    /// The code that a run of these dates ends with.
    std::uint32_t CodeOf(std::string_view start, std::string_view end) {
        SetDates(start, end);
        try {
            Run();
        } catch (const CReportError& error) {
            return error.Code();
        }
        return kNoError;
    }
};

struct RefusedDate {
    const char* text;
    std::uint32_t code;
};

// clang-format off
constexpr RefusedDate kRefusedDates[] = {
    {"1899-12-31",       0x80004005},
    {"0-1-1",            0x80004005},
    {"-2024-1-1",        0x80004005},
    {"2024-0-1",         0x80004005},
    {"2024-13-1",        0x80004005},
    {"2024--1-1",        0x80004005},
    {"2024-1-0",         0x80004005},
    {"2024-1-32",        0x80004005},
    {"2024-1",           0x80004005},
    {"2024-1-",          0x80004005},
    {"2024/1/2",         0x80004005},
    {"2024 -1-2",        0x80004005},
    {"20240102",         0x80004005},
    {"January 2",        0x80004005},
    {" ",                0x80004005},
    {"1900-1-1",         0x80070057},
    {"1969-12-30",       0x80070057},
    {"3001-1-2",         0x80070057},
    {"2147483647-12-31", 0x80070057},
    {"99999999999-1-1",  0x80070057},
};
// clang-format on

TEST_F(ReportDates, OutOfBoundsRaiseTheirCode) {
    for (const RefusedDate& date : kRefusedDates) {
        EXPECT_EQ(CodeOf(date.text, "2024-1-2"), date.code) << "from " << date.text;
        EXPECT_EQ(CodeOf("2024-1-2", date.text), date.code) << "to " << date.text;
    }
}

struct AcceptedDate {
    const char* text;
    const char* day;
};

// clang-format off
constexpr AcceptedDate kAcceptedDates[] = {
    {"2024-1-2",            "2024-01-02"},
    {"2024-01-02",          "2024-01-02"},
    {"2024-12-31",          "2024-12-31"},
    {" 2024- 1-\t2",        "2024-01-02"},
    {"+2024-+1-+2",         "2024-01-02"},
    {"2024-1-2 and more",   "2024-01-02"},
    {"2024-000001-0000002", "2024-01-02"},
    {"2011-2-30",           "2011-03-02"},  // rolls over into the next month
    {"2023-2-29",           "2023-03-01"},
    {"2024-2-29",           "2024-02-29"},
    {"2024-4-31",           "2024-05-01"},
    {"1970-1-2",            "1970-01-02"},
    {"3000-12-30",          "3000-12-30"},
};
// clang-format on

TEST_F(ReportDates, WithinBoundsMeanTheirDay) {
    for (const AcceptedDate& date : kAcceptedDates) {
        ASSERT_EQ(CodeOf(date.text, date.text), kNoError) << date.text;
        EXPECT_EQ(report.MoneyStore.StartDateText, date.day) << date.text;
        EXPECT_EQ(report.MoneyStore.EndDateText, date.day) << date.text;
        EXPECT_EQ(DashedDayText(LocalDayOf(report.ReportDays.first)), date.day) << date.text;
        EXPECT_EQ(report.ReportDays.first, MidnightOf(LocalDayOf(report.ReportDays.first))) << date.text;
    }
}

TEST_F(ReportDates, KeepFirstAndLastDayApart) {
    ASSERT_EQ(CodeOf("2024-1-30", "2024-2-30"), kNoError);
    EXPECT_EQ(report.MoneyStore.StartDateText, "2024-01-30");
    EXPECT_EQ(report.MoneyStore.EndDateText, "2024-03-01");
}

TEST_F(ReportDates, AreLookedAtStartFirst) {
    EXPECT_EQ(CodeOf("1899-12-31", "1969-1-1"), kErrorUnspecified);
    EXPECT_EQ(CodeOf("1969-1-1", "1899-12-31"), kErrorInvalidArgument);
}

TEST_F(ReportDates, AreBothPassedOverIfOneIsEmpty) {
    const std::string today = DashedDayText(DayFromToday(0));
    const std::pair<const char*, const char*> dates[] = {
        {"", ""}, {"2024-1-2", ""}, {"", "2024-1-2"}, {"1899-12-31", ""}, {"", "no date"}};
    for (const auto& [start, end] : dates) {
        ASSERT_EQ(CodeOf(start, end), kNoError) << start << " to " << end;
        EXPECT_EQ(report.MoneyStore.StartDateText, today) << start << " to " << end;
        EXPECT_EQ(report.MoneyStore.EndDateText, today) << start << " to " << end;
    }
}

TEST_F(ReportDates, MeanTheMomentOfTheCallIfEmpty) {
    SetDates("", "");
    const std::time_t before = PresentTime();
    Run();
    EXPECT_GE(report.ReportDays.first, before);
    EXPECT_LE(report.ReportDays.first, PresentTime());
    EXPECT_EQ(report.ReportDays.last, report.ReportDays.first);
}

TEST_F(ReportDates, RefusedLeaveAllStoresEmpty) {
    PutBothDays();
    Run();
    ASSERT_FALSE(StoresAreEmpty(report));
    ASSERT_NE(report.AccountStatistics.WinCount, 0);

    EXPECT_EQ(CodeOf("2024-1-2", "2024-1-32"), kErrorUnspecified);
    EXPECT_TRUE(StoresAreEmpty(report));
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 0);
    EXPECT_EQ(report.AccountStatistics.WinCount, 0);
    EXPECT_EQ(report.AccountStatistics.MaxProfit, 0);
}

TEST_F(ReportDates, RefusedLeaveThePageOfTheLastRun) {
    PutBothDays();
    Run();
    const auto before = ContentOf(root_.Path());
    ASSERT_TRUE(before.contains("Users/u/Data/Bill/Image/TradeBill.html"));

    EXPECT_EQ(CodeOf("2024-13-1", "2024-1-3"), kErrorUnspecified);
    EXPECT_EQ(ContentOf(root_.Path()), before);
    EXPECT_EQ(report.MoneyStore.StartDateText, "2024-01-02");  // as the last run left them
    EXPECT_EQ(report.MoneyStore.EndDateText, "2024-01-03");
}

TEST_F(ReportDates, RefusedMakeNoFolderAndSendNoMessage) {
    CMessageWindow window;
    const UniqueEvent stop(CreateHostEvent(kManualReset));
    const UniqueEvent acknowledge(CreateHostEvent(kManualReset));
    request_.HostWindow = window.Handle();
    request_.StopEvent = stop.get();
    request_.AckEvent = acknowledge.get();
    SignalHostEvent(stop.get());
    EXPECT_EQ(CodeOf("2024-1-2", "1969-1-1"), kErrorInvalidArgument);
    EXPECT_TRUE(window.messages.empty());
    EXPECT_FALSE(IsSignalled(acknowledge));
    EXPECT_TRUE(watcher_.days.empty());
    EXPECT_TRUE(watcher_.stages.empty());
    EXPECT_FALSE(std::filesystem::exists(root_.Path("Users/u/Data")));
}

TEST_F(ReportDates, ReplaceThePresentTimeOnlyIfBothPass) {
    const std::time_t before = PresentTime();
    EXPECT_EQ(CodeOf("2024-1-2", "2024-13-1"), kErrorUnspecified);
    EXPECT_GE(report.ReportDays.first, before);
    EXPECT_GE(report.ReportDays.last, before);
}

TEST_F(ReportDates, AreCheckedAfterTheRequestIsCopied) {
    CopyField(request_.Account, "20099");
    EXPECT_EQ(CodeOf("2024-1-2", "no date"), kErrorUnspecified);
    EXPECT_EQ(FieldText(report.Request.Account), "20099");
}

}  // namespace
}  // namespace tradebill::report_dates_test
