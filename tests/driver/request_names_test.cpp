// Names that would lead a run out of its folders.
#include "driver/request_names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <string_view>

#include "driver/run_fixture.h"

namespace tradebill::request_names_test {
namespace {

using namespace std::string_literals;

constexpr std::string_view kSeparator = "holds a path separator";
constexpr std::string_view kColon = "holds a colon, as a drive does";
constexpr std::string_view kElsewhere = "leads to another folder";
constexpr std::string_view kDevice = "is a device of Windows";
constexpr std::string_view kControl = "holds a control character";

struct Case {
    std::string name;
    std::string_view why;
};

TEST(RequestNames, AreRefusedForWhatTheyHold) {
    const Case cases[] = {
        {"a/b", kSeparator},
        {"/a", kSeparator},
        {"a\\b", kSeparator},
        {"..\\a", kSeparator},
        {"../../a", kSeparator},
        {"/", kSeparator},
        {"\\", kSeparator},
        {"买\\a", kSeparator},
        {"C:", kColon},
        {"C:a", kColon},
        {"a:b", kColon},
        {"..", kElsewhere},
        {".", kElsewhere},
        {"...", kElsewhere},
        {".. ", kElsewhere},
        {" ", kElsewhere},
        {". .", kElsewhere},
        {"CON", kDevice},
        {"nul", kDevice},
        {"Aux.txt", kDevice},
        {"prn ", kDevice},
        {"con .ini", kDevice},
        {"NUL.", kDevice},
        {"NUL...", kDevice},
        {"COM1", kDevice},
        {"lpt9.a.b", kDevice},
        {"com0", kDevice},
        {"COM¹", kDevice},
        {"LPT³.txt", kDevice},
        {"CONIN$", kDevice},
        {"conout$", kDevice},
        {"a\nb", kControl},
        {"\x1B[2J", kControl},
        {"a\x7F", kControl},
        {"\x1F", kControl},
        {"a\tb", kControl},
        {"\xC2\x9B"
         "1",
         kControl},
        {"\xC2\x80", kControl},
    };
    for (const Case& row : cases) EXPECT_EQ(WhyNoName(row.name), row.why) << row.name;
}

TEST(RequestNames, MayBeOddAndHarmless) {
    for (const std::string name :
         {"",    "demo",  "90010002", "买卖", "a b",  " a",   "a.b", "..a", "a..",      ".a",    "CONx",
          "COM", "COM10", "COMA",     "LPT",  "xCON", "NULL", "a;b", "%2F", "\xC2\xA0", "a.CON", "COM1x"}) {
        EXPECT_EQ(WhyNoName(name), "") << name;
    }
}

// 815C is a character of GBK whose second byte is a backslash's; D57C one with that of a bar.
TEST(RequestNames, MayHaveGbkCharactersWithABackslashInThem) {
    EXPECT_EQ(WhyNoName("\x81\x5C"), "");
    EXPECT_EQ(WhyNoName("\x81\x5C\xD5\xCB\xBB\xA7"), "");
    EXPECT_EQ(WhyNoName("\xD5\x7C"), "");
    EXPECT_EQ(WhyNoName("\xD5\xCB\\a"), kSeparator);
    EXPECT_EQ(WhyNoName("\x81\x5C\\"), kSeparator);
    EXPECT_EQ(WhyNoName("\x81/"), kSeparator);  // no character: a slash is never half of one
    EXPECT_EQ(WhyNoName("\xFF\\"), kSeparator);
}

// As Windows reads it with code page 936, and as Linux passes it on.
TEST(RequestNames, AreReadAsTheSystemReadsThem) {
    GenerateBillRequest request = ClearedRequest();
    EXPECT_EQ(WhyNamesFail(request), "");
    CopyField(request.UserFolder, "\x81\x5C\xD5\xCB");
    CopyField(request.Account, "\xD5\x7C");
    EXPECT_EQ(WhyNamesFail(request), "");
    CopyField(request.Account, "\xD5\xCB\x5C\xD5\xCB");
    EXPECT_EQ(WhyNamesFail(request), "Account holds a path separator: nothing is read or written");
    std::fill(std::begin(request.UserFolder), std::end(request.UserFolder), '/');  // without an end
    EXPECT_EQ(WhyNamesFail(request), "UserFolder holds a path separator: nothing is read or written");
}

class RunsOfBadNames : public RunFixture {
protected:
    /// Runs it and returns what the system says of it, with nothing changed on disk.
    std::string WhyRefused() {
        const auto before = ContentOf(root_.Path());
        const RunResult result = RunReport(report, request_, &watcher_);
        EXPECT_EQ(result.end, RunEnd::NothingRead);
        EXPECT_EQ(result.days, 0);
        EXPECT_EQ(result.statementsRead, 0);
        EXPECT_FALSE(result.pageWritten);
        EXPECT_TRUE(StoresAreEmpty(report));
        EXPECT_FALSE(result.problems.IsEmpty());
        EXPECT_EQ(ContentOf(root_.Path()), before);
        return result.problems.names;
    }
};

TEST_F(RunsOfBadNames, ReadAndWriteNothing) {
    PutBothDays();
    root_.Write("other/Data/Bill/D10086.20240102o.txt", FullStatement("20240102"));
    root_.Write("secret.ini", "[DEALFIELD]\r\nBILLFORMAT_NEWDATE=20241399\r\n");  // an error, if it is read
    CopyField(request_.UserFolder, "../other");
    EXPECT_EQ(WhyRefused(), "UserFolder holds a path separator: nothing is read or written");
    CopyField(request_.UserFolder, "..");
    EXPECT_EQ(WhyRefused(), "UserFolder leads to another folder: nothing is read or written");
    CopyField(request_.UserFolder, "u");
    CopyField(request_.Account, "/../10086");
    EXPECT_EQ(WhyRefused(), "Account holds a path separator: nothing is read or written");
    CopyField(request_.Account, "10086");
    CopyField(request_.TemplateName, "..\\secret");
    EXPECT_EQ(WhyRefused(), "TemplateName holds a path separator: nothing is read or written");
    CopyField(request_.TemplateName, "../secret");
    EXPECT_EQ(ReadAccount(report, request_, nullptr).end, RunEnd::NothingRead);
    EXPECT_EQ(ReadStatements(report, request_, nullptr).end, RunEnd::NothingRead);
    CopyField(request_.TemplateName, "");
    EXPECT_EQ(RunAlone().statementsRead, 2);
}

TEST_F(RunsOfBadNames, LeaveTheLastReportsPageAlone) {
    PutBothDays();
    ASSERT_TRUE(Run().pageWritten);
    CopyField(request_.TemplateName, "NUL");
    EXPECT_EQ(WhyRefused(), "TemplateName is a device of Windows: nothing is read or written");
}

TEST_F(RunsOfBadNames, AreToldToTheHost) {
    PutBothDays();
    SetRootFolder(root_.Path().c_str());
    CopyField(request_.Account, "C:10086");
    EXPECT_EQ(TryGenerateBill(&request_), 0U);
    EXPECT_STREQ(TradeBillLastError(), "Account holds a colon, as a drive does: nothing is read or written");
    TradeBillCounts counts{};
    counts.Size = sizeof counts;
    TradeBillLastCounts(&counts);
    EXPECT_EQ(counts.Days, 0U);
    EXPECT_EQ(counts.Pictures, 0U);
    EXPECT_FALSE(std::filesystem::exists(PageFile()));
}

}  // namespace
}  // namespace tradebill::request_names_test
