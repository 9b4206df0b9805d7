// What a host's stop does to a run, wherever it is seen.
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "driver/run_fixture.h"
#include "support/host_objects.h"

namespace tradebill::stop_handshake_test {
namespace {

using Texts = std::vector<std::string>;

const Texts kAllSections = {"账户统计", "交易统计", "期末持仓", "成交明细", "平仓记录", "报告说明"};
const Texts kTables = {"交易统计", "期末持仓", "成交明细", "平仓记录"};

class StopHandshake : public RunFixture, public testing::WithParamInterface<std::int32_t> {
protected:
    StopHandshake() {
        request_.HostWindow = window_.Handle();
        request_.AckEvent = acknowledge_.get();
        request_.ContractUnitCallback = CountUnit;
        UseStopEvent(GetParam());
        PutBothDays();
    }

    void UseStopEvent(std::int32_t manualReset) {
        stop_.reset(CreateHostEvent(manualReset));
        request_.StopEvent = stop_.get();
    }
    void Stop() { SignalHostEvent(stop_.get()); }

    [[nodiscard]] std::size_t RowsIn(const std::string& section) const { return CountOf("<tr", Section(section)); }
    /// A section whose first row was never reached: an open table with header and dashes.
    [[nodiscard]] bool IsCutAtTheFirstRow(const std::string& section) const {
        return RowsIn(section) == 2 && CountOf("</table>", Section(section)) == 0;
    }
    [[nodiscard]] bool IsWhole(const std::string& section) const {
        return RowsIn(section) > 2 && CountOf("</table>", Section(section)) == 1;
    }
    /// Frame and notes stand, whatever became of the tables.
    void ExpectPageWithAllAnchors() const {
        const std::string page = Page();
        for (const std::string& name : kAllSections) {
            EXPECT_EQ(CountOf("<a name = " + name + "></a>\r\n", page), 1U) << name;
        }
        EXPECT_TRUE(page.starts_with("<html>\r\n"));
        EXPECT_TRUE(page.ends_with("</body>\r\n</html>\r\n"));
        EXPECT_EQ(CountOf("class=\"reporteptext\"", Section("报告说明")), 2U);
    }

