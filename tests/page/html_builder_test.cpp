#include "page/html_builder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "page/page_fixture.h"
#include "page/page_scripts.h"
#include "page/section_title.h"

namespace tradebill::html_builder_test {
namespace {

class HtmlBuilder : public PageFixture {
protected:
    /// What the page holds behind its head once `add` has returned.
    std::string Added(const std::function<void(CHtmlBuilder&)>& add) {
        CHtmlBuilder page(path_);
        add(page);
        const std::string text = Page();
        EXPECT_TRUE(text.starts_with(kHead)) << text;
        EXPECT_FALSE(page.HasFailed());
        return text.substr(std::min(kHead.size(), text.size()));
    }

    /// The head's one style block.
    std::string StyleOf(const Style& style) {
        CHtmlBuilder page(path_);
        page.AddStyle(style);
        const std::string before = "<head>\r\n<title> 交易及账单报告 </title>\r\n";
        const std::string after = "</head>\r\n";
        const std::string text = Page();
        EXPECT_TRUE(text.starts_with(before) && text.ends_with(after)) << text;
        return text.substr(before.size(), text.size() - before.size() - after.size());
    }
};

TEST_F(HtmlBuilder, WritesTheHeadWhenItIsMade) {
    const CHtmlBuilder page(path_);
    EXPECT_EQ(Page(), "<head>\r\n<title> 交易及账单报告 </title>\r\n</head>\r\n");
    EXPECT_EQ(Bytes(), Gbk(kHead));
    EXPECT_FALSE(page.HasFailed());
}

TEST_F(HtmlBuilder, EmptiesAnOlderPage) {
    folder_.Write("TradeBill.html", std::string(5000, 'x'));
    const CHtmlBuilder page(path_);
    EXPECT_EQ(Page(), kHead);
}

TEST_F(HtmlBuilder, LeavesTheFileWhenItGoes) {
    { const CHtmlBuilder page(path_); }
    EXPECT_EQ(Page(), kHead);
    static_assert(std::has_virtual_destructor_v<CHtmlBuilder>);
}

TEST_F(HtmlBuilder, HeadingsOfLevelsOneToSixHaveNoLineEnd) {
    for (int level = 1; level <= 6; ++level) {
        const std::string tag = "h" + std::to_string(level);
        EXPECT_EQ(Added([&](CHtmlBuilder& page) { page.AddHeading(level, "", "t"); }), "<" + tag + ">t</" + tag + ">");
        EXPECT_EQ(Added([&](CHtmlBuilder& page) { page.AddHeading(level, "c", Gbk("买")); }),
                  "<" + tag + " class=c>买</" + tag + ">");
    }
}

TEST_F(HtmlBuilder, HeadingsOfOtherLevelsLeaveThePageUnchanged) {
    for (const int level : {-1, 0, 7, 8}) {
        EXPECT_EQ(Added([&](CHtmlBuilder& page) { page.AddHeading(level, "c", "t"); }), "") << level;
    }
}

TEST_F(HtmlBuilder, AnchorNamesStandWithoutQuotes) {
    EXPECT_EQ(Added([](CHtmlBuilder& page) { page.AddAnchor(Gbk("账户统计")); }), "<a name = 账户统计></a>\r\n");
}

TEST_F(HtmlBuilder, RulesHaveSizeOneAndNoLineEnd) {
    EXPECT_EQ(Added([](CHtmlBuilder& page) { page.AddRule("s"); }), "<HR style = s SIZE = 1>");
}

TEST_F(HtmlBuilder, TablesAboveWidthZeroSayTheirWidth) {
    EXPECT_EQ(Added([](CHtmlBuilder& page) { page.OpenTable("tabMatch", 1); }),
              "<table width = \"1\" style=\"table-layout: fixed;\" cellspacing = \"0\" border=\"0\" id= \"tabMatch\">"
              "\r\n");
    EXPECT_EQ(Added([](CHtmlBuilder& page) { page.OpenTable("t", 1250); }),
              "<table width = \"1250\" style=\"table-layout: fixed;\" cellspacing = \"0\" border=\"0\" id= \"t\">\r\n");
}

TEST_F(HtmlBuilder, TablesOfWidthZeroAndBelowDont) {
    for (const int width : {0, -1}) {
        EXPECT_EQ(Added([&](CHtmlBuilder& page) { page.OpenTable("tabMatch", width); }),
                  "<table style=\"table-layout: fixed;\" cellspacing = \"0\" border=\"0\" id= \"tabMatch\">\r\n");
    }
}

TEST_F(HtmlBuilder, ClosesATable) {
    EXPECT_EQ(Added([](CHtmlBuilder& page) { page.CloseTable(); }), "</table>\r\n");
}

TEST_F(HtmlBuilder, SizedRowsCarryWidths) {
    const std::vector<Cell> cells = {{"a", "c1"}, {"", "c2"}};
    const std::vector<std::string_view> widths = {"14%", "9%"};
    const std::string line =
        "<td style=\"padding:5px 0px; \" width=\"14%\"><span class='c1'>a</span></td>"
        "<td style=\"padding:5px 0px; \" width=\"9%\"><span class='c2'></span></td></tr>\r\n";
    EXPECT_EQ(Added([&](CHtmlBuilder& page) { page.AddSizedRow(cells, widths, ""); }), "<tr>\r\n" + line);
    EXPECT_EQ(Added([&](CHtmlBuilder& page) { page.AddSizedRow(cells, widths, "billclr1"); }),
              "<tr class='billclr1'>\r\n" + line);
}

TEST_F(HtmlBuilder, PlainRowsDontWrapTheirCells) {
    const std::string buy = Gbk("买");
    const std::vector<Cell> cells = {{buy, "c1"}, {"2", "c2"}};
    const std::string line =
        "<td style=\"padding:5px 0px; overflow:hidden; white-space:nowrap;\"><span class='c1'>买</span></td>"
        "<td style=\"padding:5px 0px; overflow:hidden; white-space:nowrap;\"><span class='c2'>2</span></td></tr>\r\n";
    EXPECT_EQ(Added([&](CHtmlBuilder& page) { page.AddRow(cells, ""); }), "<tr>\r\n" + line);
    EXPECT_EQ(Added([&](CHtmlBuilder& page) { page.AddRow(cells, "billclr2"); }), "<tr class='billclr2'>\r\n" + line);
}

TEST_F(HtmlBuilder, ARowWithoutCellsIsItsTags) {
    EXPECT_EQ(Added([](CHtmlBuilder& page) { page.AddRow({}, ""); }), "<tr>\r\n</tr>\r\n");
    EXPECT_EQ(Added([](CHtmlBuilder& page) { page.AddSizedRow({}, {}, "r"); }), "<tr class='r'>\r\n</tr>\r\n");
}

TEST_F(HtmlBuilder, NotesAreExpandedParagraphs) {
    EXPECT_EQ(Added([](CHtmlBuilder& page) { page.AddNote("a\tb c"); }),
              "<p class=\"reporteptext\">a　　　　　　b　c</p>\r\n");
}

TEST_F(HtmlBuilder, TextIsNotEscaped) {
    EXPECT_EQ(Added([](CHtmlBuilder& page) { page.AddHeading(2, "", "a<b & \"c\""); }), "<h2>a<b & \"c\"</h2>");
    const std::vector<Cell> cells = {{"<b>&", "c"}};
    EXPECT_EQ(Added([&](CHtmlBuilder& page) { page.AddRow(cells, ""); }),
              "<tr>\r\n<td style=\"padding:5px 0px; overflow:hidden; white-space:nowrap;\"><span class='c'><b>&</span>"
              "</td></tr>\r\n");
}

TEST_F(HtmlBuilder, EveryOperationIsOnDiskBehindTheOneBefore) {
    CHtmlBuilder page(path_);
    std::string expected = kHead;
    const auto then = [&](const std::string& text) {
        expected += text;
        EXPECT_EQ(Page(), expected);
    };
    page.AddAnchor("a");
    then("<a name = a></a>\r\n");
    page.AddHeading(1, "", "");
    then("<h1></h1>");
    page.AddRule("s");
    then("<HR style = s SIZE = 1>");
    page.AddNote("n");
    then("<p class=\"reporteptext\">n</p>\r\n");
    page.AddText("as it stands");
    then("as it stands");
    page.CloseTable();
    then("</table>\r\n");
}

TEST_F(HtmlBuilder, APlainStyleIsASelectorAndALineHeight) {
    EXPECT_EQ(StyleOf({}), "<style type='text/css'>\r\n{\r\nline-height:100%;\r\n}\r\n</style>\r\n\r\n");
}

TEST_F(HtmlBuilder, AFullStyleHasItsLinesInOrder) {
    EXPECT_EQ(StyleOf({.tag = StyleTag::Div,
                       .className = "c",
                       .font = "Courier New",
                       .size = 12,
                       .bold = true,
                       .color = "red",
                       .background = "blue",
                       .marginBottom = 3}),
              "<style type='text/css'>\r\n"
              "div.c{\r\n"
              "font-family: 'Courier New';\r\n"
              "padding-top: 1px;\r\n"
              "margin-bottom:3px;\r\n"
              "font-size: 12px;\r\n"
              "font-weight:bold;\r\n"
              "line-height:100%;\r\n"
              "color: red;\r\n"
              "background-color: blue;\r\n"
              "}\r\n"
              "</style>\r\n\r\n");
}

TEST_F(HtmlBuilder, TagsAreNumberedFromOne) {
    const std::array<std::string, 10> names = {"", "h1", "h2", "h3", "h4", "h5", "h6", "div", "span", "p"};
    for (std::size_t tag = 0; tag < names.size(); ++tag) {
        const std::string padding = tag == 7 ? "padding-top: 1px;\r\n" : "";
        EXPECT_EQ(StyleOf({.tag = static_cast<StyleTag>(tag), .className = "c"}),
                  "<style type='text/css'>\r\n" + names[tag] + ".c{\r\n" + padding +
                      "line-height:100%;\r\n}\r\n</style>\r\n\r\n");
    }
}

TEST_F(HtmlBuilder, StyleLinesComeAndGoAtTheirBounds) {
    const auto lines = [this](const Style& style) {
        const std::string text = StyleOf(style);
        const std::string before = "<style type='text/css'>\r\n{\r\n";
        const std::string after = "line-height:100%;\r\n}\r\n</style>\r\n\r\n";
        EXPECT_TRUE(text.starts_with(before) && text.ends_with(after)) << text;
        return text.substr(before.size(), text.size() - before.size() - after.size());
    };
    EXPECT_EQ(lines({.size = -1}), "");
    EXPECT_EQ(lines({.size = 0}), "");
    EXPECT_EQ(lines({.size = 1}), "font-size: 1px;\r\n");
    EXPECT_EQ(lines({.marginBottom = -2}), "margin-bottom:-2px;\r\n");
    EXPECT_EQ(lines({.marginBottom = -1}), "");
    EXPECT_EQ(lines({.marginBottom = 0}), "margin-bottom:0px;\r\n");
}

TEST_F(HtmlBuilder, AFontWithABlankInsideIsQuoted) {
    const auto fontLine = [this](std::string_view font) {
        const std::string text = StyleOf({.font = font});
        const std::size_t from = text.find("{\r\n") + 3;
        return text.substr(from, text.find("line-height") - from);
    };
    EXPECT_EQ(fontLine(Gbk("宋体")), "font-family: 宋体;\r\n");
    EXPECT_EQ(fontLine("A B"), "font-family: 'A B';\r\n");
    EXPECT_EQ(fontLine("A "), "font-family: 'A ';\r\n");
    EXPECT_EQ(fontLine(" A"), "font-family:  A;\r\n");  // a name that begins with one gets no quotes
    EXPECT_EQ(fontLine(" A B"), "font-family:  A B;\r\n");
}

TEST_F(HtmlBuilder, StylesStandInOrderOfTheirCalls) {
    CHtmlBuilder page(path_);
    page.AddText("body\r\n");
    page.AddStyle({.className = "a"});
    page.AddStyle({.className = "b"});
    EXPECT_EQ(Page(),
              "<head>\r\n<title> 交易及账单报告 </title>\r\n"
              "<style type='text/css'>\r\n.a{\r\nline-height:100%;\r\n}\r\n</style>\r\n\r\n"
              "<style type='text/css'>\r\n.b{\r\nline-height:100%;\r\n}\r\n</style>\r\n\r\n"
              "</head>\r\nbody\r\n");
}

constexpr std::string_view kBlock = "<style type='text/css'>\r\n.c{\r\nline-height:100%;\r\n}\r\n</style>\r\n\r\n";

class HtmlBuilderStyle : public HtmlBuilder {
protected:
    /// The page once `content` stood in it and a style was added.
    std::string Styled(const std::string& content) {
        CHtmlBuilder page(path_);
        folder_.Write("TradeBill.html", content);
        page.AddStyle({.className = "c"});
        return Bytes();
    }
};

TEST_F(HtmlBuilderStyle, StandsBeforeTheWholeLineThatEndsTheHead) {
    const std::string block(kBlock);
    EXPECT_EQ(Styled("<head>\r\nx</head>y\r\nz\r\n"), "<head>\r\n" + block + "x</head>y\r\nz\r\n");
    EXPECT_EQ(Styled("</head>\r\nz\r\n"), block + "</head>\r\nz\r\n");
    EXPECT_EQ(Styled("a\r\n</head>\r\n</head>\r\n"), "a\r\n" + block + "</head>\r\n</head>\r\n");
}

TEST_F(HtmlBuilderStyle, StandsBeforeTheLastLineOfAPageWithoutHeadEnd) {
    const std::string block(kBlock);
    EXPECT_EQ(Styled("first\r\nlast\r\n"), "first\r\n" + block + "last\r\n");
    EXPECT_EQ(Styled("only\r\n"), block + "only\r\n");
    EXPECT_EQ(Styled("first\r\nlast"), "first\r\n" + block + "last\r\n");
    EXPECT_EQ(Styled(""), block);
}

TEST_F(HtmlBuilderStyle, EndsEachLineBehindIt) {
    const std::string block(kBlock);
    EXPECT_EQ(Styled("a\r\n</head>\r\nno line end"), "a\r\n" + block + "</head>\r\nno line end\r\n");
    EXPECT_EQ(Styled("a\r\n</head>\r\nb\nc\r\n"), "a\r\n" + block + "</head>\r\nb\r\nc\r\n");
}

TEST_F(HtmlBuilder, WithoutAFileItNeverHadDoesNothing) {
    const std::string missing = folder_.Path("none/TradeBill.html");
    CHtmlBuilder page(missing);
    EXPECT_TRUE(page.HasFailed());
    std::filesystem::create_directories(folder_.Path("none"));
    folder_.Write("none/TradeBill.html", "of another\r\n");
    page.AddHeading(2, "", "t");
    page.AddAnchor("a");
    page.AddRule("s");
    page.OpenTable("t", 5);
    page.CloseTable();
    page.AddNote("n");
    page.AddText("x");
    page.AddStyle({});
    AddPageScripts(page, report);
    AddOffsetFigure(page, report);
    page.ClosePage();
    EXPECT_EQ(ReadFile(missing), "of another\r\n");
}

TEST_F(HtmlBuilder, NeverMakesALostFileAnew) {
    CHtmlBuilder page(path_);
    std::filesystem::remove(path_);
    page.AddHeading(2, "", "t");
    page.AddRow({}, "");
    page.AddStyle({});
    page.ClosePage();
    EXPECT_FALSE(std::filesystem::exists(path_));
    EXPECT_TRUE(page.HasFailed());
}

TEST_F(HtmlBuilder, GoesOnOnceTheFileIsBack) {
    CHtmlBuilder page(path_);
    page.AddText("one\r\n");
    const std::string aside = folder_.Path("aside.html");
    std::filesystem::rename(path_, aside);
    page.AddText("lost\r\n");
    std::filesystem::rename(aside, path_);
    page.AddText("two\r\n");
    page.ClosePage();
    EXPECT_EQ(Page(), ClosedPage("one\r\ntwo\r\n"));
}

TEST_F(HtmlBuilder, AFolderInPlaceOfThePageStopsNothing) {
    std::filesystem::create_directories(path_);
    CHtmlBuilder page(path_);
    page.AddText("x");
    page.ClosePage();
    EXPECT_TRUE(page.HasFailed());
    EXPECT_TRUE(std::filesystem::is_directory(path_));
}

#if !defined(_WIN32)  // which has no device that is always full
TEST_F(HtmlBuilder, AFullDiskStopsNothing) {
    CHtmlBuilder page("/dev/full");
    EXPECT_TRUE(page.HasFailed());
    page.AddHeading(2, "", "t");
    page.AddStyle({});
    page.ClosePage();
    EXPECT_TRUE(page.HasFailed());
}
#endif

TEST_F(HtmlBuilder, CutsItsPathTo259Bytes) {
    const std::string folder = folder_.Path("deep");
    const std::string sub = folder + "/" + std::string(100, 'd');
    std::filesystem::create_directories(sub);
    const std::string longest = sub + "/" + std::string(259 - sub.size() - 1, 'f');
    { const CHtmlBuilder page(longest + "cut off"); }
    EXPECT_EQ(GbkToUtf8(ReadFile(longest)), kHead);
    EXPECT_FALSE(std::filesystem::exists(longest + "cut off"));
}

}  // namespace
}  // namespace tradebill::html_builder_test
