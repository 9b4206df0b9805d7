#include "page/row_block.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tradebill::row_block_test {
namespace {

TEST(RowBlock, HoldsItsRowsOneBehindTheOther) {
    CRowBlock block;
    EXPECT_EQ(block.View(), "");
    block.AddLines("<table>\r\n");
    block.AddRow(std::vector<OpenedCell>{{"1", "<td>"}, {"", "<td class=x>"}}, "band");
    block.AddRow(std::vector<OpenedCell>{}, "");
    block.AddRow("<td>-</span></td>", "band");
    EXPECT_EQ(block.View(),
              "<table>\r\n"
              "<tr class='band'>\r\n<td>1</span></td><td class=x></span></td></tr>\r\n"
              "<tr>\r\n</tr>\r\n"
              "<tr class='band'>\r\n<td>-</span></td></tr>\r\n");
    EXPECT_EQ(block.Kind(), TextKind::PlainLines);
    block.Clear();
    EXPECT_EQ(block.View(), "");
}

TEST(RowBlock, GrowsWithItsRows) {
    CRowBlock block;
    std::string expected;
    for (int i = 0; i < 300; ++i) {
        const std::string text(static_cast<std::size_t>(i * 7), static_cast<char>('a' + i % 26));
        block.AddRow(std::vector<OpenedCell>{{text, "<td>"}}, "");
        expected += "<tr>\r\n<td>" + text + "</span></td></tr>\r\n";
    }
    EXPECT_TRUE(block.View() == expected);
}

TEST(RowBlock, TellsOfTextsThatAClosingMayChange) {
    const auto kindWith = [](std::string_view text) {
        CRowBlock block;
        block.AddRow(std::vector<OpenedCell>{{"1", "<td>"}, {text, "<td>"}, {"2", "<td>"}}, "");
        return block.Kind();
    };
    for (const char* const text : {"", "1.5", "&amp;", ">", "a\rb", "/html"}) {
        EXPECT_EQ(kindWith(text), TextKind::PlainLines) << text;
    }
    for (const char* const text : {"<", "x<html>", "</body>", "\n", "0123456789abcdef0123456789<", "a\r\nb"}) {
        EXPECT_EQ(kindWith(text), TextKind::Any) << text;
    }
}

TEST(RowBlock, CopiesAndLooksAtTextsOfAllLengths) {
    const std::string bytes = "0123456789.-;=\x3D\x3B\x0B\x09\xBC\x8A\x80\xFF\xC2\xF2 ab";
    for (std::size_t length = 0; length <= 40; ++length) {
        std::string text;
        while (text.size() < length) text += bytes[(length * 7 + text.size() * 5) % bytes.size()];
        CRowBlock plain;
        plain.AddRow(std::vector<OpenedCell>{{text, "<td>"}}, "");
        ASSERT_EQ(plain.View(), "<tr>\r\n<td>" + text + "</span></td></tr>\r\n");
        ASSERT_EQ(plain.Kind(), TextKind::PlainLines) << length;
        for (std::size_t at = 0; at < length; ++at) {
            for (const char suspect : {'<', '\n'}) {
                std::string odd = text;
                odd[at] = suspect;
                CRowBlock block;
                block.AddRow(std::vector<OpenedCell>{{"1", "<td>"}, {odd, "<td>"}}, "");
                ASSERT_EQ(block.Kind(), TextKind::Any) << length << " " << at;
            }
        }
    }
}

TEST(RowBlock, IsPlainAgainOnceItIsEmpty) {
    CRowBlock block;
    block.AddRow(std::vector<OpenedCell>{{"<html>", "<td>"}}, "");
    block.Clear();
    EXPECT_EQ(block.Kind(), TextKind::PlainLines);
}

TEST(RowBlock, EscapesTheTextsOfItsCellsAlone) {
    CRowBlock block(true);
    block.AddLines("<table>\r\n");
    block.AddRow(std::vector<OpenedCell>{{"a<b", "<td>"}, {"2", "<td>"}, {"", "<td>"}, {"'&\"", "<td>"}}, "band");
    block.AddRow("<td>-</span></td>", "");
    EXPECT_FALSE(CRowBlock(true).HasMarkup());
    EXPECT_TRUE(block.HasMarkup());
    block.AddRow(std::vector<OpenedCell>{{">", "<td>"}}, "");
    EXPECT_EQ(block.Escaped(),
              "<table>\r\n"
              "<tr class='band'>\r\n<td>a&lt;b</span></td><td>2</span></td><td></span></td>"
              "<td>&#39;&amp;&quot;</span></td></tr>\r\n"
              "<tr>\r\n<td>-</span></td></tr>\r\n"
              "<tr>\r\n<td>&gt;</span></td></tr>\r\n");
    EXPECT_NE(block.View().find("<td>a<b</span>"), std::string_view::npos);
}

TEST(RowBlock, IsTheSameEscapedIfNoCellHasMarkup) {
    CRowBlock block(true);
    block.AddRow(std::vector<OpenedCell>{{"1", "<td>"}, {"\xC2\xF2 \n", "<td>"}}, "band");
    EXPECT_FALSE(block.HasMarkup());
    EXPECT_EQ(block.Escaped(), block.View());
}

TEST(RowBlock, ForgetsMarkupOnceItIsEmpty) {
    CRowBlock block(true);
    block.AddRow(std::vector<OpenedCell>{{"0123456789<", "<td>"}}, "");
    block.Clear();
    EXPECT_FALSE(block.HasMarkup());
    block.AddRow(std::vector<OpenedCell>{{"1", "<td>"}}, "");
    EXPECT_EQ(block.Escaped(), "<tr>\r\n<td>1</span></td></tr>\r\n");
}

}  // namespace
}  // namespace tradebill::row_block_test
