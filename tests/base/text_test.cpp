#include "base/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill::text_test {
namespace {

using Parts = std::vector<std::string_view>;

Parts Split(std::string_view text, std::string_view delimiter) {
    Parts parts{"left over"};
    const std::size_t count = SplitText(text, delimiter, parts);
    EXPECT_EQ(count, parts.size());
    return parts;
}

TEST(WhiteSpace, IsTheSixAsciiOnes) {
    std::string found;
    for (int byte = 0; byte < 256; ++byte) {
        if (IsWhiteSpace(static_cast<char>(byte))) found += static_cast<char>(byte);
    }
    EXPECT_EQ(found, "\t\n\v\f\r ");
}

TEST(Digits, AreTheTenAsciiOnes) {
    std::string found;
    for (int byte = 0; byte < 256; ++byte) {
        if (IsDigit(static_cast<char>(byte))) found += static_cast<char>(byte);
    }
    EXPECT_EQ(found, "0123456789");
}

TEST(FieldText, EndsAtTheFirstZero) {
    const char field[6] = {'a', 'b', '\0', 'c', 'd', '\0'};
    EXPECT_EQ(FieldText(field), "ab");
    const char empty[4] = {};
    EXPECT_EQ(FieldText(empty), "");
}

TEST(FieldText, IsAllOfAnUnterminatedField) {
    const char field[3] = {'a', 'b', 'c'};
    EXPECT_EQ(FieldText(field), "abc");
}

TEST(CopyField, CutsAtTheWidthLessOne) {
    const struct {
        std::string_view text;
        std::string_view kept;
    } cases[] = {
        {"", ""},
        {"12345678901234", "12345678901234"},
        {"123456789012345", "123456789012345"},
        {"1234567890123456", "123456789012345"},
        {"12345678901234567890", "123456789012345"},
    };
    for (const auto& row : cases) {
        struct {
            char field[16];
            char after;
        } block;
        std::memset(&block, '#', sizeof block);
        CopyField(block.field, row.text);
        EXPECT_EQ(FieldText(block.field), row.kept);
        EXPECT_EQ(block.field[row.kept.size()], '\0');
        EXPECT_EQ(block.after, '#');
    }
}

TEST(CopyField, CutsThroughACharacterOfTwoBytes) {
    char field[4];
    CopyField(field, "\xC2\xF2\xC2\xF4");
    EXPECT_EQ(FieldText(field), "\xC2\xF2\xC2");
}

TEST(CopyField, CopiesTextsOfAllLengthsAndNothingBehindThem) {
    for (std::size_t size = 0; size <= 40; ++size) {
        std::string text;
        for (std::size_t i = 0; i < size; ++i) text += static_cast<char>('a' + i % 26);
        char field[64];
        std::ranges::fill(field, '#');
        CopyField(field, text);
        EXPECT_EQ(std::string_view(field, size), text);
        EXPECT_EQ(field[size], '\0');
        EXPECT_TRUE(std::all_of(field + size + 1, std::end(field), [](char byte) { return byte == '#'; })) << size;
    }
}

TEST(CopyField, TakesATextWithoutMemory) {
    char field[4] = "abc";
    CopyField(field, std::string_view());
    EXPECT_EQ(FieldText(field), "");
}

TEST(Contains, FindsInShortTextsAndLongOnes) {
    for (const std::size_t size : {0U, 1U, 29U, 30U, 31U, 32U, 33U, 100U}) {
        const std::string text(size, 'x');
        EXPECT_FALSE(Contains(text, "xy"));
        EXPECT_TRUE(Contains(text + "yz", "yz"));
        EXPECT_TRUE(Contains("yz" + text, "yz"));
        EXPECT_TRUE(Contains(text, ""));
        EXPECT_EQ(Contains(text, std::string(30, 'x')), size >= 30);
    }
}

TEST(Contains, FindsByBytes) {
    EXPECT_TRUE(Contains("abc", "bc"));
    EXPECT_TRUE(Contains("abc", ""));
    EXPECT_FALSE(Contains("abc", "bd"));
    EXPECT_FALSE(Contains("", "a"));
    EXPECT_TRUE(Contains("\xB5\xC2\xF2\x41", "\xC2\xF2"));  // across two characters too
}

TEST(Trim, TakesWhiteSpaceOffItsEnds) {
    EXPECT_EQ(TrimLeft(" \t\r\n\v\fa b "), "a b ");
    EXPECT_EQ(TrimRight(" a b\f\v\n\r\t "), " a b");
    EXPECT_EQ(Trim("\r\n\t a \t b \n"), "a \t b");
    EXPECT_EQ(Trim(" \r\n\t"), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("\xA1\xA1"), "\xA1\xA1");  // the full-width blank is no white space
}

TEST(TrimByte, TakesOneByteValueOffBothEnds) {
    EXPECT_EQ(TrimByte("  a b ", ' '), "a b");
    EXPECT_EQ(TrimByte("\t a\t", ' '), "\t a\t");
    EXPECT_EQ(TrimByte("\xA1\xA1\xCD\xAD\xA1\xA1", '\xA1'), "\xCD\xAD");
    EXPECT_EQ(TrimByte("   ", ' '), "");
    EXPECT_EQ(TrimByte("", ' '), "");
}

TEST(TrimForPage, TakesWhiteSpaceThenFullWidthBlanksOffTheLeftOnce) {
    EXPECT_EQ(TrimForPage(" \t\xA1\xA1\xA1 a "), " a ");
    EXPECT_EQ(TrimForPage("\xA1\xA1"), "");
    EXPECT_EQ(TrimForPage("\xA1 \xA1"), " \xA1");
    EXPECT_EQ(TrimForPage("cu"), "cu");
}

TEST(GbkCharacterLength, IsTwoForAPairOfLeadAndTrail) {
    struct {
        std::string_view text;
        std::size_t length;
    } const kCases[] = {
        {"", 0},      {"a", 1},     {"ab", 1},       {"\xC2\xF2", 2}, {"\xC2\xF2\xC2", 2}, {"\xC2", 1},
        {"\x80@", 1}, {"\x81@", 2}, {"\x81\x3F", 1}, {"\xFE\x40", 2}, {"\xFF\x40", 1},
    };
    for (const auto& row : kCases) EXPECT_EQ(GbkCharacterLength(row.text), row.length) << row.text;
}

Parts LinesOf(std::string_view text) {
    Parts lines;
    while (!text.empty()) lines.push_back(TakeLine(text));
    return lines;
}

TEST(TakeLine, EndsALineAtEachLineFeed) {
    EXPECT_EQ(LinesOf("one\ntwo\n"), (Parts{"one", "two"}));
    EXPECT_EQ(LinesOf("one\n\n\ntwo"), (Parts{"one", "", "", "two"}));
    EXPECT_EQ(LinesOf("\n"), Parts{""});
}

TEST(TakeLine, TakesWhatStandsBehindTheLastLineFeedToo) {
    EXPECT_EQ(LinesOf("one\ntwo"), (Parts{"one", "two"}));
    EXPECT_EQ(LinesOf("one"), Parts{"one"});
}

TEST(TakeLine, LeavesCarriageReturnsAndWhiteSpace) {
    EXPECT_EQ(LinesOf(" one \r\r\ntwo\rthree\r"), (Parts{" one \r\r", "two\rthree\r"}));
}

TEST(TakeLine, LeavesTheTextBehindTheLine) {
    std::string_view rest = "one\ntwo\nthree";
    EXPECT_EQ(TakeLine(rest), "one");
    EXPECT_EQ(rest, "two\nthree");
    rest = "one\n";
    EXPECT_EQ(TakeLine(rest), "one");
    EXPECT_EQ(rest, "");
}

TEST(TakeLine, GivesAnEmptyLineOfAnEmptyText) {
    std::string_view rest;
    EXPECT_EQ(TakeLine(rest), "");
    EXPECT_EQ(rest, "");
}

TEST(SplitText, CutsAtEachDelimiter) {
    EXPECT_EQ(Split("a b c", " "), (Parts{"a", "b", "c"}));
    EXPECT_EQ(Split("a|b|c", "|"), (Parts{"a", "b", "c"}));
    EXPECT_EQ(Split("abc", "|"), (Parts{"abc"}));
    EXPECT_EQ(Split("one\r\ntwo\r\n", "\n"), (Parts{"one", "two"}));
}

TEST(SplitText, CountsRunsOfTheDelimiterAsOne) {
    EXPECT_EQ(Split("a  b", " "), (Parts{"a", "b"}));
    EXPECT_EQ(Split("a|||b", "|"), (Parts{"a", "b"}));
    EXPECT_EQ(Split("one\n\n \r\n\t\ntwo", "\n"), (Parts{"one", "two"}));
}

TEST(SplitText, MakesNoPartOfADelimiterAtTheEnds) {
    EXPECT_EQ(Split("|a|b|", "|"), (Parts{"a", "b"}));
    EXPECT_EQ(Split("||", "|"), Parts{});
}

TEST(SplitText, DropsCellsOfWhiteSpace) {
    EXPECT_EQ(Split("|x| |y|", "|"), (Parts{"x", "y"}));
    EXPECT_EQ(Split("| x\t| \t |y |", "|"), (Parts{"x", "y"}));
}

TEST(SplitText, KeepsSingleBlanksWhereTheDelimiterIsTwo) {
    EXPECT_EQ(Split("a  b c", "  "), (Parts{"a", "b c"}));
    EXPECT_EQ(Split("a   b", "  "), (Parts{"a", "b"}));
    EXPECT_EQ(Split("Balance b/f     100.00", "  "), (Parts{"Balance b/f", "100.00"}));
}

TEST(SplitText, FindsNothingInATextOfWhiteSpace) {
    EXPECT_EQ(Split(" \r\n", "\n"), Parts{});
    EXPECT_EQ(Split("", "|"), Parts{});
    EXPECT_EQ(Split(" ", ""), Parts{});
}

TEST(SplitText, TakesTheTrimmedTextAsOnePartWithoutADelimiter) {
    EXPECT_EQ(Split(" a | b \n", ""), (Parts{"a | b"}));
}

TEST(SplitText, LooksAtBytesNotCharacters) {
    EXPECT_EQ(Split("\xBD\xB7|x", "\xB7"), (Parts{"\xBD", "|x"}));
}

/// The rules word for word, on copies.
std::vector<std::string> SplitSlowly(const std::string& text, const std::string& delimiter) {
    std::vector<std::string> parts;
    std::string left(Trim(text));
    for (;;) {
        const std::size_t at = left.find(delimiter);
        if (at == std::string::npos) {
            if (!left.empty()) parts.emplace_back(Trim(left));
            return parts;
        }
        if (at > 0) parts.emplace_back(Trim(std::string_view(left).substr(0, at)));
        left = std::string(Trim(std::string_view(left).substr(at + delimiter.size())));
    }
}

TEST(SplitText, FollowsTheRulesOnRandomTexts) {
    std::mt19937 random(3);
    const std::string_view bytes = "a|b  \t\r\n\xA1";
    std::uniform_int_distribution<std::size_t> pick(0, bytes.size() - 1);
    for (int i = 0; i < 6000; ++i) {
        std::string text;
        for (int k = i % 150; k > 0; --k) text += bytes[pick(random)];
        for (const char* const delimiter : {" ", "|", "\n", "\t", "\xA1", "  ", "| ", "aa"}) {
            const Parts parts = Split(text, delimiter);
            ASSERT_EQ(std::vector<std::string>(parts.begin(), parts.end()), SplitSlowly(text, delimiter));
        }
    }
}

/// A text at the very end of its memory, where a byte too much is seen by a sanitizer.
class CTextAtTheEnd {
public:
    CTextAtTheEnd(std::string_view text, std::size_t shift)
        : memory_(std::make_unique<char[]>(shift + text.size())), view_(memory_.get() + shift, text.size()) {
        std::ranges::copy(text, memory_.get() + shift);
    }
    [[nodiscard]] std::string_view View() const { return view_; }

private:
    std::unique_ptr<char[]> memory_;
    std::string_view view_;
};

TEST(SplitText, FollowsThemInRowsOfAllLengthsAndPlaces) {
    std::mt19937 random(4);
    const std::string_view bytes = "0123456789.-|    \t\r\x80\x81\xB9\xB2\xFE\xFF";
    std::uniform_int_distribution<std::size_t> pick(0, bytes.size() - 1);
    for (std::size_t size = 0; size <= 80; ++size) {
        for (std::size_t shift = 0; shift < 16; ++shift) {
            std::string text(size, ' ');
            std::ranges::generate(text, [&] { return bytes[pick(random)]; });
            const CTextAtTheEnd row(text, shift);
            for (const char* const delimiter : {" ", "|"}) {
                const Parts parts = Split(row.View(), delimiter);
                ASSERT_EQ(std::vector<std::string>(parts.begin(), parts.end()), SplitSlowly(text, delimiter));
            }
        }
    }
}

TEST(SplitText, CutsAColumnThatFillsWholeBlocks) {
    for (const std::size_t size : {63U, 64U, 65U, 128U, 200U}) {
        const std::string column(size, 'x');
        EXPECT_EQ(Split(column, " "), (Parts{column}));
        EXPECT_EQ(Split(column + " " + column, " "), (Parts{column, column}));
        EXPECT_EQ(Split("|" + column + "|  " + column + " |", "|"), (Parts{column, column}));
    }
}

TEST(FindText, IsWhereTheWordFirstStands) {
    EXPECT_EQ(FindText("abcabc", "bc"), 1U);
    EXPECT_EQ(FindText("abcabc", "c"), 2U);
    EXPECT_EQ(FindText("abcabc", "abcabc"), 0U);
    EXPECT_EQ(FindText("abcabc", "abcabca"), std::string_view::npos);
    EXPECT_EQ(FindText("abc", ""), 0U);
    EXPECT_EQ(FindText("", ""), 0U);
    EXPECT_EQ(FindText("", "a"), std::string_view::npos);
}

TEST(FindText, FindsWhatStringsFindInTextsOfAllLengthsAndPlaces) {
    std::mt19937 random(6);
    const std::string_view bytes = "ab\xB9\xB2";
    std::uniform_int_distribution<std::size_t> pick(0, bytes.size() - 1);
    for (std::size_t size = 0; size <= 150; ++size) {
        for (std::size_t shift = 0; shift < 16; ++shift) {
            std::string text(size, ' ');
            std::ranges::generate(text, [&] { return bytes[pick(random)]; });
            const CTextAtTheEnd view(text, shift);
            for (const char* const word : {"a", "\xB9\xB2", "ab\xB9", "abab\xB2", "aaaaaaa"}) {
                ASSERT_EQ(FindText(view.View(), word), text.find(word)) << size << " " << shift << " " << word;
            }
        }
    }
}

}  // namespace
}  // namespace tradebill::text_test
