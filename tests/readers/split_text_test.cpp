#include "base/text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/gbk_text.h"

namespace tradebill::split_text_test {
namespace {

using Parts = std::vector<std::string_view>;

struct SplitCase {
    std::string_view text;
    std::string_view delimiter;
    Parts parts;
};

void ExpectSplits(const std::vector<SplitCase>& cases) {
    for (const SplitCase& row : cases) {
        Parts parts{"left", "over"};
        EXPECT_EQ(SplitText(row.text, row.delimiter, parts), row.parts.size()) << row.text;
        EXPECT_EQ(parts, row.parts) << row.text << " at " << row.delimiter;
    }
}

TEST(RowsAndColumns, AreCutAtTheDelimiter) {
    ExpectSplits({
        {"a  b", " ", {"a", "b"}},
        {"a  b c", "  ", {"a", "b c"}},
        {"|x| |y|", "|", {"x", "y"}},
        {" \r\n", "\n", {}},
        {"a", " ", {"a"}},
        {"a b", "|", {"a b"}},
        {"one\r\ntwo\nthree", "\n", {"one", "two", "three"}},
    });
}

TEST(RowsAndColumns, AreNeverEmpty) {
    ExpectSplits({
        {"", " ", {}},
        {"|", "|", {}},
        {"||||", "|", {}},
        {"| | |", "|", {}},
        {"|a", "|", {"a"}},
        {"a|", "|", {"a"}},
        {"a|||b", "|", {"a", "b"}},
        {"a| \t |b", "|", {"a", "b"}},
        {"\r\n\r\none\r\n \t\r\n\r\ntwo\r\n\r\n", "\n", {"one", "two"}},
    });
}

TEST(RowsAndColumns, LoseAllWhiteSpaceAtTheirEnds) {
    ExpectSplits({
        {"\t\n\v\f\r a \r\f\v\n\t|\t\n\v\f\r b c \r\f\v\n\t", "|", {"a", "b c"}},
        {"\r\r\t\t a\t\t\r\r", "|", {"a"}},
        {"\t\r\t a", "\n", {"a"}},
    });
}

TEST(RowsAndColumns, KeepWhiteSpaceWithin) {
    ExpectSplits({
        {"a \t b|c", "|", {"a \t b", "c"}},
        {"a\tb c", " ", {"a\tb", "c"}},
        {"a\rb\nc", "\n", {"a\rb", "c"}},
    });
}

TEST(RowsAndColumns, KeepTheFullWidthBlank) {
    const std::string blank = Gbk("　");
    ExpectSplits({{blank + "|" + blank, "|", {blank, blank}}});
}

TEST(RowsAndColumns, AreCutAtALongDelimiterAsAWhole) {
    ExpectSplits({
        {"a b", "  ", {"a b"}},
        {"a   b", "  ", {"a", "b"}},
        {"a    b", "  ", {"a", "b"}},
        {"a||b|c", "||", {"a", "b|c"}},
        {"a|||b", "||", {"a", "|b"}},
        {"||||a||", "||", {"a"}},
        {"ab", "abc", {"ab"}},
    });
}

// What is left is trimmed after every cut, so a delimiter that begins with a blank doesn't match there again.
TEST(RowsAndColumns, AreTrimmedBeforeTheNextCut) {
    ExpectSplits({
        {"a | b | c", " | ", {"a", "b", "c"}},
        {"a |  | b", " | ", {"a", "| b"}},
        {" | a", " | ", {"| a"}},
        {"a | ", " | ", {"a |"}},
    });
}

TEST(RowsAndColumns, AreOneWithoutADelimiter) {
    ExpectSplits({
        {" a | b ", "", {"a | b"}},
        {"a\nb", "", {"a\nb"}},
        {" \t", "", {}},
    });
}

TEST(RowsAndColumns, PointIntoTheText) {
    const std::string_view text = "  ab|c ";
    Parts parts;
    ASSERT_EQ(SplitText(text, "|", parts), 2U);
    EXPECT_EQ(parts[0].data(), text.data() + 2);
    EXPECT_EQ(parts[1].data(), text.data() + 5);
}

}  // namespace
}  // namespace tradebill::split_text_test
