// The functions that a host finds in the module.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

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