    CMessageWindow window_;
    UniqueEvent stop_;
    UniqueEvent acknowledge_{CreateHostEvent(kManualReset)};
};

INSTANTIATE_TEST_SUITE_P(Events, StopHandshake, testing::Values(kManualReset, kAutoReset),
                         [](const auto& tested) { return tested.param == kManualReset ? "ManualReset" : "AutoReset"; });

TEST_P(StopHandshake, BeforeTheFirstDayEndsTheRunWithoutAMessage) {
    Stop();
    const RunResult result = Run();
    EXPECT_EQ(result.end, RunEnd::Stopped);
    EXPECT_FALSE(result.pageWritten);
    EXPECT_TRUE(watcher_.days.empty());
    EXPECT_TRUE(watcher_.stages.empty());
    EXPECT_TRUE(IsSignalled(acknowledge_));
    EXPECT_TRUE(window_.messages.empty());
    EXPECT_TRUE(StoresAreEmpty(report));
    EXPECT_EQ(ReadFile(PageFile()), "");
}

TEST_P(StopHandshake, InTheDayLoopLeavesThePageOfTheLastRun) {
    request_.StopEvent = nullptr;
    Run();
    const auto before = ContentOf(root_.Path());
    ASSERT_TRUE(before.contains("Users/u/Data/Bill/Image/TradeBill.html"));
    request_.StopEvent = stop_.get();
    Stop();
    Run();
    EXPECT_EQ(ContentOf(root_.Path()), before);
    EXPECT_EQ(window_.messages.size(), 1U);  // that of the first run
}

TEST_P(StopHandshake, BetweenDaysKeepsWhatWasRead) {
    watcher_.onDay = [this](int day) {
        if (day == 1) Stop();
    };
    const RunResult result = Run();
    EXPECT_EQ(result.end, RunEnd::Stopped);
    EXPECT_EQ(result.days, 1);
    EXPECT_EQ(DaysWithMoney(report), (Texts{"20240102"}));
    EXPECT_EQ(report.MatchStore.Count(), 2);
    EXPECT_EQ(report.AccountStatistics.MaxRisk, 0);  // nothing after the day loop took place
    EXPECT_TRUE(IsSignalled(acknowledge_));
    EXPECT_TRUE(window_.messages.empty());
    EXPECT_TRUE(watcher_.stages.empty());
    EXPECT_EQ(ReadFile(PageFile()), "");
}

TEST_P(StopHandshake, InsideADayWaitsForTheNextOne) {
    onUnit = [this](int call) {
        if (call == 1) Stop();  // while the first of the day's closed positions is read
    };
    EXPECT_EQ(Run().end, RunEnd::Stopped);
    EXPECT_EQ(report.PingDetailStore.Count(), 2);
    EXPECT_EQ(report.OpiDetailStore.Count(), 2);
    EXPECT_EQ(DaysWithMoney(report), (Texts{"20240102"}));
    EXPECT_TRUE(IsSignalled(acknowledge_));
}

TEST_P(StopHandshake, InTheLastDayIsSeenInThePage) {
    watcher_.onDay = [this](int day) {
        if (day == 2) Stop();
    };
    EXPECT_EQ(Run().end, RunEnd::Finished);
    EXPECT_EQ(DaysWithMoney(report), (Texts{"20240102", "20240103"}));
    EXPECT_NE(report.AccountStatistics.MaxRisk, 0);  // statistics have no stop point
    EXPECT_TRUE(IsCutAtTheFirstRow("交易统计"));
    EXPECT_TRUE(IsSignalled(acknowledge_));
    EXPECT_EQ(window_.messages.size(), 1U);
}

TEST_P(StopHandshake, BehindTheLastDayIsNotLookedForInTheDayLoop) {
    SetDates("2024-1-3", "2024-1-2");  // no day at all
    Stop();
    EXPECT_EQ(Run().end, RunEnd::Finished);
    EXPECT_EQ(window_.messages.size(), 1U);
    EXPECT_TRUE(IsSignalled(acknowledge_));  // seen after the message
}

TEST_P(StopHandshake, InThePageLeavesItsFrameNotesAndMessage) {
    watcher_.onStage = [this](const std::string& stage) {
        if (stage == "page") Stop();
    };
    const RunResult result = Run();
    EXPECT_EQ(result.end, RunEnd::Finished);
    EXPECT_TRUE(result.pageWritten);
    EXPECT_TRUE(IsSignalled(acknowledge_));
    EXPECT_EQ(window_.messages.size(), 1U);
    ExpectPageWithAllAnchors();
    for (const std::string& table : kTables) {
        const bool cut = GetParam() == kManualReset || table == "交易统计";
        EXPECT_EQ(IsCutAtTheFirstRow(table), cut) << table;
        EXPECT_EQ(IsWhole(table), !cut) << table;
    }
}

TEST_P(StopHandshake, InTheOffsetSectionEndsItBeforeTheNextRow) {
    onUnit = [this](int call) {
        if (call == 4 + 2) Stop();  // four while the days are read; then the second row of the section
    };
    EXPECT_EQ(Run().end, RunEnd::Finished);
    EXPECT_EQ(unitCalls, 4 + 2);
    EXPECT_EQ(RowsIn("平仓记录"), 2U + 2 * 3);  // header and dashes, then both legs and dashes of each row
    EXPECT_EQ(CountOf("</table>", Section("平仓记录")), 0U);
    EXPECT_TRUE(IsWhole("交易统计"));
    EXPECT_TRUE(IsWhole("期末持仓"));
    EXPECT_TRUE(IsWhole("成交明细"));
    ExpectPageWithAllAnchors();
    EXPECT_TRUE(IsSignalled(acknowledge_));
    EXPECT_EQ(window_.messages.size(), 1U);
}

TEST_P(StopHandshake, BehindTheLastRowIsSeenAfterTheMessage) {
    bool acknowledgedBefore = true;
    onUnit = [this](int call) {
        if (call == 4 + 4) Stop();
    };
    window_.onMessage = [&] { acknowledgedBefore = IsSignalled(acknowledge_); };
    Run();
    EXPECT_TRUE(IsWhole("平仓记录"));
    EXPECT_FALSE(acknowledgedBefore);
    EXPECT_TRUE(IsSignalled(acknowledge_));
}

TEST_P(StopHandshake, WhileTheMessageIsHandledIsAnswered) {
    window_.onMessage = [this] {
        EXPECT_FALSE(IsSignalled(acknowledge_));
        Stop();
    };
    EXPECT_EQ(Run().end, RunEnd::Finished);
    EXPECT_TRUE(IsSignalled(acknowledge_));
    for (const std::string& table : kTables) EXPECT_TRUE(IsWhole(table)) << table;
}

TEST_P(StopHandshake, AfterTheMessageIsNotLookedForWithoutAWindow) {
    request_.HostWindow = nullptr;
    watcher_.onStage = [this](const std::string& stage) {
        if (stage == "page") Stop();
    };
    for (const char* const name : {"D10086.20240102o.txt", "D10086.20240103o.txt"}) Put(name, "");
    EXPECT_EQ(Run().end, RunEnd::Finished);  // a page without rows, so that nothing saw the stop
    EXPECT_FALSE(IsSignalled(acknowledge_));
    EXPECT_TRUE(IsSignalled(stop_));
    EXPECT_TRUE(window_.messages.empty());
}

TEST_P(StopHandshake, IsNotAcknowledgedWithoutAStop) {
    EXPECT_EQ(Run().end, RunEnd::Finished);
    EXPECT_FALSE(IsSignalled(acknowledge_));
    EXPECT_FALSE(IsSignalled(stop_));
}

TEST_P(StopHandshake, LeavesAManualResetEventSignalled) {
    Stop();
    Run();
    EXPECT_EQ(IsSignalled(stop_), GetParam() == kManualReset);  // the other kind resets itself when it is seen
}

TEST_P(StopHandshake, StopsWithoutAnAcknowledgeEvent) {
    request_.AckEvent = nullptr;
    Stop();
    EXPECT_EQ(Run().end, RunEnd::Stopped);
}

TEST_P(StopHandshake, NeedsAStopEvent) {
    request_.StopEvent = nullptr;
    Stop();
    EXPECT_EQ(Run().end, RunEnd::Finished);
    EXPECT_FALSE(IsSignalled(acknowledge_));
    for (const std::string& table : kTables) EXPECT_TRUE(IsWhole(table)) << table;
}

TEST_P(StopHandshake, WithoutAnyEventIsNoMatter) {
    request_.StopEvent = nullptr;
    request_.AckEvent = nullptr;
    EXPECT_EQ(Run().end, RunEnd::Finished);
    EXPECT_EQ(window_.messages.size(), 1U);
}

TEST_P(StopHandshake, IsOverForTheRunBehindAnAutoResetEvent) {
    Stop();
    EXPECT_EQ(Run().end, RunEnd::Stopped);
    EXPECT_EQ(Run().end, GetParam() == kManualReset ? RunEnd::Stopped : RunEnd::Finished);
}

}  // namespace
}  // namespace tradebill::stop_handshake_test
