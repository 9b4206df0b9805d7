#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "driver/place_guard.h"
#include "hosts/host_fixture.h"
#include "hosts/tradebill.h"
#include "platform/lock_file.h"

namespace tradebill::report_exports_test {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

using ReportExports = HostFixture;

TEST(TradeBillVersion, IsThatOfTheHeader) {
    EXPECT_EQ(TradeBillVersion(), TRADEBILL_VERSION_NUMBER);
    const std::string text = std::to_string(TRADEBILL_VERSION_MAJOR) + "." + std::to_string(TRADEBILL_VERSION_MINOR) +
                             "." + std::to_string(TRADEBILL_VERSION_PATCH);
    EXPECT_EQ(TradeBillVersionText(), text);
    EXPECT_EQ(text, TRADEBILL_VERSION);
}

TEST(TradeBillVersion, HasTheSourcesIdentity) {
    const std::string_view id = TradeBillSourceId();
    EXPECT_EQ(id.size(), 16U);
    EXPECT_EQ(id.find_first_not_of("0123456789abcdef"), std::string_view::npos) << id;
}

TEST_F(ReportExports, MakesThePage) {
    ASSERT_EQ(host_.Make(), TRADEBILL_DONE) << host_.Error();
    EXPECT_EQ(host_.Error(), "");
    EXPECT_EQ(fs::path(TradeBillPageUtf8(host_.Handle())), fs::path(PageFile()).make_preferred());
    EXPECT_NE(Page().find("</html>"), std::string::npos);
    const TradeBillTotals totals = host_.Totals();
    EXPECT_EQ(totals.Days, 2U);
    EXPECT_EQ(totals.Statements, 2U);
    EXPECT_EQ(totals.Unreadable, 0U);
    EXPECT_EQ(totals.Records, 2U + 4U + 4U + 4U);
    EXPECT_GT(totals.Pictures, 0U);
}

TEST_F(ReportExports, WritesTheSamePageAsTheOldInterface) {
    request_.ContractUnitCallback = CountUnit;
    Run();
    const std::string page = Page();
    root_.Write("units.ini", "[UNITS]\ni=10\nrb=10\n");
    const std::string units = root_.Path("units.ini");
    host_.request.UnitsUtf8 = units.c_str();
    fs::remove_all(root_.Path("Users/u/Data/Bill/Image"));
    ASSERT_EQ(host_.Make(), TRADEBILL_DONE) << host_.Error();
    EXPECT_EQ(Page(), page);
}

TEST_F(ReportExports, FindsWhatItIsNotTold) {
    ASSERT_EQ(host_.Read(), TRADEBILL_DONE) << host_.Error();
    const Json json = Json::parse(host_.Json());
    EXPECT_EQ(json["schema"], 1);
    EXPECT_EQ(json["run"]["account"], "10086");
    EXPECT_NE(std::string_view(TradeBillNotesUtf8(host_.Handle())).find("format 1"), std::string_view::npos)
        << TradeBillNotesUtf8(host_.Handle());
}

TEST_F(ReportExports, ReadsWithoutWriting) {
    const auto before = ContentOf(root_.Path());
    ASSERT_EQ(host_.Read(), TRADEBILL_DONE) << host_.Error();
    EXPECT_EQ(ContentOf(root_.Path()), before);
    EXPECT_STREQ(TradeBillPageUtf8(host_.Handle()), "");
    EXPECT_EQ(host_.Totals().Pictures, 0U);
    EXPECT_EQ(host_.Totals().Records, 14U);
}

TEST_F(ReportExports, WritesElsewhereIfItIsAsked) {
    const auto before = ContentOf(Bills());
    const std::string out = root_.Path("out");
    host_.request.OutUtf8 = out.c_str();
    ASSERT_EQ(host_.Make(), TRADEBILL_DONE) << host_.Error();
    EXPECT_EQ(ContentOf(Bills()), before);
    EXPECT_TRUE(fs::exists(out + "/TradeBill.html"));
}

TEST_F(ReportExports, SaysWhatCannotBeMeant) {
    host_.request.From = "2024-13-01";
    EXPECT_EQ(host_.Make(), TRADEBILL_WRONG_REQUEST);
    EXPECT_EQ(host_.Error(), "From: expected a date from 1970 to 3000 such as 2024-01-31, found \"2024-13-01\"");
    host_.request.From = nullptr;
    host_.request.WaitSeconds = -1;
    EXPECT_EQ(host_.Make(), TRADEBILL_WRONG_REQUEST);
    EXPECT_EQ(host_.Error(), "WaitSeconds: expected 0 to 86400, found -1");
    host_.request.WaitSeconds = 0;
    host_.request.TradingDays = 367;
    EXPECT_EQ(host_.Make(), TRADEBILL_WRONG_REQUEST);
    host_.request.TradingDays = 0;
    host_.request.AccountUtf8 = "4711";
    host_.request.UserUtf8 = "nobody";
    EXPECT_EQ(host_.Make(), TRADEBILL_WRONG_REQUEST);
    EXPECT_EQ(host_.Error().rfind("UserUtf8: expected the folder", 0), 0U) << host_.Error();
    EXPECT_FALSE(fs::exists(Bills() + "/Image"));
}

TEST_F(ReportExports, SaysThatNothingIsThere) {
    host_.request.From = "2023-01-01";
    host_.request.To = "2023-01-05";
    EXPECT_EQ(host_.Make(), TRADEBILL_NOTHING_READ);
    EXPECT_NE(host_.Error(), "");
    host_.request.Format = "1";
    EXPECT_EQ(host_.Make(), TRADEBILL_NOTHING_READ);
    EXPECT_NE(host_.Error(), "");
    EXPECT_FALSE(fs::exists(Bills() + "/Image"));
    EXPECT_EQ(host_.Json(), "");
}

TEST_F(ReportExports, TellsWhatIsMissing) {
    fs::create_directories(Bills() + "/D10086.20240104o.txt");
    host_.request.To = "2024-01-04";
    EXPECT_EQ(host_.Make(), TRADEBILL_INCOMPLETE);
    EXPECT_NE(host_.Error().find("20240104"), std::string::npos) << host_.Error();
    EXPECT_EQ(host_.Totals().Unreadable, 1U);
    EXPECT_EQ(host_.Totals().Statements, 2U);
    EXPECT_TRUE(fs::exists(PageFile()));
}

TEST_F(ReportExports, LeavesAPlaceThatAnotherHasTaken) {
    fs::create_directories(Bills() + "/Image");
    const CPlaceGuard other(Bills() + "/Image", 0);
    ASSERT_TRUE(other.IsHeld());
    EXPECT_EQ(host_.Make(), TRADEBILL_PLACE_TAKEN);
    EXPECT_NE(host_.Error(), "");
    EXPECT_FALSE(fs::exists(PageFile()));
}

TEST_F(ReportExports, CountsFindings) {
    Put("D10086.20240104o.txt", "");
    host_.request.Format = "1";
    ASSERT_EQ(host_.Read(), TRADEBILL_DONE) << host_.Error();
    const TradeBillTotals totals = host_.Totals();
    EXPECT_GT(totals.Errors + totals.Warnings, 0U);
    const Json json = Json::parse(host_.Json());
    std::map<std::string, std::uint32_t> counts;
    for (const auto& finding : json["findings"]) ++counts[finding["severity"].get<std::string>()];
    EXPECT_EQ(totals.Errors, counts["error"]);
    EXPECT_EQ(totals.Warnings, counts["warning"]);
    EXPECT_EQ(totals.Notes, counts["note"]);
}

/// Stops at the nth call, and keeps what it was told.
struct Stopper {
    int stopAt = 0;
    std::vector<std::string> told = {};

