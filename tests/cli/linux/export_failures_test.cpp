// Places that an export can't write to, and how it ends.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/cli_fixture.h"
#include "cli/export_command.h"
#include "cli/export_places.h"
#include "driver/place_guard.h"
#include "support/bound_user.h"
#include "support/failing_file.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::linux_export_failures_test {
namespace {

namespace fs = std::filesystem;

class ExportFailures : public CliFixture {
protected:
    ExportFailures() {
        PutStatement("20240102", "1500.25");
        options_.to = options_.from;
        fs::create_directory(csv_);
    }
    Answer Run(const std::string& folder) {
        ExportCommand command;
        command.options = options_;
        command.csvFolder = folder;
        command.wait = 0;
        command.quiet = true;
        testing::internal::CaptureStderr();
        Answer answer{};
        answer.exit = RunExportCommand(command);
        answer.err = testing::internal::GetCapturedStderr();
        return answer;
    }
    static void Lock(const std::string& folder) { fs::permissions(folder, fs::perms(0555)); }
    [[nodiscard]] static std::string RefusalOf(const std::string& database) {
        return UsageErrorOf([&] { static_cast<void>(FindExportPlaces({}, database)); });
    }

    std::string csv_ = root_.Path("csv");
};

TEST_F(ExportFailures, NameAFolderThatCannotBeMade) {
    Lock(csv_);
    const CBoundUser user;
    ASSERT_TRUE(user.IsBound());
    const Answer answer = Run(csv_ + "/new");
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "can't write " + csv_ + "/new: Permission denied\n")) << answer.err;
}

TEST_F(ExportFailures, NameAFolderThatNobodyMayWriteInto) {
    Lock(csv_);
    const CBoundUser user;
    ASSERT_TRUE(user.IsBound());
    const Answer answer = Run(csv_);
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "can't write " + csv_ + ": Permission denied\n")) << answer.err;
}

TEST_F(ExportFailures, NameWhoeverIsInTheWay) {
    const CPlaceGuard other(csv_, 0);
    ASSERT_TRUE(other.IsHeld());
    const Answer answer = Run(csv_);
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "is using it (--wait SECONDS waits longer)")) << answer.err;
}

TEST_F(ExportFailures, AreDatabasesThatAreNoFiles) {
    fs::create_symlink(root_.Path("two.db"), root_.Path("one.db"));
    fs::create_symlink(root_.Path("one.db"), root_.Path("two.db"));
    for (const std::string& place : {std::string(), std::string("-"), root_.Path("one.db"), csv_}) {
        EXPECT_TRUE(IsClearLine(RefusalOf(place), "--sqlite")) << place;
    }
}

TEST_F(ExportFailures, AreNoDatabasesOfATablesNameElsewhere) {
    const std::string place = root_.Path("days.csv");
    EXPECT_EQ(UsageErrorOf([&] { static_cast<void>(FindExportPlaces(csv_, place)); }), "");
    EXPECT_TRUE(
        IsClearLine(UsageErrorOf([&] { static_cast<void>(FindExportPlaces(csv_, csv_ + "/days.csv")); }), "--sqlite"));
}

}  // namespace
}  // namespace tradebill::linux_export_failures_test
