#include "page/page_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/gbk_text.h"

namespace tradebill::page_text_test {
namespace {

std::string Expanded(std::string_view utf8) {
    return GbkToUtf8(ExpandTabs(Gbk(utf8)));
}

TEST(ExpandTabs, WidensUpToTheNextMultipleOfSevenBytes) {
    EXPECT_EQ(Expanded("a\tb"), "a　　　　　　b");
    EXPECT_EQ(Expanded("abcdef\tg"), "abcdef　g");
    EXPECT_EQ(Expanded("abcdefgh\ti"), "abcdefgh　　　　　　i");
}

TEST(ExpandTabs, WidensBySevenAtAMultipleOfSeven) {
    EXPECT_EQ(Expanded("\ta"), "　　　　　　　a");
    EXPECT_EQ(Expanded("abcdefg\th"), "abcdefg　　　　　　　h");
    EXPECT_EQ(Expanded("\t\t"), "　　　　　　　　　　　　　　");
}

TEST(ExpandTabs, CountsBytesOfTheTextAsItIsStillNarrow) {
    EXPECT_EQ(Expanded("买\ta"), "买　　　　　a");   // two bytes, five blanks
    EXPECT_EQ(Expanded(" \ta"), "　　　　　　　a");  // a blank is one byte here
    EXPECT_EQ(Expanded("a\tb\tc"), "a　　　　　　b　　　　　　c");
}

TEST(ExpandTabs, WidensEveryBlank) {
    EXPECT_EQ(Expanded(" a  b "), "　a　　b　");
    EXPECT_EQ(ExpandTabs(" "), "\xA1\xA1");
}

TEST(ExpandTabs, CopiesEverythingElse) {
    EXPECT_EQ(ExpandTabs(""), "");
    EXPECT_EQ(ExpandTabs("a\r\nb\v\xFF"), "a\r\nb\v\xFF");
    EXPECT_EQ(Expanded("一、<b>"), "一、<b>");
}

TEST(EscapedText, ShowsMarkupAsCharacters) {
    EXPECT_EQ(EscapedText("<svg/onload=\"a('b')\">&amp;"), "&lt;svg/onload=&quot;a(&#39;b&#39;)&quot;&gt;&amp;amp;");
    for (const char byte : std::string_view("<>&\"'")) EXPECT_TRUE(IsMarkup(byte)) << byte;
}

TEST(EscapedText, KeepsEveryOtherByte) {
    std::string others;
    for (int byte = 0; byte < 256; ++byte) {
        if (std::string_view("<>&\"'").find(static_cast<char>(byte)) == std::string_view::npos) {
            others += static_cast<char>(byte);
        }
    }
    EXPECT_EQ(others.size(), 251u);
    EXPECT_EQ(EscapedText(others), others);
    EXPECT_EQ(EscapedText(""), "");
}

TEST(PageText, JoinsWordsAndWholeNumbers) {
    EXPECT_EQ(Joined("top:", 10, "px; ", -3, std::string("!")), "top:10px; -3!");
    std::string text = "a";
    Append(text, "b", 0);
    EXPECT_EQ(text, "ab0");
}

TEST(PageText, RowsGoBehindWhatIsThere) {
    std::string text = "x";
    const std::vector<Cell> cells = {{"1", "c"}};
    const std::vector<std::string_view> widths = {"7%"};
    AppendSizedRow(text, cells, widths, "r");
    EXPECT_EQ(text,
              "x<tr class='r'>\r\n<td style=\"padding:5px 0px; \" width=\"7%\"><span class='c'>1</span></td></tr>\r\n");
    text = "x";
    AppendRow(text, cells, "");
    EXPECT_EQ(text,
              "x<tr>\r\n<td style=\"padding:5px 0px; overflow:hidden; white-space:nowrap;\"><span class='c'>1</span>"
              "</td></tr>\r\n");
}

TEST(PageText, TableTagsSayAWidthAboveZero) {
    std::string text = "x";
    AppendTableTag(text, "t", 2);
    EXPECT_EQ(text,
              "x<table width = \"2\" style=\"table-layout: fixed;\" cellspacing = \"0\" border=\"0\" id= \"t\">\r\n");
    text.clear();
    AppendTableTag(text, "t", 0);
    EXPECT_EQ(text, "<table style=\"table-layout: fixed;\" cellspacing = \"0\" border=\"0\" id= \"t\">\r\n");
}

}  // namespace
}  // namespace tradebill::page_text_test
