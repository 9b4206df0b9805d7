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
        EXPECT_EQ(file.Size(), 0U);
        EXPECT_FALSE(file.ReadAll().has_value());
        EXPECT_FALSE(file.Write("text"));
        char byte = 0;
        EXPECT_EQ(file.ReadAt(0, &byte, 1), 0U);
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

class StatementFile : public File {};

TEST_F(StatementFile, IsReadWhole) {
    const std::string text(100000, 'x');
    EXPECT_EQ(ReadStatementFile(folder_.Write("a.txt", text + "\r\n")), text + "\r\n");
}

TEST_F(StatementFile, EndsAtTheFirstZeroByte) {
    EXPECT_EQ(ReadStatementFile(folder_.Write("a.txt", "one\0two\0"s)), "one");
    EXPECT_EQ(ReadStatementFile(folder_.Write("b.txt", "\0one"s)), "");
    EXPECT_EQ(ReadStatementFile(folder_.Write("c.txt", "one\0"s)), "one");
}

TEST_F(StatementFile, IsReadIntoOneBufferAfterTheOther) {
    CFileBuffer buffer;
    const std::string large(200000, 'x');
    EXPECT_EQ(ReadStatementFile(folder_.Write("a.txt", "first"), buffer), "first");
    EXPECT_EQ(ReadStatementFile(folder_.Write("b.txt", large), buffer), large);
    EXPECT_EQ(ReadStatementFile(folder_.Path("missing.txt"), buffer), std::nullopt);
    EXPECT_EQ(ReadStatementFile(folder_.Write("c.txt", "last\0one"s), buffer), "last");
    EXPECT_EQ(ReadStatementFile(folder_.Write("d.txt", ""), buffer), "");
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

TEST_F(StatementFile, MayBeEmpty) {
    EXPECT_EQ(ReadStatementFile(folder_.Write("a.txt", "")), "");
}

TEST_F(StatementFile, KeepsContentAndLength) {
    for (const std::string& content : {""s, "one\0two"s, std::string(4096, 'x'), "\r\n"s}) {
        const std::string path = folder_.Write("a.txt", content);
        const auto written = std::filesystem::last_write_time(path);
        EXPECT_TRUE(ReadStatementFile(path).has_value());
        EXPECT_EQ(ReadFile(path), content);
        EXPECT_EQ(std::filesystem::last_write_time(path), written);
    }
}

TEST_F(StatementFile, IsNotReadIfItIsNotThere) {
    EXPECT_FALSE(ReadStatementFile(folder_.Path()).has_value());
    EXPECT_FALSE(ReadStatementFile(folder_.Path("missing.txt")).has_value());
    EXPECT_FALSE(ReadStatementFile("").has_value());
}

class WholeFile : public StatementFile {
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
    EXPECT_EQ(Read(folder_.Write("a.txt", "")).state, FileState::Read);
}

TEST_F(WholeFile, IsMissingIfNothingBearsItsName) {
    folder_.Write("a.txt", "");
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

TEST_F(File, LeavesTheSystemsReasonIfItCantBeSavedInOneStep) {
    std::filesystem::create_directories(folder_.Path("a.txt/in the way"));
    ForgetSystemError();
    EXPECT_FALSE(SaveInOneStep(folder_.Path("a.txt"), [](const std::string& unfinished) {
        return CFile(unfinished, FileMode::Create).Write("text");
    }));
    EXPECT_NE(LastSystemError(), 0U);
    EXPECT_NE(SystemErrorText(LastSystemError()), "");
    EXPECT_EQ(SystemErrorText(0), "");
    EXPECT_FALSE(std::filesystem::exists(folder_.Path("a.txt.part")));
}

TEST_F(StatementFile, IsReadWhileAnotherHasItOpen) {
    const std::string path = folder_.Write("a.txt", "text");
    const CFile other(path, FileMode::Update);
    EXPECT_EQ(ReadStatementFile(path), "text");
}

TEST_F(File, IsParsedAsAnIniFile) {
    const auto file = LoadIniFile(folder_.Write("a.ini", "[A]\r\nx=1\r\n"));
    ASSERT_TRUE(file.has_value());
    EXPECT_EQ(file->Text("A", "x"), "1");
}

TEST_F(File, IsNoIniFileIfItIsNone) {
    EXPECT_FALSE(LoadIniFile(folder_.Path("missing.ini")).has_value());
    EXPECT_FALSE(LoadIniFile(folder_.Path()).has_value());
    EXPECT_FALSE(LoadIniFile("").has_value());
}

}  // namespace
}  // namespace tradebill::file_test
