// ClosePage against a plain full pass that is written here once more: whatever was called before, and however often,
// both leave the same bytes.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "page/html_builder.h"
#include "page/page_fixture.h"

namespace tradebill::page_closing_test {
namespace {

/// The page after a full pass: wrapper lines out, each other line ended once by "\r\n", wrappers around all of it, and
/// the file never cut.
std::string FullPass(const std::string& page) {
    std::string result = "<html>\r\n";
    std::size_t at = 0;
    while (at < page.size()) {
        std::size_t end = page.find('\n', at);
        const std::size_t next = end == std::string::npos ? page.size() : end + 1;
        end = end == std::string::npos ? page.size() : end;
        std::string line = page.substr(at, end - at);
        at = next;
        while (line.ends_with("\r")) line.pop_back();
        bool dropped = false;
        for (const char* const tag : {"<html>", "<body>", "</body>", "</html>"}) {
            if (line.find(tag) != std::string::npos) dropped = true;
        }
        if (dropped) continue;
        result += line + "\r\n";
        if (line.find("</head>") != std::string::npos) result += "<body>\r\n";
    }
    result += "</body>\r\n</html>\r\n";
    return result.size() < page.size() ? result + page.substr(result.size()) : result;
}

class ClosePage : public PageFixture {
protected:
    /// Closes the page and compares with the full pass over what stood there before.
    void CloseAndCompare(CHtmlBuilder& page) {
        const std::string before = Bytes();
        page.ClosePage();
        const std::string after = Bytes();
        EXPECT_EQ(after, FullPass(before)) << "before:\n" << before;
        EXPECT_GE(after.size(), before.size());
    }
};

TEST_F(ClosePage, WrapsAPageOfHeadLines) {
    CHtmlBuilder page(path_);
    page.ClosePage();
    EXPECT_EQ(Page(),
              "<html>\r\n<head>\r\n<title> 交易及账单报告 </title>\r\n</head>\r\n<body>\r\n</body>\r\n</html>\r\n");
}

TEST_F(ClosePage, MayRunAnyNumberOfTimes) {
    CHtmlBuilder page(path_);
    page.AddAnchor("a");
    for (int i = 0; i < 5; ++i) {
        page.ClosePage();
        EXPECT_EQ(Page(), ClosedPage("<a name = a></a>\r\n")) << i;
    }
    EXPECT_FALSE(page.HasFailed());
}

TEST_F(ClosePage, MovesTheWrappersBehindWhatWasAdded) {
    CHtmlBuilder page(path_);
    page.AddText("one\r\n");
    page.ClosePage();
    page.AddText("two\r\n");
    EXPECT_EQ(Page(), ClosedPage("one\r\n") + "two\r\n");
    page.ClosePage();
    EXPECT_EQ(Page(), ClosedPage("one\r\ntwo\r\n"));
    page.AddText("three\r\n");
    page.ClosePage();
    EXPECT_EQ(Page(), ClosedPage("one\r\ntwo\r\nthree\r\n"));
}

TEST_F(ClosePage, EndsAnOpenLineOnce) {
    CHtmlBuilder page(path_);
    page.AddHeading(1, "", "");
    page.ClosePage();
    EXPECT_EQ(Page(), ClosedPage("<h1></h1>\r\n"));
    page.AddHeading(2, "", "x");
    page.ClosePage();
    page.ClosePage();
    EXPECT_EQ(Page(), ClosedPage("<h1></h1>\r\n<h2>x</h2>\r\n"));
}

TEST_F(ClosePage, NeverLetsLineEndsGrow) {
    CHtmlBuilder page(path_);
    page.AddText("a\nb\r\nc\r\r\nd\r\r\r\n\r\n\n\r\re\rf\r");
    for (int i = 0; i < 3; ++i) {
        page.ClosePage();
        EXPECT_EQ(Page(), ClosedPage("a\r\nb\r\nc\r\nd\r\n\r\n\r\n\r\re\rf\r\n"));
    }
}

TEST_F(ClosePage, DropsWholeLinesThatHoldAWrapper) {
    CHtmlBuilder page(path_);
    page.AddText("kept\r\nx<html>y\r\nx<body>\r\n</body>x\r\n</html>\r\nkept too\r\n");
    page.ClosePage();
    const std::string closed = ClosedPage("kept\r\nkept too\r\n");
    EXPECT_EQ(Page().substr(0, closed.size()), closed);
}

TEST_F(ClosePage, KeepsLinesOfOtherSpellings) {
    const std::string body = "<HTML>\r\n<body class=a>\r\n</ body>\r\nhtml\r\n";
    CHtmlBuilder page(path_);
    page.AddText(body);
    page.ClosePage();
    EXPECT_EQ(Page(), ClosedPage(body));
}

TEST_F(ClosePage, OpensABodyBehindEachHeadEnd) {
    CHtmlBuilder page(path_);
    page.AddText("x</head>y\r\nz\r\n");
    page.ClosePage();
    EXPECT_EQ(Page(), ClosedPage("x</head>y\r\n<body>\r\nz\r\n"));
    page.ClosePage();
    EXPECT_EQ(Page(), ClosedPage("x</head>y\r\n<body>\r\nz\r\n"));
}

TEST_F(ClosePage, LeavesAnOldEndBehindAPageThatGotShorter) {
    CHtmlBuilder page(path_);
    page.AddText("<html>" + std::string(100, 'x') + "\r\n");
    const std::string before = Bytes();
    page.ClosePage();
    const std::string closed = Gbk(ClosedPage(""));
    ASSERT_LT(closed.size(), before.size());
    EXPECT_EQ(Bytes(), closed + before.substr(closed.size()));
}

TEST_F(ClosePage, GoesOnFromAPageThatGotShorter) {
    CHtmlBuilder page(path_);
    page.AddText("<html>" + std::string(100, 'x') + "\r\n");
    for (int i = 0; i < 4; ++i) {
        CloseAndCompare(page);
        page.AddText("line\r\n");
    }
    CloseAndCompare(page);
}

TEST_F(ClosePage, FindsTagsAcrossTwoAdditions) {
    const std::vector<std::array<std::string, 2>> cuts = {
        {"<ht", "ml>\r\n"}, {"</bod", "y> x\r\n"}, {"x <", "body>\r\n"}, {"</html", ">\r\n"}, {"</he", "ad>\r\n"},
    };
    for (const auto& [first, second] : cuts) {
        CHtmlBuilder page(path_);
        page.ClosePage();
        page.AddText("plain\r\n" + first);
        page.AddText(second + "more\r\n");
        CloseAndCompare(page);
        page.AddText("and more\r\n");
        CloseAndCompare(page);
    }
}

TEST_F(ClosePage, LeavesATagApartThatAClosingParted) {
    CHtmlBuilder page(path_);
    page.AddText("x<ht");
    page.ClosePage();
    page.AddText("ml>y\r\n");
    page.ClosePage();
    EXPECT_EQ(Page(), ClosedPage("x<ht\r\nml>y\r\n"));
}

TEST_F(ClosePage, IsAFullPassAfterAStyle) {
    CHtmlBuilder page(path_);
    page.AddText("body\r\n");
    page.ClosePage();
    page.AddStyle({.className = "c"});
    CloseAndCompare(page);
    page.AddText("more\r\n");
    page.AddStyle({.className = "d"});
    page.AddText("and more");
    CloseAndCompare(page);
}

TEST_F(ClosePage, MovesLargeAdditionsWhole) {
    CHtmlBuilder page(path_);
    page.ClosePage();
    std::string body;
    for (const std::size_t size : {262143U, 262144U, 262145U, 600000U}) {  // around the blocks that a move may take
        std::string text;
        while (text.size() < size) text += "<tr>" + std::to_string(text.size()) + "</tr>\r\n";
        text.resize(size - 3);
        text += "x\r\n";
        page.AddText(text);
        page.ClosePage();
        body += text;
        ASSERT_TRUE(Page() == ClosedPage(body)) << size;
    }
}

TEST_F(ClosePage, SeesThatSomebodyElseAddedToThePage) {
    CHtmlBuilder page(path_);
    page.AddText("one\r\n");
    page.ClosePage();
    std::ofstream(path_, std::ios::app | std::ios::binary) << "<body>of another\r\nkept\n";
    CloseAndCompare(page);
    page.AddText("two\r\n");
    std::ofstream(path_, std::ios::app | std::ios::binary) << "</html>of another\r\n";
    CloseAndCompare(page);
    page.AddText("three\r\n");
    CloseAndCompare(page);
}

TEST_F(ClosePage, SeesThatSomebodyElseCutThePage) {
    CHtmlBuilder page(path_);
    page.AddText("one\r\ntwo\r\n");
    page.ClosePage();
    std::filesystem::resize_file(path_, 40);
    CloseAndCompare(page);
    page.AddText("three\r\n");
    std::filesystem::resize_file(path_, 60);
    CloseAndCompare(page);
    page.AddText("four\r\n");
    CloseAndCompare(page);
}

TEST_F(ClosePage, SeesThatSomebodyElseWroteThePageAnew) {
    CHtmlBuilder page(path_);
    page.AddText("one\r\n");
    page.ClosePage();
    folder_.Write("TradeBill.html", "<html>\nall anew\n</html>\n");
    page.AddText("two\r\n");
    CloseAndCompare(page);
    EXPECT_EQ(Page().substr(0, 25), "<html>\r\nall anew\r\ntwo\r\n</");
}

TEST_F(ClosePage, OfTwoBuildersOnOnePageEachSeesTheOther) {
    CHtmlBuilder first(path_);
    CHtmlBuilder second(path_);
    first.AddText("one\r\n");
    CloseAndCompare(first);
    second.AddText("two\r\n");
    CloseAndCompare(second);
    first.AddText("three\r\n");
    CloseAndCompare(first);
    CloseAndCompare(second);
}

/// Texts that a page may be given, plain and not.
const std::array<std::string, 26> kTexts = {
    "",       "x",       "\r\n",       "\n",          "\r",    "\r\r\n",     "line\r\n", "open",     "a\nb\n",
    "<html>", "</html>", "<body>\r\n", "</body>\r\n", "<ht",   "ml>",        "</he",     "ad>",      "</head>\r\n",
    "<",      "/body>",  "\r\n\r\n",   "q\r\r\r\nz",  "</bod", "y>\r\ntail", "x</html>", "<tr>\r\n",
};

void DoAnything(CHtmlBuilder& page, std::mt19937& random) {
    const auto below = [&random](unsigned end) { return static_cast<int>(random() % end); };
    const std::vector<Cell> cells = {{"1", "c"}, {"</body>", "d"}};
    switch (below(12)) {
        case 0:
            page.AddHeading(below(8), below(2) == 0 ? "" : "c", "text");
            break;
        case 1:
            page.AddAnchor("name");
            break;
        case 2:
            page.AddRule("s");
            break;
        case 3:
            page.OpenTable("t", below(2));
            break;
        case 4:
            page.CloseTable();
            break;
        case 5:
            page.AddRow(std::span(cells).first(static_cast<std::size_t>(1 + (below(6) == 0))), "r");
            break;
        case 6:
            page.AddNote("a\tb");
            break;
        case 7:
            if (below(6) == 0) page.AddStyle({.className = "s"});
            break;
        default:
            page.AddText(kTexts[random() % kTexts.size()]);
            break;
    }
}

TEST_F(ClosePage, LeavesTheBytesOfAFullPassAfterAnyCalls) {
    for (unsigned seed = 0; seed < 150; ++seed) {
        std::mt19937 random(seed);
        CHtmlBuilder page(path_);
        for (int step = 0; step < 40 && !HasFailure(); ++step) {
            if (random() % 4 == 0) {
                CloseAndCompare(page);
            } else {
                DoAnything(page, random);
            }
        }
        CloseAndCompare(page);
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
}

TEST_F(ClosePage, LeavesTheBytesOfAFullPassAfterPlainCalls) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        std::mt19937 random(seed);
        CHtmlBuilder page(path_);
        for (int step = 0; step < 40 && !HasFailure(); ++step) {
            if (random() % 3 == 0) {
                CloseAndCompare(page);
            } else if (random() % 2 == 0) {
                page.AddHeading(1, "", "");
            } else {
                page.AddText("<tr>\r\n</tr>\r\n");
            }
        }
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
}

}  // namespace
}  // namespace tradebill::page_closing_test
