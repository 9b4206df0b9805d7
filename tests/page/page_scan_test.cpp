#include "page/page_scan.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill::page_scan_test {
namespace {

bool IsPlain(const std::vector<std::string>& texts) {
    CPageScan scan;
    for (const std::string& text : texts) scan.Feed(text);
    return scan.IsPlain();
}

TEST(PageLine, EndsBeforeAllCarriageReturnsOfItsLineEnd) {
    std::string_view rest = "one\r\r\ntwo\n\r\nth\rree\r";
    EXPECT_EQ(TakePageLine(rest), "one");
    EXPECT_EQ(TakePageLine(rest), "two");
    EXPECT_EQ(TakePageLine(rest), "");
    EXPECT_EQ(TakePageLine(rest), "th\rree");
    EXPECT_EQ(rest, "");
}

TEST(WrapperLine, HoldsOneOfTheFourTagsAnywhere) {
    for (const std::string tag : {"<html>", "<body>", "</body>", "</html>"}) {
        EXPECT_TRUE(IsWrapperLine(tag));
        EXPECT_TRUE(IsWrapperLine("before" + tag + "behind"));
        EXPECT_FALSE(IsWrapperLine(tag.substr(1)));
        EXPECT_FALSE(IsWrapperLine(tag.substr(0, tag.size() - 1)));
    }
}

TEST(WrapperLine, IsNoOther) {
    for (const char* const line : {"", "<head>", "</head>", "<HTML>", "<body >", "html", "< html>", "<html lang>"}) {
        EXPECT_FALSE(IsWrapperLine(line)) << line;
    }
}

TEST(PageScan, TakesOrdinaryRowsAsPlain) {
    EXPECT_TRUE(IsPlain({}));
    EXPECT_TRUE(IsPlain({""}));
    EXPECT_TRUE(IsPlain({"<tr>\r\n<td>1</td></tr>\r\n"}));
    EXPECT_TRUE(IsPlain({"<h1></h1>", "<hr>", "<head>", "</h1>", "<b>", "</b>", "<HTML>", "</BODY>"}));
    EXPECT_TRUE(IsPlain({"no line end"}));
    EXPECT_TRUE(IsPlain({"\r\n", "\r\n\r\n"}));
    EXPECT_TRUE(IsPlain({"a\rb\r\n"}));
}

TEST(PageScan, SeesTagsThatAFullPassWouldHandle) {
    for (const std::string tag : {"<html>", "<body>", "</body>", "</html>", "</head>"}) {
        EXPECT_FALSE(IsPlain({tag})) << tag;
        EXPECT_FALSE(IsPlain({"a line before\r\nand a long text " + tag + " and more of it\r\n"})) << tag;
        EXPECT_TRUE(IsPlain({tag.substr(0, tag.size() - 1), " >"})) << tag;
    }
}

TEST(PageScan, SeesTagsAcrossTexts) {
    for (const std::string tag : {"<html>", "<body>", "</body>", "</html>", "</head>"}) {
        for (std::size_t cut = 1; cut < tag.size(); ++cut) {
            EXPECT_FALSE(IsPlain({"x" + tag.substr(0, cut), tag.substr(cut) + "y"})) << tag << " cut at " << cut;
            EXPECT_FALSE(IsPlain({"a long text ahead " + tag.substr(0, cut), tag.substr(cut) + " a long text behind"}));
        }
        std::vector<std::string> bytes;
        for (const char byte : tag) bytes.push_back({byte});
        EXPECT_FALSE(IsPlain(bytes)) << tag;
        bytes.insert(bytes.begin() + 3, "");
        EXPECT_FALSE(IsPlain(bytes)) << tag;
        bytes[3] = "-";
        EXPECT_TRUE(IsPlain(bytes)) << tag;
    }
}

TEST(PageScan, SeesLineEndsThatAFullPassWouldChange) {
    EXPECT_FALSE(IsPlain({"\n"}));
    EXPECT_FALSE(IsPlain({"a\n"}));
    EXPECT_FALSE(IsPlain({"\r\r\n"}));
    EXPECT_FALSE(IsPlain({"a\r\r\r\nb\r\n"}));
    EXPECT_FALSE(IsPlain({"\r\n\n"}));
    EXPECT_FALSE(IsPlain({"a long text that is plain\r\n and then\nno more\r\n"}));
}

TEST(PageScan, SeesLineEndsAcrossTexts) {
    EXPECT_TRUE(IsPlain({"a\r", "\nb"}));
    EXPECT_FALSE(IsPlain({"a\r\r", "\nb"}));
    EXPECT_FALSE(IsPlain({"a\r", "\r\nb"}));
    EXPECT_FALSE(IsPlain({"a\r", "\r", "\n"}));
    EXPECT_FALSE(IsPlain({"a", "\n"}));
    EXPECT_FALSE(IsPlain({"a\r\n", "\n"}));
    for (std::size_t length = 0; length < 20; ++length) {
        const std::string text(length, 'x');
        EXPECT_FALSE(IsPlain({text, "\n"})) << length;
        EXPECT_FALSE(IsPlain({text + "\n" + text})) << length;
        EXPECT_FALSE(IsPlain({"y", text + "\r\r\n"})) << length;
        EXPECT_TRUE(IsPlain({"y", text + "\r\n", text + "\r\n"})) << length;
    }
}

TEST(PageScan, TakesAnUnfinishedLineEndAsNotPlain) {
    EXPECT_FALSE(IsPlain({"a\r"}));
    EXPECT_TRUE(IsPlain({"a\r", "b"}));
}

TEST(PageScan, StaysNotPlain) {
    EXPECT_FALSE(IsPlain({"<body>", "plain\r\n", "plain again and long enough to forget\r\n"}));
    EXPECT_FALSE(IsPlain({"\n", "plain\r\n", "plain again and long enough to forget\r\n"}));
}

TEST(PageScan, KnowsWhetherALineIsOpen) {
    CPageScan scan;
    EXPECT_FALSE(scan.EndsInLine());
    scan.Feed("");
    EXPECT_FALSE(scan.EndsInLine());
    scan.Feed("a");
    EXPECT_TRUE(scan.EndsInLine());
    scan.Feed("");
    EXPECT_TRUE(scan.EndsInLine());
    scan.Feed("b\r\n");
    EXPECT_FALSE(scan.EndsInLine());
    scan.Feed("a long text without an end");
    EXPECT_TRUE(scan.EndsInLine());
}

}  // namespace
}  // namespace tradebill::page_scan_test
