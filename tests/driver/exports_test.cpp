// The functions that a host finds in the module.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <thread>

#include "driver/host_module.h"
#include "driver/run_fixture.h"
#include "support/host_objects.h"
#include "support/raised_code.h"

namespace tradebill::exports_test {
namespace {

class Exports : public RunFixture {
protected:
    Exports() { SetRootFolder(root_.Path().c_str()); }
};

std::uint32_t CodeRaisedFor(const GenerateBillRequest* request) {
    return CodeRaisedBy([request] { GenerateBill(request); });
}

TEST_F(Exports, MakeAReport) {
    PutBothDays();
    GenerateBill(&request_);
    EXPECT_TRUE(Page().ends_with("</html>\r\n"));
    EXPECT_EQ(TheModule().report.MoneyStore.Count(), 2);
}

TEST_F(Exports, MakeAReportForHostsThatCantCatch) {
    PutBothDays();
    EXPECT_EQ(TryGenerateBill(&request_), 0U);
    EXPECT_TRUE(Page().ends_with("</html>\r\n"));
    EXPECT_EQ(TheModule().report.MoneyStore.Count(), 2);
}

TEST_F(Exports, CarryTheCodeOfARefusedDate) {
    SetDates("1899-12-31", "2024-1-2");
    EXPECT_EQ(CodeRaisedFor(&request_), 0x80004005);
    EXPECT_EQ(TryGenerateBill(&request_), 0x80004005);
    SetDates("2024-1-2", "1969-12-30");
    EXPECT_EQ(CodeRaisedFor(&request_), 0x80070057);
    EXPECT_EQ(TryGenerateBill(&request_), 0x80070057);
}

TEST_F(Exports, LeaveStoresEmptyForARefusedDate) {
    PutBothDays();
    ASSERT_EQ(TryGenerateBill(&request_), 0U);
    ASSERT_FALSE(StoresAreEmpty(TheModule().report));
    SetDates("2024-1-2", "2024-13-1");
    EXPECT_NE(TryGenerateBill(&request_), 0U);
    EXPECT_TRUE(StoresAreEmpty(TheModule().report));
}

TEST_F(Exports, RefuseANullRequest) {
    EXPECT_EQ(CodeRaisedFor(nullptr), 0x80070057);
    EXPECT_EQ(TryGenerateBill(nullptr), 0x80070057);
}

TEST_F(Exports, AreDoneBeforeTheyReturnForAStoppedRun) {
    const UniqueEvent stop(CreateHostEvent(kManualReset));
    request_.StopEvent = stop.get();
    SignalHostEvent(stop.get());
    EXPECT_EQ(TryGenerateBill(&request_), 0U);  // a stop is no error
    EXPECT_EQ(ReadFile(PageFile()), "");
}

TradeBillCounts LastCounts() {
    TradeBillCounts counts{};
    counts.Size = sizeof counts;
    TradeBillLastCounts(&counts);
    return counts;
}

TEST_F(Exports, TellThatACallWentWellAndWhatItCounted) {
    PutBothDays();
    SetDates("2024-1-1", "2024-1-5");
    ASSERT_EQ(TryGenerateBill(&request_), 0U);
    EXPECT_STREQ(TradeBillLastError(), "");
    const TradeBillCounts counts = LastCounts();
    EXPECT_EQ(counts.Days, 5U);
    EXPECT_EQ(counts.Statements, 2U);
    EXPECT_EQ(counts.Unreadable, 0U);
    EXPECT_EQ(counts.Records, 2U + 4 + 4 + 4);  // money, trades, closed and open positions
    EXPECT_EQ(counts.Pictures, 14U);
}

TEST_F(Exports, TellWhatKeepsAReportFromBeingWholeThoughItsCodeIs0) {
    PutBothDays();
    std::filesystem::create_directories(root_.Path("Users/u/Data/Bill/D10086.20240104o.txt"));
    std::filesystem::create_directories(PageFile());
    SetDates("2024-1-2", "2024-1-4");
    EXPECT_EQ(TryGenerateBill(&request_), 0U);
    const std::string error = TradeBillLastError();
    EXPECT_NE(error.find("D10086.20240104o.txt is not a file\n"), std::string::npos) << error;
    EXPECT_NE(error.find("\ncan't write the page "), std::string::npos) << error;
    EXPECT_EQ(LastCounts().Unreadable, 1U);
    EXPECT_EQ(LastCounts().Statements, 2U);
    std::filesystem::remove_all(PageFile());
    SetDates("2024-1-2", "2024-1-3");
    EXPECT_EQ(TryGenerateBill(&request_), 0U);
    EXPECT_STREQ(TradeBillLastError(), "");
    EXPECT_EQ(LastCounts().Unreadable, 0U);
}

TEST_F(Exports, TellAtMost20ProblemsInFull) {
    for (int day = 10; day < 31; ++day) {
        std::filesystem::create_directories(
            root_.Path("Users/u/Data/Bill/D10086.202401" + std::to_string(day) + "o.txt"));
    }
    SetDates("2024-1-10", "2024-1-29");
    TryGenerateBill(&request_);
    EXPECT_EQ(CountOf("\n", TradeBillLastError()), 19U);
    SetDates("2024-1-10", "2024-1-30");
    TryGenerateBill(&request_);
    EXPECT_EQ(CountOf("\n", TradeBillLastError()), 20U);
    EXPECT_TRUE(std::string(TradeBillLastError()).ends_with("\nand 1 more"));
}

TEST_F(Exports, TellTheErrorOfARefusedDate) {
    SetDates("2024-13-1", "2024-1-2");
    EXPECT_EQ(TryGenerateBill(&request_), 0x80004005U);
    EXPECT_TRUE(std::string(TradeBillLastError()).starts_with("the run failed with code 0x80004005: "));
    EXPECT_EQ(CodeRaisedFor(&request_), 0x80004005U);
    EXPECT_TRUE(std::string(TradeBillLastError()).starts_with("the run failed with code 0x80004005: "));
    EXPECT_EQ(LastCounts().Days, 0U);
}

TEST_F(Exports, TellOfANullRequest) {
    PutBothDays();
    TryGenerateBill(&request_);
    TryGenerateBill(nullptr);
    EXPECT_STREQ(TradeBillLastError(), "the request is null");
    EXPECT_EQ(LastCounts().Days + LastCounts().Pictures, 0U);
}

TEST_F(Exports, TellOfAPlaceholderPageThatCantBeWritten) {
    ResetTradeBillFile(root_.Path("missing/TradeBill.html").c_str(), 1);
    EXPECT_TRUE(std::string(TradeBillLastError()).starts_with("can't write the page ")) << TradeBillLastError();
    ResetTradeBillFile(root_.Path("TradeBill.html").c_str(), 1);
    EXPECT_STREQ(TradeBillLastError(), "");
    ResetTradeBillFile(nullptr, 1);
    EXPECT_STREQ(TradeBillLastError(), "the path is null");
}

TEST_F(Exports, TellTheLastCallOnAnyThread) {
    PutBothDays();
    std::thread([this] { TryGenerateBill(&request_); }).join();
    EXPECT_EQ(LastCounts().Statements, 2U);
    TryGenerateBill(nullptr);
    std::string error;
    std::thread([&error] { error = TradeBillLastError(); }).join();
    EXPECT_EQ(error, "the request is null");
}

TEST_F(Exports, KeepTheLastCallWhereNoneCanFail) {
    TryGenerateBill(nullptr);
    SetRootFolder(root_.Path().c_str());
    const ChartRect rect{0, 0, 10, 10};
    StretchZjGraph(nullptr, &rect, 10, 10);
    EXPECT_STREQ(TradeBillLastError(), "the request is null");
}

TEST_F(Exports, SetTheRootFolder) {
    const CTempFolder other;
    other.Write("Users/u/Data/Bill/D10086.20240102o.txt", FundsOf("20240102", "5.00"));
    SetRootFolder(other.Path().c_str());
    EXPECT_EQ(TryGenerateBill(&request_), 0U);
    EXPECT_EQ(TheModule().report.MoneyStore.ClosingEquity, 5);
    EXPECT_TRUE(ReadFile(other.Path("Users/u/Data/Bill/Image/TradeBill.html")).ends_with("</html>\r\n"));
    EXPECT_EQ(ReadFile(PageFile()), "");
}

TEST_F(Exports, CopyTheRootFolder) {
    std::string path = root_.Path();
    SetRootFolder(path.c_str());
    path.assign(path.size(), 'x');
    EXPECT_EQ(TheModule().rootFolder, root_.Path());
}

TEST_F(Exports, CutTheRootFolderAt259Bytes) {
    SetRootFolder(("/" + std::string(300, 'r')).c_str());
    EXPECT_EQ(TheModule().rootFolder, "/" + std::string(258, 'r'));
}

TEST_F(Exports, KeepTheRootFolderForANullPath) {
    SetRootFolder(nullptr);
    EXPECT_EQ(TheModule().rootFolder, root_.Path());
}

}  // namespace
}  // namespace tradebill::exports_test
