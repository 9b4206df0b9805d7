// A host from its request to the repainting of charts: what it is told, and what it gets on its surface.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "driver/host_module.h"
#include "driver/run_fixture.h"
#include "support/host_objects.h"
#include "support/surface.h"

namespace tradebill::host_session_test {
namespace {

constexpr std::uint32_t kUntouched = 0x00ABCDEF;
constexpr auto kStretch = {StretchZjGraph, StretchRiskAndProfit, StretchRisk, StretchOffsetGraph};

std::optional<ChartSizeReport> Told;
std::vector<std::string> Calls;

void TakeSizes(const ChartSizeReport* report) {
    Told = *report;
    Calls.emplace_back("sizes");
}

std::int32_t UnitOf(const char*, const char*, const char*) {
    Calls.emplace_back("unit");
    return 10;
}

using StretchFunction = void(ChartTarget*, const ChartRect*, std::int32_t, std::int32_t);
using Pixels = std::vector<std::uint32_t>;

/// The surface of a host after repainting a chart into all of it but a margin.
Pixels Repainted(StretchFunction* stretch, std::int32_t width, std::int32_t height, std::int32_t margin) {
    CSurface surface(width, height, kUntouched);
    const ChartRect rect{margin, margin, width - margin, height - margin};
    stretch(surface.Target(), &rect, width, height);
    EXPECT_EQ(surface.LastStatus(), kChartDone);
    return surface.Pixels();
}

class HostSession : public RunFixture {
protected:
    HostSession() {
        Told.reset();
        Calls.clear();
        SetRootFolder(root_.Path().c_str());
        window_.onMessage = [] { Calls.emplace_back("message"); };
        request_.HostWindow = window_.Handle();
        request_.ChartSizeCallback = TakeSizes;
        request_.ContractUnitCallback = UnitOf;
        PutBothDays();
    }

