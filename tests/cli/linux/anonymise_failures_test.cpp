// What a copy can't be made from, or can't be put into.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include "cli/anonymise_command.h"
#include "cli/anonymised_folder.h"
#include "cli/cli_fixture.h"
#include "requests/input_file.h"
#include "support/bound_user.h"
#include "support/failing_file.h"
#include "support/file_size_limit.h"
#include "support/temp_folder.h"

namespace tradebill::linux_anonymise_failures_test {
namespace {

namespace fs = std::filesystem;

class AnonymiseFailures : public CliFixture {
protected:
    [[nodiscard]] std::string RefusalOf(const std::string& out) const {
        return UsageErrorOf([&] { const CAnonymisedFolder folder(out, root_.Path()); });
    }

    CTempFolder folder_;
};

TEST_F(AnonymiseFailures, AreChainsThatCannotBeRead) {
    PutStatement("20240102", "1500.25");
    PutFailingFile(root_.Path("sys/chain.ini"));
    AnonymiseCommand command;
    command.root = root_.Path();
    command.out = folder_.Path("copy");
    command.format = "1";
    EXPECT_THROW(static_cast<void>(RunAnonymiseCommand(command)), CUnreadableInput);
    EXPECT_FALSE(fs::exists(command.out));
}

TEST_F(AnonymiseFailures, AreStatementsThatCannotBeRead) {
    PutFailingFile(root_.Path("Users/demo/Data/Bill/D90010002.20240102o.txt"));
    AnonymiseCommand command;
    command.root = root_.Path();
    command.out = folder_.Path("copy");
    command.format = "1";
    testing::internal::CaptureStderr();
    EXPECT_EQ(RunAnonymiseCommand(command), 1);
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_NE(told.find("D90010002.20240102o.txt: it can't be read: " + kFailingReason + "\n"), std::string::npos)
        << told;
    EXPECT_FALSE(fs::exists(command.out));
}

std::string FailureOf(CAnonymisedFolder& folder, const std::string& name, std::string_view bytes) {
    try {
        folder.Write(name, bytes);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return {};
}

TEST_F(AnonymiseFailures, LeaveNothingOnAFullDisk) {
    const std::string out = folder_.Path("copy");
    {
        CAnonymisedFolder folder(out, root_.Path());
        const CFileSizeLimit limit(100);
        EXPECT_EQ(FailureOf(folder, "Users/one.txt", std::string(100, 'x')), "");
        EXPECT_EQ(FailureOf(folder, "Users/two.txt", std::string(101, 'x')),
                  "can't write " + out + "/Users/two.txt: File too large; nothing of the copy is left");
        EXPECT_TRUE(fs::exists(out + "/Users/one.txt"));
    }
    EXPECT_FALSE(fs::exists(out));
}

TEST_F(AnonymiseFailures, AreFoldersThatCannotBeMade) {
    fs::create_directory(folder_.Path("locked"));
    fs::permissions(folder_.Path("locked"), fs::perms(0555));
    const std::string out = folder_.Path("locked/copy");
    CAnonymisedFolder folder(out, root_.Path());
    const CBoundUser user;
    ASSERT_TRUE(user.IsBound());
    EXPECT_EQ(FailureOf(folder, "Users/one.txt", "x"),
              "can't write " + out + ": Permission denied; nothing of the copy is left");
}

TEST_F(AnonymiseFailures, AreFoldersThatNobodyMayLookInto) {
    const std::string out = folder_.Path("copy");
    fs::create_directory(out);
    fs::permissions(out, fs::perms::owner_exec, fs::perm_options::replace);
    const CBoundUser user;
    ASSERT_TRUE(user.IsBound());
    const std::string refusal = RefusalOf(out);
    EXPECT_TRUE(IsClearLine(refusal, "--out")) << refusal;
    EXPECT_NE(refusal.find("can't be looked into"), std::string::npos) << refusal;
}

TEST_F(AnonymiseFailures, ArePlacesOfPipes) {
    const std::string out = folder_.Path("pipe");
    ASSERT_EQ(::mkfifo(out.c_str(), 0600), 0);
    const std::string refusal = RefusalOf(out);
    EXPECT_TRUE(IsClearLine(refusal, "--out: expected a folder, found a file")) << refusal;
}

}  // namespace
}  // namespace tradebill::linux_anonymise_failures_test
