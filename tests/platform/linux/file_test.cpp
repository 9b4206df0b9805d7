#include "platform/file.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "support/bound_user.h"
#include "support/failing_file.h"
#include "support/temp_folder.h"

namespace tradebill::linux_file_test {
namespace {

class LinuxWholeFile : public testing::Test {
protected:
    FileContent Read(const std::string& path, FileMode mode = FileMode::Read) {
        return ReadWholeFile(path, buffer_, mode);
    }

    CTempFolder folder_;
    CFileBuffer buffer_;
};

TEST_F(LinuxWholeFile, IsMissingWhereALinkLeadsNowhere) {
    ASSERT_EQ(::symlink("nowhere", folder_.Path("link").c_str()), 0);
    EXPECT_EQ(Read(folder_.Path("link")).state, FileState::Missing);
    folder_.Write("nowhere", "text");
    EXPECT_EQ(Read(folder_.Path("link")).bytes, "text");
}

TEST_F(LinuxWholeFile, IsNoPipeDeviceOrSocket) {
    ASSERT_EQ(::mkfifo(folder_.Path("pipe").c_str(), 0600), 0);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    folder_.Path("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    for (const FileMode mode : {FileMode::Read, FileMode::Update}) {
        EXPECT_EQ(Read(folder_.Path("pipe"), mode).state, FileState::NotAFile);
        EXPECT_EQ(Read(folder_.Path("socket"), mode).state, FileState::NotAFile);  // which can't even be opened
        EXPECT_EQ(Read("/dev/null", mode).state, FileState::NotAFile);
        EXPECT_EQ(Read("/dev/zero", mode).state, FileState::NotAFile);
    }
    ::close(socket);
}

TEST_F(LinuxWholeFile, IsUnreadableWithoutTheRight) {
    const std::string path = folder_.Write("a.txt", "text");
    ASSERT_EQ(::chmod(path.c_str(), 0000), 0);
    {
        const CBoundUser user;
        ASSERT_TRUE(user.IsBound());
        const FileContent content = Read(path);
        EXPECT_EQ(content.state, FileState::Unreadable);
        EXPECT_EQ(content.reason, "Permission denied");
    }
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    const CBoundUser user;
    EXPECT_EQ(Read(path).state, FileState::Read);
    EXPECT_EQ(Read(path, FileMode::Update).state, FileState::Unreadable);
}

TEST_F(LinuxWholeFile, IsUnreadableWhereLinksGoRound) {
    ASSERT_EQ(::symlink("round", folder_.Path("round").c_str()), 0);
    const FileContent content = Read(folder_.Path("round"));
    EXPECT_EQ(content.state, FileState::Unreadable);
    EXPECT_EQ(content.reason, "Too many levels of symbolic links");
}

TEST_F(LinuxWholeFile, IsUnreadableIfItIsToBeWrittenAndCantBe) {
    // A program that runs can be read but not be opened for writing, not even by root.
    EXPECT_TRUE(CFile("/proc/self/exe", FileMode::Read).IsOpen());
    EXPECT_EQ(Read("/proc/self/exe", FileMode::Update).state, FileState::Unreadable);
}

TEST_F(LinuxWholeFile, IsUnreadableIfAReadFails) {
    const std::string path = folder_.Path("a.ini");
    PutFailingFile(path);
    const FileContent content = Read(path);
    EXPECT_EQ(content.state, FileState::Unreadable);
    EXPECT_EQ(content.reason, kFailingReason);
    EXPECT_EQ(content.bytes, "");
    EXPECT_EQ(LoadIniFile(path).state, FileState::Unreadable);
    EXPECT_FALSE(CFile(path, FileMode::Read).ReadAll().has_value());
}

TEST_F(LinuxWholeFile, IsUnreadableIfItEndsBeforeItsSize) {
    const std::string path = "/sys/devices/system/cpu/online";  // says a page of memory, and holds a few bytes
    ASSERT_TRUE(std::filesystem::exists(path));
    const FileContent content = Read(path);
    EXPECT_EQ(content.state, FileState::Unreadable);
    EXPECT_TRUE(content.reason.starts_with("only ")) << content.reason;
    EXPECT_TRUE(content.reason.ends_with(" of its 4096 bytes can be read")) << content.reason;
}

}  // namespace
}  // namespace tradebill::linux_file_test