    CMessageWindow window_;
};

TEST_F(HostSession, TellsUnitsThenSizesThenTheEnd) {
    ASSERT_EQ(TryGenerateBill(&request_), 0U);
    ASSERT_FALSE(Calls.empty());
    EXPECT_EQ(Calls.front(), "unit");
    EXPECT_EQ(Calls.back(), "message");
    EXPECT_EQ(std::ranges::count(Calls, "sizes"), 1);
    ASSERT_EQ(window_.messages.size(), 1U);
    EXPECT_EQ(window_.messages[0].message, 1025U);
    EXPECT_EQ(window_.messages[0].wParam, 4U);
    ASSERT_TRUE(Told.has_value());
    EXPECT_EQ(Told->EquityWidth, 500);
    EXPECT_EQ(Told->RealisedWidth, 825);
    EXPECT_EQ(Told->AccountYieldHeight, 250);
    EXPECT_EQ(Told->TradeYieldWidth, 500);
    EXPECT_EQ(Told->MoneyRecordCount, 2);
}

TEST_F(HostSession, RepaintsEveryChartAtEverySize) {
    ASSERT_EQ(TryGenerateBill(&request_), 0U);
    const std::int32_t sizes[][2] = {{Told->EquityWidth, Told->EquityHeight}, {1600, 900}, {120, 80}};
    for (const auto& [width, height] : sizes) {
        std::vector<Pixels> charts;
        for (StretchFunction* const stretch : kStretch) {
            charts.push_back(Repainted(stretch, width, height, 0));
            EXPECT_EQ(Repainted(stretch, width, height, 0), charts.back());
            EXPECT_EQ(std::ranges::count(charts.back(), kUntouched), 0) << width;
        }
        EXPECT_NE(charts[0], charts[1]);
        EXPECT_NE(charts[1], charts[2]);
        EXPECT_NE(charts[2], charts[3]);
    }
}

TEST_F(HostSession, RepaintsNothingOutsideOfTheRectangle) {
    ASSERT_EQ(TryGenerateBill(&request_), 0U);
    constexpr std::int32_t kMargin = 40;
    for (StretchFunction* const stretch : kStretch) {
        const Pixels pixels = Repainted(stretch, 500, 300, kMargin);
        EXPECT_EQ(std::ranges::count(pixels, kUntouched), 500 * 300 - 420 * 220);
        EXPECT_EQ(pixels[static_cast<std::size_t>(kMargin * 500 + kMargin)], 0xFF383838U);  // its frame
        EXPECT_EQ(pixels[static_cast<std::size_t>((kMargin - 1) * 500 + kMargin)], kUntouched);
    }
}

TEST_F(HostSession, RepaintsTheLastReport) {
    ASSERT_EQ(TryGenerateBill(&request_), 0U);
    const Pixels before = Repainted(StretchZjGraph, 500, 250, 0);
    SetDates("2024-1-2", "2024-1-2");
    ASSERT_EQ(TryGenerateBill(&request_), 0U);
    EXPECT_NE(Repainted(StretchZjGraph, 500, 250, 0), before);
    SetDates("2024-1-2", "2024-1-3");
    ASSERT_EQ(TryGenerateBill(&request_), 0U);
    EXPECT_EQ(Repainted(StretchZjGraph, 500, 250, 0), before);
}

TEST_F(HostSession, RepaintsEmptyFramesForAnAccountWithoutDays) {
    SetDates("2020-1-1", "2020-1-2");
    ASSERT_EQ(TryGenerateBill(&request_), 0U);
    for (StretchFunction* const stretch : kStretch) {
        const Pixels pixels = Repainted(stretch, 400, 200, 0);
        EXPECT_EQ(pixels.front(), 0xFF383838U);
        EXPECT_EQ(std::ranges::count(pixels, kUntouched), 0);
    }
}

TEST_F(HostSession, RepaintsWhatAStoppedRunHadRead) {
    const UniqueEvent stop(CreateHostEvent(kManualReset));
    const UniqueEvent acknowledge(CreateHostEvent(kManualReset));
    request_.StopEvent = stop.get();
    request_.AckEvent = acknowledge.get();
    ASSERT_EQ(TryGenerateBill(&request_), 0U);
    watcher_.onDay = [&](int day) {
        if (day == 1) std::thread([&] { SignalHostEvent(stop.get()); }).join();
    };
    EXPECT_EQ(RunReport(TheModule().ReportForRun(), request_, &watcher_).end, RunEnd::Stopped);
    EXPECT_TRUE(IsSignalled(acknowledge));
    EXPECT_EQ(TheModule().report.MoneyStore.Count(), 1);
    for (StretchFunction* const stretch : kStretch) Repainted(stretch, 400, 200, 0);
}

TEST_F(HostSession, GoesOnWhenThePicturesFolderVanishes) {
    watcher_.onStage = [this](const std::string& stage) {
        if (stage == "pictures") std::filesystem::remove_all(root_.Path("Users/u/Data/Bill/Image/Image_files"));
    };
    const RunResult result = Run();
    EXPECT_EQ(result.end, RunEnd::Finished);
    EXPECT_TRUE(result.pageWritten);
    EXPECT_EQ(result.problems.pictures.size(), 14U);
    EXPECT_EQ(result.picturesSaved, 0);
}

#if !defined(_WIN32)  // where nobody can remove what is held
TEST_F(HostSession, GoesOnWhenThePagesFolderVanishes) {
    watcher_.onStage = [this](const std::string& stage) {
        if (stage == "page") std::filesystem::remove_all(root_.Path("Users/u/Data/Bill"));
    };
    const RunResult result = Run();
    EXPECT_EQ(result.end, RunEnd::Finished);
    EXPECT_FALSE(result.pageWritten);
    EXPECT_EQ(window_.messages.size(), 1U);
}
#endif

}  // namespace
}  // namespace tradebill::host_session_test
