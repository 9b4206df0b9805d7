#include "platform/file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/system_error.h"
#include "support/temp_folder.h"

namespace tradebill::file_test {
namespace {

using namespace std::string_literals;

class File : public testing::Test {
protected:
    CTempFolder folder_;
};

TEST_F(File, ReadsWhatIsThere) {
    const CFile file(folder_.Write("a.txt", "one\0two"s), FileMode::Read);
    ASSERT_TRUE(file.IsOpen());
    EXPECT_EQ(file.Size(), 7U);
    EXPECT_EQ(file.ReadAll(), "one\0two"s);
}

TEST_F(File, ReadsPieces) {
    const CFile file(folder_.Write("a.txt", "0123456789"), FileMode::Read);
    char buffer[6] = "-----";
    EXPECT_EQ(file.ReadAt(2, buffer, 3), 3U);
    EXPECT_STREQ(buffer, "234--");
    EXPECT_EQ(file.ReadAt(8, buffer, 5), 2U);
    EXPECT_STREQ(buffer, "894--");
    EXPECT_EQ(file.ReadAt(10, buffer, 5), 0U);
    EXPECT_EQ(file.ReadAt(1000, buffer, 5), 0U);
}

TEST_F(File, ReadsNothingFromAnEmptyFile) {
    const CFile file(folder_.Write("a.txt", ""), FileMode::Read);
    EXPECT_EQ(file.Size(), 0U);
    EXPECT_EQ(file.ReadAll(), "");
}

TEST_F(File, RefusesToWriteWhereItOnlyReads) {
    const std::string path = folder_.Write("a.txt", "text");
    EXPECT_FALSE(CFile(path, FileMode::Read).Write("more"));
    EXPECT_FALSE(CFile(path, FileMode::Read).WriteAt(0, "more"));
    EXPECT_EQ(ReadFile(path), "text");
}

TEST_F(File, CreatesANewFileWhereThereIsNone) {
    const std::string path = folder_.Path("a.txt");
    EXPECT_TRUE(CFile(path, FileMode::CreateNew).Write("a text"));
    EXPECT_FALSE(CFile(path, FileMode::CreateNew).IsOpen());
    EXPECT_TRUE(MeansThere(LastSystemError()));
    EXPECT_EQ(ReadFile(path), "a text");
    EXPECT_FALSE(CFile(folder_.Path("missing/a.txt"), FileMode::CreateNew).IsOpen());
    EXPECT_FALSE(MeansThere(LastSystemError()));
}

TEST_F(File, CreatesOrEmptiesAFile) {
    const std::string path = folder_.Path("a.txt");
    EXPECT_TRUE(CFile(path, FileMode::Create).Write("a long text"));
    EXPECT_EQ(ReadFile(path), "a long text");
    EXPECT_TRUE(CFile(path, FileMode::Create).Write("short"));
    EXPECT_EQ(ReadFile(path), "short");
    EXPECT_TRUE(CFile(path, FileMode::Create).IsOpen());
    EXPECT_EQ(ReadFile(path), "");
}

TEST_F(File, AppendsAtTheEndAsItIsThen) {
    const std::string path = folder_.Write("a.txt", "one");
    CFile file(path, FileMode::Append);
    EXPECT_TRUE(file.Write(" two"));
    EXPECT_TRUE(CFile(path, FileMode::Append).Write(" three"));
    EXPECT_TRUE(file.Write(" four"));
    EXPECT_EQ(ReadFile(path), "one two three four");
}

TEST_F(File, UpdatesAnywhere) {
    const std::string path = folder_.Write("a.txt", "0123456789");
    CFile file(path, FileMode::Update);
    EXPECT_TRUE(file.WriteAt(2, "ab"));
    EXPECT_TRUE(file.WriteAt(9, "xyz"));
    EXPECT_EQ(file.Size(), 12U);
    EXPECT_EQ(file.ReadAll(), "01ab45678xyz");
    EXPECT_EQ(ReadFile(path), "01ab45678xyz");
}

TEST_F(File, OpensOnlyWhatIsThereButForCreating) {
    const std::string path = folder_.Path("missing.txt");
    for (const FileMode mode : {FileMode::Read, FileMode::Append, FileMode::Update}) {
        CFile file(path, mode);
        EXPECT_FALSE(file.IsOpen());
        EXPECT_FALSE(file.Size().has_value());
        EXPECT_FALSE(file.ReadAll().has_value());
        EXPECT_FALSE(file.Write("text"));
        char byte = 0;
        EXPECT_FALSE(file.ReadAt(0, &byte, 1).has_value());
    }
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_FALSE(CFile(folder_.Path("missing/a.txt"), FileMode::Create).IsOpen());
    EXPECT_FALSE(CFile("", FileMode::Create).IsOpen());
}

#if !defined(_WIN32)  // which has no device that is always full
TEST_F(File, TellsThatTheDiskIsFull) {
    CFile full("/dev/full", FileMode::Append);
    ASSERT_TRUE(full.IsOpen());
    EXPECT_FALSE(full.Write("text"));
}
#endif

TEST_F(File, ReadsNothingWhereItOnlyWritesAndSaysSo) {
    const std::string path = folder_.Write("a.txt", "text");
    const CFile file(path, FileMode::Append);
    char byte = 0;
    EXPECT_FALSE(file.ReadAt(0, &byte, 1).has_value());
    EXPECT_NE(LastSystemError(), 0U);
    EXPECT_FALSE(file.ReadAll().has_value());
}

TEST_F(File, IsntOpenOnceItIsClosed) {
    const std::string path = folder_.Path("a.txt");
    CFile file(path, FileMode::Create);
    EXPECT_TRUE(file.Write("text"));
    EXPECT_TRUE(file.MakeDurable());
    EXPECT_TRUE(file.Close());
    EXPECT_FALSE(file.IsOpen());
    EXPECT_FALSE(file.Write("more"));
    EXPECT_EQ(ReadFile(path), "text");
}

TEST_F(File, WritesNothingWithoutFailing) {
    const std::string path = folder_.Write("a.txt", "text");
    EXPECT_TRUE(CFile(path, FileMode::Append).Write(""));
    EXPECT_TRUE(CFile(path, FileMode::Update).WriteAt(2, ""));
    EXPECT_EQ(ReadFile(path), "text");
}

TEST_F(File, HasNoContentIfItIsAFolder) {
    const CFile file(folder_.Path(), FileMode::Read);
    EXPECT_FALSE(file.ReadAll().has_value());
}

TEST_F(File, BuffersGrowAndStay) {
    CFileBuffer buffer;
    char* const small = buffer.Reserve(10);
    EXPECT_EQ(buffer.Reserve(5), small);
    char* const large = buffer.Reserve(1000000);
    large[999999] = 'x';
    EXPECT_EQ(buffer.Reserve(1), large);
    EXPECT_EQ(large[999999], 'x');
}

class WholeFile : public File {
protected:
    FileContent Read(const std::string& path, FileMode mode = FileMode::Read) {
        return ReadWholeFile(path, buffer_, mode);
    }

