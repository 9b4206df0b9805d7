#include "batch/results_file.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <initializer_list>
#include <string>

#include "batch/account_result.h"
#include "batch/made_results.h"
#include "platform/file.h"
#include "support/temp_folder.h"

namespace tradebill::results_file_test {
namespace {

class ResultsFile : public testing::Test {
protected:
    static ResultsByAccount Of(std::initializer_list<std::string> accounts) {
        ResultsByAccount results;
        for (const std::string& account : accounts) results[MadeResult(account).account] = MadeResult(account);
        return results;
    }
    void Write(const std::string& bytes) const { folder_.Write("results.jsonl", bytes); }

    CTempFolder folder_;
    std::string path_ = folder_.Path("results.jsonl");
};

TEST_F(ResultsFile, GrowsLineByLine) {
    CResultsFile file(path_);
    ASSERT_TRUE(file.Begin({}));
    EXPECT_EQ(ReadFile(path_), "");
    ASSERT_TRUE(file.Append(MadeResult("1")));
    EXPECT_EQ(ReadFile(path_), ResultLine(MadeResult("1")));  // at once
    ASSERT_TRUE(file.Append(MadeResult("2")));
    EXPECT_TRUE(file.Close());
    const ReadResults read = LoadResults(path_);
    EXPECT_TRUE(read.isTidy);
    EXPECT_EQ(read.results, Of({"1", "2"}));
}

TEST_F(ResultsFile, MayBeMissing) {
    const ReadResults read = LoadResults(path_);
    EXPECT_TRUE(read.results.empty());
    EXPECT_TRUE(read.isTidy);
    EXPECT_FALSE(read.unread.has_value());
}

TEST_F(ResultsFile, LosesALineThatWasCutAndNoOther) {
    const std::string first = ResultLine(MadeResult("1"));
    const std::string second = ResultLine(MadeResult("2"));
    for (std::size_t size = 1; size < second.size(); ++size) {
        Write(first + second.substr(0, size));
        const ReadResults read = LoadResults(path_);
        ASSERT_EQ(read.results, Of({"1"})) << size;
        ASSERT_FALSE(read.isTidy);
    }
    CResultsFile file(path_);
    ASSERT_TRUE(file.Begin(LoadResults(path_).results));
    ASSERT_TRUE(file.Append(MadeResult("3")));
    ASSERT_TRUE(file.Close());
    EXPECT_EQ(ReadFile(path_), first + ResultLine(MadeResult("3")));
}

TEST_F(ResultsFile, KeepsTheLastOfAnAccount) {
    AccountResult later = MadeResult("1");
    later.pl = 7;
    Write(ResultLine(MadeResult("1")) + "rubbish\n\n" + ResultLine(MadeResult("2")) + ResultLine(later));
    const ReadResults read = LoadResults(path_);
    EXPECT_FALSE(read.isTidy);
    ASSERT_EQ(read.results.size(), 2U);
    EXPECT_EQ(read.results.at(later.account).pl, 7);
}

TEST_F(ResultsFile, IsNotWrittenAnewWhereItIsAsItShouldBe) {
    Write(ResultLine(MadeResult("2")) + ResultLine(MadeResult("1")));
    CResultsFile file(path_);
    ASSERT_TRUE(file.Begin(Of({"1", "2"})));
    ASSERT_TRUE(file.Append(MadeResult("3")));
    EXPECT_EQ(ReadFile(path_), ResultLine(MadeResult("2")) + ResultLine(MadeResult("1")) + ResultLine(MadeResult("3")));
    EXPECT_TRUE(file.Close());
}

TEST_F(ResultsFile, DropsWhatIsNotKept) {
    Write(ResultLine(MadeResult("1")) + ResultLine(MadeResult("2")));
    CResultsFile file(path_);
    ASSERT_TRUE(file.Begin(Of({"2"})));
    EXPECT_TRUE(file.Close());
    EXPECT_EQ(LoadResults(path_).results, Of({"2"}));
}

TEST_F(ResultsFile, CanNotBeAFolder) {
    std::filesystem::create_directory(path_);
    const ReadResults read = LoadResults(path_);
    ASSERT_TRUE(read.unread.has_value());
    EXPECT_EQ(read.unread->state, FileState::NotAFile);
    CResultsFile file(path_);
    EXPECT_FALSE(file.Begin({}));
}

}  // namespace
}  // namespace tradebill::results_file_test