    static std::int32_t Tell(void* context, const TradeBillProgress* progress) {
        auto* const self = static_cast<Stopper*>(context);
        EXPECT_EQ(progress->Size, sizeof(TradeBillProgress));
        self->told.push_back(std::string(progress->Stage) + " " + std::to_string(progress->Day) + "/" +
                             std::to_string(progress->Days));
        return static_cast<int>(self->told.size()) == self->stopAt ? 1 : 0;
    }
};

TEST_F(ReportExports, TellsHowFarItIs) {
    Stopper watch;
    host_.request.Progress = Stopper::Tell;
    host_.request.Context = &watch;
    ASSERT_EQ(host_.Make(), TRADEBILL_DONE) << host_.Error();
    EXPECT_EQ(watch.told, (std::vector<std::string>{"contract units 0/0", "days 1/2", "days 2/2", "statistics 0/2",
                                                    "pictures 0/2", "page 0/2"}));
}

TEST_F(ReportExports, StopsWhereItIsToldAndLeavesTheOlderPage) {
    ASSERT_EQ(host_.Make(), TRADEBILL_DONE) << host_.Error();
    const auto before = ContentOf(root_.Path());
    Put("D10086.20240103o.txt", FundsOf("20240103", "5.00"));
    auto wanted = before;
    wanted["Users/u/Data/Bill/D10086.20240103o.txt"] = FundsOf("20240103", "5.00");
    host_.request.Progress = Stopper::Tell;
    for (int at = 1; at <= 6; ++at) {
        Stopper watch{.stopAt = at};
        host_.request.Context = &watch;
        EXPECT_EQ(host_.Make(), TRADEBILL_STOPPED) << at;
        EXPECT_EQ(host_.Error(), "stopped") << at;
        EXPECT_EQ(static_cast<int>(watch.told.size()), at);
        EXPECT_EQ(ContentOf(root_.Path()), wanted) << at;
        EXPECT_EQ(host_.Json(), "") << at;
    }
    host_.request.Progress = nullptr;
    EXPECT_EQ(host_.Make(), TRADEBILL_DONE) << host_.Error();
}

/// Calls back into its own report.
std::int32_t CallBack(void* context, const TradeBillProgress*) {
    auto* const host = static_cast<CHostSide*>(context);
    TradeBillTotals totals{};
    totals.Size = sizeof totals;
    EXPECT_EQ(host->Make(), TRADEBILL_BUSY);
    EXPECT_EQ(host->Read(), TRADEBILL_BUSY);
    EXPECT_EQ(TradeBillTotal(host->Handle(), &totals), TRADEBILL_BUSY);
    EXPECT_STREQ(TradeBillErrorUtf8(host->Handle()), "");
    return 0;
}

TEST_F(ReportExports, RefusesCallsFromItsOwnProgress) {
    host_.request.Progress = CallBack;
    host_.request.Context = &host_;
    EXPECT_EQ(host_.Make(), TRADEBILL_DONE) << host_.Error();
}

TEST_F(ReportExports, IsEmptyBeforeAndBehindAFailure) {
    TradeBillTotals totals{};
    totals.Size = sizeof totals;
    EXPECT_EQ(TradeBillTotal(host_.Handle(), &totals), TRADEBILL_NO_REPORT);
    EXPECT_EQ(host_.Error(), "no report has been made or read");
    ASSERT_EQ(host_.Read(), TRADEBILL_DONE);
    EXPECT_EQ(TradeBillTotal(host_.Handle(), &totals), TRADEBILL_DONE);
    host_.request.RootUtf8 = "nowhere";
    EXPECT_EQ(host_.Read(), TRADEBILL_WRONG_REQUEST);
    EXPECT_EQ(TradeBillTotal(host_.Handle(), &totals), TRADEBILL_NO_REPORT);
}

TEST_F(ReportExports, PassesOverNulls) {
    EXPECT_EQ(TradeBillOpen(nullptr), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(TradeBillMake(nullptr, &host_.request), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(TradeBillRead(nullptr, &host_.request), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(TradeBillMake(host_.Handle(), nullptr), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(host_.Error(), "the request is null");
    TradeBillClose(nullptr);
    TradeBillFree(nullptr);
    EXPECT_STREQ(TradeBillErrorUtf8(nullptr), "");
    EXPECT_STREQ(TradeBillNotesUtf8(nullptr), "");
    EXPECT_STREQ(TradeBillPageUtf8(nullptr), "");
    EXPECT_EQ(TradeBillTotal(nullptr, nullptr), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(TradeBillJson(nullptr, nullptr, nullptr), TRADEBILL_WRONG_ARGUMENT);
    ASSERT_EQ(host_.Read(), TRADEBILL_DONE);
    EXPECT_EQ(TradeBillTotal(host_.Handle(), nullptr), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(TradeBillJson(host_.Handle(), nullptr, nullptr), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_NE(host_.Error(), "");
}

TEST_F(ReportExports, TakesRequestsOfOtherAges) {
    host_.request.Size = 0;
    EXPECT_EQ(host_.Read(), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_NE(host_.Error(), "");
    host_.request.Size = offsetof(TradeBillRequest, From);
    host_.request.From = "what an older host has behind its request";
    EXPECT_EQ(host_.Read(), TRADEBILL_DONE) << host_.Error();

    struct NewerRequest {
        TradeBillRequest known;
        const char* more;
    } newer{.known = host_.request, .more = "a field of a later version"};
    newer.known.Size = sizeof newer;
    newer.known.From = "2024-01-03";
    EXPECT_EQ(TradeBillRead(host_.Handle(), &newer.known), TRADEBILL_DONE) << host_.Error();
    EXPECT_EQ(host_.Totals().Days, 1U);
}

TEST_F(ReportExports, FillsTotalsOfOtherAges) {
    ASSERT_EQ(host_.Read(), TRADEBILL_DONE);
    TradeBillTotals totals;
    std::memset(&totals, 0x5A, sizeof totals);
    totals.Size = offsetof(TradeBillTotals, Unreadable) + 2;
    EXPECT_EQ(TradeBillTotal(host_.Handle(), &totals), TRADEBILL_DONE);
    EXPECT_EQ(totals.Size, offsetof(TradeBillTotals, Unreadable) + 2);
    EXPECT_EQ(totals.Statements, 2U);
    EXPECT_EQ(totals.Unreadable, 0x5A5A5A5AU);
    totals.Size = 3;
    EXPECT_EQ(TradeBillTotal(host_.Handle(), &totals), TRADEBILL_WRONG_ARGUMENT);
}

TEST_F(ReportExports, KeepsReportsApart) {
    const CTempFolder other;
    other.Write("Users/v/Data/Bill/D4711.20240105o.txt", FundsOf("20240105", "77.00"));
    ASSERT_EQ(host_.Read(), TRADEBILL_DONE) << host_.Error();
    const std::string alone = host_.Json();
    std::vector<std::string> first;
    std::vector<std::string> second;
    const auto readOften = [](const std::string& root, std::vector<std::string>& texts) {
        for (int i = 0; i < 5; ++i) {
            CHostSide host(root);
            EXPECT_EQ(host.Read(), TRADEBILL_DONE) << host.Error();
            texts.push_back(host.Json());
        }
    };
    std::thread beside(readOften, root_.Path(), std::ref(first));
    readOften(other.Path(), second);
    beside.join();
    EXPECT_EQ(first, std::vector<std::string>(5, alone));
    EXPECT_EQ(Json::parse(second.front())["run"]["account"], "4711");
    EXPECT_EQ(second, std::vector<std::string>(5, second.front()));
}

}  // namespace
}  // namespace tradebill::report_exports_test
