// The one message that tells a host that its report is finished.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <thread>

#include "driver/run_fixture.h"

namespace tradebill::notification_test {
namespace {

class Notification : public RunFixture {
protected:
    Notification() {
        request_.HostWindow = window_.Handle();
        PutBothDays();
    }

    CMessageWindow window_;
};

TEST_F(Notification, IsOneMessageOfFourAndZero) {
    request_.NotifyMessage = 0x8001;
    Run();
    ASSERT_EQ(window_.messages.size(), 1U);
    EXPECT_EQ(window_.messages[0].message, 0x8001U);
    EXPECT_EQ(window_.messages[0].wParam, 4U);
    EXPECT_EQ(window_.messages[0].lParam, 0);
    EXPECT_EQ(window_.messages[0].thread, std::this_thread::get_id());
}

TEST_F(Notification, TakesAnyMessageNumber) {
    for (const std::uint32_t number : {0U, 1025U, 0xFFFFFFFFU}) {
        request_.NotifyMessage = number;
        Run();
        EXPECT_EQ(window_.messages.back().message, number);
    }
    EXPECT_EQ(window_.messages.size(), 3U);
}

TEST_F(Notification, FindsThePageComplete) {
    std::string page;
    window_.onMessage = [&] { page = ReadFile(PageFile()); };
    Run();
    EXPECT_TRUE(page.ends_with("</body>\r\n</html>\r\n"));
    EXPECT_EQ(page, ReadFile(PageFile()));
}

TEST_F(Notification, FindsAllResultsInTheStores) {
    int records = 0;
    double risk = 0;
    window_.onMessage = [&] {
        records = report.MoneyStore.Count();
        risk = report.AccountStatistics.MaxRisk;
    };
    Run();
    EXPECT_EQ(records, 2);
    EXPECT_EQ(risk, 11500.0 / 101500 * 100);
}

TEST_F(Notification, IsHandledWhenTheRunReturns) {
    bool handled = false;
    window_.onMessage = [&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        handled = true;
    };
    Run();
    EXPECT_TRUE(handled);
}

TEST_F(Notification, IsNotSentWithoutAWindow) {
    request_.HostWindow = nullptr;
    EXPECT_EQ(Run().end, RunEnd::Finished);
    EXPECT_TRUE(window_.messages.empty());
    EXPECT_TRUE(Page().ends_with("</html>\r\n"));
}

TEST_F(Notification, IsSentForAReportOfNothing) {
    SetDates("2023-1-1", "2023-1-2");
    Run();
    EXPECT_EQ(window_.messages.size(), 1U);
}

TEST_F(Notification, IsSentIfAFolderStandsInPlaceOfThePage) {
    std::filesystem::create_directories(PageFile());
    const RunResult result = Run();
    EXPECT_FALSE(result.pageWritten);
    EXPECT_EQ(result.pagePath, PageFile());
    EXPECT_EQ(window_.messages.size(), 1U);
    EXPECT_EQ(report.MoneyStore.Count(), 2);
    EXPECT_TRUE(std::filesystem::is_directory(PageFile()));
}

}  // namespace
}  // namespace tradebill::notification_test
