#include "base/ini_file.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

namespace tradebill::ini_file_test {
namespace {

std::vector<int> ProblemLines(const CIniFile& file) {
    std::vector<int> lines;
    for (const auto& problem : file.Problems()) lines.push_back(problem.line);
    return lines;
}

TEST(IniFile, FindsValuesBySectionAndKey) {
    const auto file = CIniFile::Parse("[A]\r\nx=1\r\n[B]\r\nx=2\r\ny=3");
    EXPECT_EQ(file.Text("A", "x"), "1");
    EXPECT_EQ(file.Text("B", "x"), "2");
    EXPECT_EQ(file.Text("B", "y"), "3");
    EXPECT_TRUE(file.Problems().empty());
}

TEST(IniFile, GivesTheFallbackWhereSectionOrKeyAreMissing) {
    const auto file = CIniFile::Parse("[A]\nx=1\nempty=\n");
    EXPECT_EQ(file.Text("B", "x", "none"), "none");
    EXPECT_EQ(file.Text("A", "y", "none"), "none");
    EXPECT_EQ(file.Text("A", "y"), "");
    EXPECT_EQ(file.Text("A", "empty", "none"), "");
    EXPECT_EQ(file.Integer("A", "y", 7), 7);
    EXPECT_EQ(file.Integer("B", "x", 7), 7);
    EXPECT_EQ(file.Integer("A", "empty", 7), 0);
}

TEST(IniFile, ComparesNamesWithoutRegardToCase) {
    const auto file = CIniFile::Parse("[ChainNum]\nNUM=4\n");
    EXPECT_EQ(file.Integer("CHAINNUM", "Num", 0), 4);
    EXPECT_EQ(file.Integer("chainnum", "nUm", 0), 4);
}

TEST(IniFile, FoldsTheCaseOfAsciiLettersAlone) {
    EXPECT_TRUE(EqualsIgnoringCase("Az09[", "aZ09["));
    EXPECT_FALSE(EqualsIgnoringCase("[", "{"));
    EXPECT_FALSE(EqualsIgnoringCase("@", "`"));
    EXPECT_FALSE(EqualsIgnoringCase("a", "ab"));
    EXPECT_FALSE(EqualsIgnoringCase("\xC2\xF2", "\xE2\xF2"));
}

TEST(IniFile, ReadsOnlyTheFirstKeyOfAName) {
    const auto file = CIniFile::Parse("[A]\nx=1\nX=2\n");
    EXPECT_EQ(file.Text("A", "x"), "1");
    ASSERT_NE(file.FindSection("A"), nullptr);
    EXPECT_EQ(file.FindSection("A")->entries.size(), 2U);
}

TEST(IniFile, ReadsOnlyTheFirstSectionOfAName) {
    const auto file = CIniFile::Parse("[A]\nx=1\n[B]\n[a]\nx=2\ny=3\n");
    EXPECT_EQ(file.Text("A", "x"), "1");
    EXPECT_EQ(file.Text("A", "y", "none"), "none");
    EXPECT_EQ(file.Sections().size(), 3U);
}

TEST(IniFile, DropsBlanksAroundNamesAndValues) {
    const auto file = CIniFile::Parse("  [ A ]  \n \t key one \t= \t a b \t\r\n");
    EXPECT_EQ(file.Text("A", "key one"), "a b");
}

TEST(IniFile, DropsOnePairOfQuotesAroundAValue) {
    const auto file = CIniFile::Parse("[A]\na=\"  x \"\nb='y'\nc=\"\"z\"\"\nd=\"w\ne=\"\nf=\"v'\ng=\"\"\n");
    EXPECT_EQ(file.Text("A", "a"), "  x ");
    EXPECT_EQ(file.Text("A", "b"), "y");
    EXPECT_EQ(file.Text("A", "c"), "\"z\"");
    EXPECT_EQ(file.Text("A", "d"), "\"w");
    EXPECT_EQ(file.Text("A", "e"), "\"");
    EXPECT_EQ(file.Text("A", "f"), "\"v'");
    EXPECT_EQ(file.Text("A", "g", "none"), "");
}

TEST(IniFile, TakesAllAfterTheFirstEqualsSignAsTheValue) {
    const auto file = CIniFile::Parse("[A]\nx = a=b ; c\n");
    EXPECT_EQ(file.Text("A", "x"), "a=b ; c");
}

TEST(IniFile, PassesOverCommentsOfSemicolonsAlone) {
    const auto file = CIniFile::Parse("; x\n[A]\n ;y=1\n#z=2\n");
    EXPECT_EQ(file.Text("A", ";y", "none"), "none");
    EXPECT_EQ(file.Text("A", "#z"), "2");
    EXPECT_TRUE(file.Problems().empty());
}

TEST(IniFile, TellsWhichMarkItBeginsWith) {
    using enum CIniFile::Mark;
    EXPECT_EQ(CIniFile::Parse("").EncodingMark(), None);
    EXPECT_EQ(CIniFile::Parse("[A]\n").EncodingMark(), None);
    EXPECT_EQ(CIniFile::Parse("\xEF\xBB\xBF[A]\n").EncodingMark(), Utf8);
    EXPECT_EQ(CIniFile::Parse("\xEF\xBB").EncodingMark(), None);
    EXPECT_EQ(CIniFile::Parse("\xFF\xFE[").EncodingMark(), Utf16);
    EXPECT_EQ(CIniFile::Parse("\xFE\xFF").EncodingMark(), Utf16);
}

TEST(IniFile, PassesOverAByteOrderMark) {
    EXPECT_EQ(CIniFile::Parse("\xEF\xBB\xBF[A]\nx=1\n").Text("A", "x"), "1");
}

TEST(IniFile, TellsTheLinesThatItCantRead) {
    const auto file = CIniFile::Parse("x=1\n\n[A]\nnonsense\ny=2\n[B\nz=3\n");
    EXPECT_EQ(ProblemLines(file), (std::vector<int>{1, 4, 6}));
    EXPECT_EQ(file.Problems()[1].text, "nonsense");
    EXPECT_EQ(file.Text("A", "y"), "2");
}

TEST(IniFile, CountsLinesFromOne) {
    const auto file = CIniFile::Parse("\n[A]\n\nx=1\n");
    ASSERT_NE(file.FindSection("A"), nullptr);
    EXPECT_EQ(file.FindSection("A")->line, 2);
    const auto* const entry = FindEntry(*file.FindSection("A"), "x");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->line, 4);
    EXPECT_EQ(FindEntry(*file.FindSection("A"), "y"), nullptr);
    EXPECT_EQ(file.FindSection("B"), nullptr);
}

TEST(IniFile, ReadsWholeNumbersAsFarAsTheyGo) {
    const auto file = CIniFile::Parse("[A]\na=12x\nb=-3\nc=abc\nd=0x10\ne=\"5\"\nf=99999999999\ng= 8 ; nine\n");
    EXPECT_EQ(file.Integer("A", "a", 9), 12);
    EXPECT_EQ(file.Integer("A", "b", 9), -3);
    EXPECT_EQ(file.Integer("A", "c", 9), 0);
    EXPECT_EQ(file.Integer("A", "d", 9), 0);
    EXPECT_EQ(file.Integer("A", "e", 9), 5);
    EXPECT_EQ(file.Integer("A", "f", 9), INT32_MAX);
    EXPECT_EQ(file.Integer("A", "g", 9), 8);
}

TEST(IniFile, KeepsTheBytesOfTexts) {
    EXPECT_EQ(CIniFile::Parse("[A]\n\xC2\xF2=\xC2\xF4\xFF\x80\n").Text("A", "\xC2\xF2"), "\xC2\xF4\xFF\x80");
}

TEST(IniFile, FindsNothingInAnEmptyText) {
    const auto file = CIniFile::Parse("");
    EXPECT_TRUE(file.Sections().empty());
    EXPECT_TRUE(file.Problems().empty());
    EXPECT_EQ(file.Text("A", "x", "none"), "none");
}

}  // namespace
}  // namespace tradebill::ini_file_test
