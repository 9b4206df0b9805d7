// Rights and links, which only this system has.
#include "platform/file_place.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "platform/paths.h"
#include "support/temp_folder.h"

namespace tradebill::linux_file_place_test {
namespace {

namespace fs = std::filesystem;

struct stat StatusOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status;
}

mode_t ModeOf(const std::string& path) {
    return StatusOf(path).st_mode & 07777;
}

class FileRights : public testing::Test {
protected:
    std::string Made() { return folder_.Write("work/page", "new"); }

    CTempFolder folder_;
    std::string place_ = folder_.Path("page");
};

TEST_F(FileRights, GivesANewFileTheRightsOfAnyOther) {
    const mode_t mask = ::umask(027);
    EXPECT_TRUE(PutInPlace(Made(), place_));
    ::umask(mask);
    EXPECT_EQ(ModeOf(place_), 0640U);
}

TEST_F(FileRights, KeepsTheModeOfTheOldFile) {
    for (const mode_t mode : {0600U, 0664U, 0444U, 0777U}) {
        folder_.Write("page", "old");
        ASSERT_EQ(::chmod(place_.c_str(), mode), 0);
        EXPECT_TRUE(PutInPlace(Made(), place_));
        EXPECT_EQ(ModeOf(place_), mode);
        EXPECT_EQ(ReadFile(place_), "new");
        fs::remove(place_);
    }
}

TEST_F(FileRights, ReplacesALinkAndLeavesWhatItLeadsTo) {
    const std::string secret = folder_.Write("secret", "secret");
    ASSERT_EQ(::chmod(secret.c_str(), 0600), 0);
    for (const std::string& target :
         {secret, folder_.Path("nowhere"), std::string("/dev/null"), folder_.Path("work")}) {
        fs::remove(place_);
        fs::create_symlink(target, place_);
        EXPECT_TRUE(PutInPlace(Made(), place_)) << target;
        EXPECT_FALSE(fs::is_symlink(place_)) << target;
        EXPECT_EQ(ReadFile(place_), "new");
        EXPECT_NE(ModeOf(place_), 0600U);
    }
    EXPECT_EQ(ReadFile(secret), "secret");
    EXPECT_FALSE(fs::exists(folder_.Path("nowhere")));
}

TEST_F(FileRights, KeepsWhatIsNoFile) {
    ASSERT_EQ(::mkfifo(place_.c_str(), 0600), 0);
    EXPECT_FALSE(PutInPlace(Made(), place_));
    EXPECT_TRUE(fs::is_fifo(place_));
}

// Only root may give files to others.
TEST_F(FileRights, KeepsTheGroupOfTheOldFile) {
    if (::geteuid() != 0) return;
    constexpr gid_t kGroup = 12345;
    folder_.Write("page", "old");
    ASSERT_EQ(::chown(place_.c_str(), 0, kGroup), 0);
    ASSERT_EQ(::chmod(place_.c_str(), 02664), 0);
    EXPECT_TRUE(PutInPlace(Made(), place_));
    EXPECT_EQ(StatusOf(place_).st_gid, kGroup);
    EXPECT_EQ(ModeOf(place_), 02664U);
}

TEST_F(FileRights, GivesANewFileTheGroupThatItsFolderWants) {
    if (::geteuid() != 0) return;
    constexpr gid_t kGroup = 12345;
    const std::string made = Made();
    const std::string shared = folder_.Path("shared");
    fs::create_directory(shared);
    ASSERT_EQ(::chown(shared.c_str(), 0, kGroup), 0);
    ASSERT_EQ(::chmod(shared.c_str(), 02775), 0);
    EXPECT_TRUE(PutInPlace(made, shared + "/page"));
    EXPECT_EQ(StatusOf(shared + "/page").st_gid, kGroup);
}

/// Another user with two groups, for as long as it lives.
class CSecondUser {
public:
    explicit CSecondUser(gid_t second) {
        EXPECT_EQ(::setgroups(1, &second), 0);
        EXPECT_EQ(::setegid(kUser), 0);
        EXPECT_EQ(::seteuid(kUser), 0);
    }
    ~CSecondUser() {
        EXPECT_EQ(::seteuid(0), 0);
        EXPECT_EQ(::setegid(0), 0);
        EXPECT_EQ(::setgroups(0, nullptr), 0);
    }
    CSecondUser(const CSecondUser&) = delete;
    CSecondUser& operator=(const CSecondUser&) = delete;

    static constexpr uid_t kUser = 23456;
};

/// What somebody else owns is replaced where the folder allows it. His group stays if this user has it too.
TEST_F(FileRights, KeepsTheGroupOfAnothersFileWhereThatIsAllowed) {
    if (::geteuid() != 0) return;
    constexpr gid_t kShared = 12345;
    constexpr gid_t kForeign = 12346;
    ASSERT_EQ(::chmod(folder_.Path().c_str(), 0777), 0);
    for (const gid_t group : {kShared, kForeign}) {
        folder_.Write("page", "old");
        ASSERT_EQ(::chown(place_.c_str(), 34567, group), 0);
        ASSERT_EQ(::chmod(place_.c_str(), 0640), 0);
        const CSecondUser user(kShared);
        EXPECT_TRUE(PutInPlace(folder_.Write("own/page", "new"), place_)) << group;
        EXPECT_EQ(StatusOf(place_).st_uid, CSecondUser::kUser);
        EXPECT_EQ(StatusOf(place_).st_gid, group == kShared ? kShared : gid_t{CSecondUser::kUser});
        EXPECT_EQ(ModeOf(place_), 0640U);
        EXPECT_EQ(ReadFile(place_), "new");
    }
}

TEST(Link, IsSeenWhereverItLeads) {
    const CTempFolder folder;
    fs::create_symlink("nowhere", folder.Path("dangling"));
    fs::create_directory_symlink(folder.Path(), folder.Path("link"));
    folder.Write("file", "");
    EXPECT_TRUE(IsLink(folder.Path("dangling")));
    EXPECT_TRUE(IsLink(folder.Path("link")));
    EXPECT_FALSE(IsLink(folder.Path("file")));
    EXPECT_FALSE(IsLink(folder.Path()));
    EXPECT_FALSE(IsLink(folder.Path("missing")));
    EXPECT_FALSE(IsLink(folder.Path("file/below")));
}

}  // namespace
}  // namespace tradebill::linux_file_place_test