    CFileBuffer buffer_;
};

TEST_F(WholeFile, IsReadWithItsZeros) {
    for (const FileMode mode : {FileMode::Read, FileMode::Update}) {
        const FileContent content = Read(folder_.Write("a.txt", "one\0two"s), mode);
        EXPECT_EQ(content.state, FileState::Read);
        EXPECT_EQ(content.bytes, "one\0two"s);
        EXPECT_EQ(content.reason, "");
    }
}

TEST_F(WholeFile, MayBeEmpty) {
    const FileContent content = Read(folder_.Write("a.txt", ""));
    EXPECT_EQ(content.state, FileState::Read);
    EXPECT_EQ(content.bytes, "");
}

TEST_F(WholeFile, IsReadIntoOneBufferAfterTheOther) {
    const std::string large(200000, 'x');
    EXPECT_EQ(Read(folder_.Write("a.txt", "first")).bytes, "first");
    EXPECT_EQ(Read(folder_.Write("b.txt", large)).bytes, large);
    EXPECT_EQ(Read(folder_.Path("missing.txt")).bytes, "");
    EXPECT_EQ(Read(folder_.Write("c.txt", "last")).bytes, "last");
}

TEST_F(WholeFile, KeepsContentAndLength) {
    for (const std::string& content : {""s, "one\0two"s, std::string(4096, 'x'), "\r\n"s}) {
        const std::string path = folder_.Write("a.txt", content);
        const auto written = std::filesystem::last_write_time(path);
        EXPECT_EQ(Read(path, FileMode::Update).bytes, content);
        EXPECT_EQ(ReadFile(path), content);
        EXPECT_EQ(std::filesystem::last_write_time(path), written);
    }
}

TEST_F(WholeFile, IsMissingIfNothingBearsItsName) {
    folder_.Write("a.txt", "");
    EXPECT_EQ(Read("").state, FileState::Missing);
    for (const std::string& name : {"missing.txt"s, "missing/a.txt"s, std::string(300, 'x')}) {
        const FileContent content = Read(folder_.Path(name));
        EXPECT_EQ(content.state, FileState::Missing) << name;
        EXPECT_EQ(content.reason, "");
    }
}

TEST_F(WholeFile, IsNoFolder) {
    for (const FileMode mode : {FileMode::Read, FileMode::Update}) {
        EXPECT_EQ(Read(folder_.Path(), mode).state, FileState::NotAFile);
    }
}

TEST_F(WholeFile, IsReadWhileAnotherHasItOpen) {
    const std::string path = folder_.Write("a.txt", "text");
    const CFile other(path, FileMode::Update);
    EXPECT_EQ(Read(path, FileMode::Update).bytes, "text");
}

TEST_F(File, IsParsedAsAnIniFile) {
    const IniFileContent content = LoadIniFile(folder_.Write("a.ini", "[A]\r\nx=1\r\n"));
    EXPECT_EQ(content.state, FileState::Read);
    EXPECT_EQ(content.file.Text("A", "x"), "1");
}

TEST_F(File, IsNoIniFileIfItIsNone) {
    EXPECT_EQ(LoadIniFile(folder_.Path("missing.ini")).state, FileState::Missing);
    EXPECT_EQ(LoadIniFile(folder_.Path()).state, FileState::NotAFile);
    EXPECT_EQ(LoadIniFile("").state, FileState::Missing);
    EXPECT_TRUE(LoadIniFile("").file.Sections().empty());
}

}  // namespace
}  // namespace tradebill::file_test
