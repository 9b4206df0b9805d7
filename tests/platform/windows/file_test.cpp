#include "platform/file.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/paths.h"
#include "platform/system_error.h"
#include "platform/windows/unique_handle.h"
#include "support/temp_folder.h"
#include "support/windows_header.h"

namespace tradebill::windows_file_test {
namespace {

TEST(WindowsStatementFile, IsNotReadIfAnotherHoldsItForItself) {
    const CTempFolder folder;
    const std::string path = folder.Write("a.txt", "text");
    {
        const CUniqueHandle other(
            ::CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(other.IsValid());
        CFileBuffer buffer;
        const FileContent content = ReadWholeFile(path, buffer);
        EXPECT_EQ(content.state, FileState::Unreadable);
        EXPECT_EQ(content.reason, SystemErrorText(ERROR_SHARING_VIOLATION));
        EXPECT_NE(content.reason, "");
    }
    CFileBuffer buffer;
    EXPECT_EQ(ReadWholeFile(path, buffer).bytes, "text");
}

TEST(WindowsStatementFile, IsNoDevice) {
    CFileBuffer buffer;
    EXPECT_EQ(ReadWholeFile("NUL", buffer).state, FileState::NotAFile);
}

// The second byte of the first character is a backslash.
TEST(WindowsPath, MayHaveChineseCharacters) {
    ASSERT_EQ(::GetACP(), 936u);
    const CTempFolder folder;
    const std::string name = "\x81\x5C\xD5\xCB\xBB\xA7";
    ASSERT_TRUE(MakeFolders(folder.Path(name + "/deep")));
    EXPECT_TRUE(IsFolder(folder.Path(name)));
    const std::string file = folder.Path(name + "/deep/" + name);
    {
        CFile made(file, FileMode::Create);
        ASSERT_TRUE(made.Write("text"));
    }
    CFileBuffer buffer;
    EXPECT_EQ(ReadWholeFile(file, buffer).bytes, "text");
    EXPECT_EQ(FileNameOf(file), name);
    EXPECT_TRUE(IsSameFile(FolderOf(file), folder.Path(name + "\\deep")));
    EXPECT_TRUE(MoveOver(file, folder.Path(name + "/moved")));
    EXPECT_FALSE(IsPlainFile(file));
}

TEST(WindowsPath, IsShownWithBackslashes) {
    EXPECT_EQ(NativePath("C:\\trade/Users/a"), "C:\\trade\\Users\\a");
    EXPECT_EQ(NativePath(""), "");
}

}  // namespace
}  // namespace tradebill::windows_file_test
