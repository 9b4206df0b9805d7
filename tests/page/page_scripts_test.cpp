// The script block and the thirty style blocks, byte for byte.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/page_scripts.h"
#include "page/standalone_page.h"

namespace tradebill::page_scripts_test {
namespace {

const std::string kDomesticSummary = R"(function clicksummary()
{
element=document.getElementById('summarybtn');
element1=document.getElementById('account');
element2=document.getElementById('tabStatistics');
if (element.src.match("BillShrink"))
{
element.src="Image_files/BillExpand.png";
element1.style.display='none';
element2.style.display='none';
}
else
{
element.src="Image_files/BillShrink.png";
element1.style.display='block';
element2.style.display='block';
}
}
)";

const std::string kForeignSummary = R"(function clicksummary()
{
element=document.getElementById('summarybtn');
element1=document.getElementById('AccountDetail');
element2=document.getElementById('AccountFigure');
element3=document.getElementById('tabStatistics');
if (element.src.match("BillShrink"))
{
element.src="Image_files/BillExpand.png";
element1.style.display='none';
element2.style.display='none';
element3.style.display='none';
}
else
{
element.src="Image_files/BillShrink.png";
element1.style.display='block';
element2.style.display='block';
element3.style.display='block';
}
}
)";

const std::string kOtherFunctions = R"(function clickaccountstatistics()
{
element=document.getElementById('accoutstatisticsbtn');
element1=document.getElementById('tabStatistics');
if (element.src.match("BillShrink"))
{
element.src="Image_files/BillExpand.png";
element1.style.display='none';
}
else
{
element.src="Image_files/BillShrink.png";
element1.style.display='block';
}
}
function clickStatistics()
{
element=document.getElementById('Statisticsbtn');
element1=document.getElementById('tabTrade');
if (element.src.match("BillShrink"))
{
element.src="Image_files/BillExpand.png";
element1.style.display='none';
}
else
{
element.src="Image_files/BillShrink.png";
element1.style.display='block';
}
}
function clickPositions()
{
element=document.getElementById('Positionsbtn');
element1=document.getElementById('tabPositions');
if (element.src.match("BillShrink"))
{
element.src="Image_files/BillExpand.png";
element1.style.display='none';
}
else
{
element.src="Image_files/BillShrink.png";
element1.style.display='block';
}
}
function clickMatch()
{
element=document.getElementById('Matchbtn');
element1=document.getElementById('tabMatch');
if (element.src.match("BillShrink"))
{
element.src="Image_files/BillExpand.png";
element1.style.display='none';
}
else
{
element.src="Image_files/BillShrink.png";
element1.style.display='block';
}
}
function clickOfferset()
{
element=document.getElementById('Offersetbtn');
element1=document.getElementById('tabOffset');
element2=document.getElementById('offsetFigure');
if (element.src.match("BillShrink"))
{
element.src="Image_files/BillExpand.png";
element1.style.display='none';
element2.style.display='none';
}
else
{
element.src="Image_files/BillShrink.png";
element1.style.display='block';
element2.style.display='block';
}
}
)";

struct Block {
    std::string selector;
    std::string lines;
};

// clang-format off
const std::array<Block, 30> kBlocks = {{
    {".billclr1", "line-height:100%;\nbackground-color: rgb(241,248,255);\n"},
    {".billclr2", "line-height:100%;\nbackground-color: rgb(221,228,235);\n"},
    {"div.titletext", "font-family: Arial;\npadding-top: 1px;\nfont-size: 14px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(255,255,255);\n"},
    {"span.tradespanbid", "font-family: 宋体;\nfont-size: 13px;\nline-height:100%;\ncolor: rgb(200,0,0);\n"},
    {"span.tradespanask", "font-family: 宋体;\nfont-size: 13px;\nline-height:100%;\ncolor: rgb(0,160,0);\n"},
    {"span.tradespannormal", "font-family: 宋体;\nfont-size: 13px;\nline-height:100%;\ncolor: rgb(0,0,0);\n"},
    {"span.tradespansum", "font-family: 宋体;\nfont-size: 13px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(0,0,0);\n"},
    {"span.offsetspanbid", "font-family: 宋体;\nfont-size: 13px;\nline-height:100%;\ncolor: rgb(200,0,0);\n"},
    {"span.offsetspanask", "font-family: 宋体;\nfont-size: 13px;\nline-height:100%;\ncolor: rgb(0,160,0);\n"},
    {"span.offsetspannormal", "font-family: 宋体;\nfont-size: 13px;\nline-height:100%;\ncolor: rgb(0,0,0);\n"},
    {"span.offsetsumbid", "font-family: 宋体;\nfont-size: 13px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(200,0,0);\n"},
    {"span.offsetsumask", "font-family: 宋体;\nfont-size: 13px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(0,160,0);\n"},
    {"span.offsetsumnormal", "font-family: 宋体;\nfont-size: 13px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(0,0,0);\n"},
    {"div.positiontext", "font-family: 宋体;\npadding-top: 1px;\nfont-size: 13px;\n"
        "line-height:100%;\ncolor: rgb(0,0,0);\n"},
    {"span.positionspanbid", "font-family: 宋体;\nfont-size: 13px;\nline-height:100%;\ncolor: rgb(200,0,0);\n"},
    {"span.positionspanask", "font-family: 宋体;\nfont-size: 13px;\nline-height:100%;\ncolor: rgb(0,160,0);\n"},
    {"span.positionspannormal", "font-family: 宋体;\nfont-size: 13px;\nline-height:100%;\ncolor: rgb(0,0,0);\n"},
    {"div.positionsum", "font-family: 宋体;\npadding-top: 1px;\nfont-size: 13px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(0,0,0);\n"},
    {"span.positionsumbid", "font-family: 宋体;\nfont-size: 13px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(200,0,0);\n"},
    {"span.positionsumask", "font-family: 宋体;\nfont-size: 13px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(0,160,0);\n"},
    {"span.positionsumnormal", "font-family: 宋体;\nfont-size: 13px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(0,0,0);\n"},
    {"span.matchspannormal", "font-family: 宋体;\nfont-size: 13px;\nline-height:100%;\ncolor: rgb(0,0,0);\n"},
    {"span.matchspanbid", "font-family: 宋体;\nfont-size: 13px;\nline-height:100%;\ncolor: rgb(200,0,0);\n"},
    {"span.matchspanask", "font-family: 宋体;\nfont-size: 13px;\nline-height:100%;\ncolor: rgb(0,160,0);\n"},
    {"span.matchsumnormal", "font-family: 宋体;\nfont-size: 13px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(0,0,0);\n"},
    {"span.matchsumbid", "font-family: 宋体;\nfont-size: 13px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(200,0,0);\n"},
    {"span.matchsumask", "font-family: 宋体;\nfont-size: 13px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(0,160,0);\n"},
    {"p.reporteptext", "font-family: 宋体;\nfont-size: 13px;\nline-height:100%;\ncolor: rgb(101,101,101);\n"},
    {"h5.reporteptitle", "font-family: 宋体;\nmargin-bottom:1px;\nfont-size: 13px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(101,101,101);\n"},
    {"div.reportep", "font-family: 宋体;\npadding-top: 1px;\nfont-size: 13px;\nfont-weight:bold;\n"
        "line-height:100%;\ncolor: rgb(101,101,101);\n"},
}};
// clang-format on

/// Plain line ends as the page has them.
std::string WithLineEnds(std::string_view text) {
    std::string result;
    for (const char byte : text) {
        if (byte == '\n') result += '\r';
        result += byte;
    }
    return result;
}

std::string Styles() {
    std::string text;
    for (const Block& block : kBlocks) {
        text += "<style type='text/css'>\r\n" + block.selector + "{\r\n" + WithLineEnds(block.lines) +
                "}\r\n</style>\r\n\r\n";
    }
    return text;
}

std::string Scripts(const std::string& summary) {
    return WithLineEnds("<script>\n" + summary + kOtherFunctions + "</script>\n");
}

void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

const std::string kHeadBefore = "<head>\r\n<title> 交易及账单报告 </title>\r\n";

class PageScripts : public PageFixture {
protected:
    std::string WrittenPage() {
        CHtmlBuilder page(path_);
        AddPageScripts(page, report);
        return Page();
    }
};

TEST_F(PageScripts, StandBehindTheHeadAndTheStylesInIt) {
    report.Request.StatementKind = 1;
    EXPECT_EQ(WrittenPage(), kHeadBefore + Styles() + "</head>\r\n" + Scripts(kDomesticSummary));
}

TEST_F(PageScripts, FoldThreeSummaryPartsInForeignPages) {
    report.Request.StatementKind = 2;
    EXPECT_EQ(WrittenPage(), kHeadBefore + Styles() + "</head>\r\n" + Scripts(kForeignSummary));
}

TEST_F(PageScripts, TakeAnyOtherKindAsDomestic) {
    for (const int kind : {0, 3, -1}) {
        report.Request.StatementKind = kind;
        EXPECT_EQ(WrittenPage(), kHeadBefore + Styles() + "</head>\r\n" + Scripts(kDomesticSummary)) << kind;
    }
}

TEST_F(PageScripts, AreTheSameWithNoScalingAndAt96Dpi) {
    const std::string plain = WrittenPage();
    report.Request.Dpi = 96;
    EXPECT_EQ(WrittenPage(), plain);
}

TEST_F(PageScripts, ScaleFontSizesAlone) {
    report.Request.Dpi = 120;
    std::string styles = Styles();
    ReplaceAll(styles, "font-size: 13px", "font-size: 16px");  // 16.25
    ReplaceAll(styles, "font-size: 14px", "font-size: 18px");  // 17.5
    EXPECT_EQ(WrittenPage(), kHeadBefore + styles + "</head>\r\n" + Scripts(kDomesticSummary));

    report.Request.Dpi = 144;
    styles = Styles();
    ReplaceAll(styles, "font-size: 13px", "font-size: 20px");  // 19.5
    ReplaceAll(styles, "font-size: 14px", "font-size: 21px");
    EXPECT_EQ(WrittenPage(), kHeadBefore + styles + "</head>\r\n" + Scripts(kDomesticSummary));
}

TEST_F(PageScripts, AreTheFirstThingInAClosedBody) {
    CHtmlBuilder page(path_);
    AddPageScripts(page, report);
    page.ClosePage();
    EXPECT_EQ(Page(), "<html>\r\n" + kHeadBefore + Styles() + "</head>\r\n<body>\r\n" + Scripts(kDomesticSummary) +
                          "</body>\r\n</html>\r\n");
}

TEST_F(PageScripts, NamePicturesBySlashes) {
    report.ReportDocument.ImageFolderName = "a\\b";
    std::string scripts = Scripts(kDomesticSummary);
    ReplaceAll(scripts, "Image_files/", "a/b/");
    EXPECT_EQ(WrittenPage(), kHeadBefore + Styles() + "</head>\r\n" + scripts);
}

TEST_F(PageScripts, FoldNothingByNamesOfOthers) {
    EXPECT_EQ(FindFoldScript(report, "print"), nullptr);
    EXPECT_EQ(CStandaloneForm().FoldAttribute(report, "print"), "");
}

TEST_F(PageScripts, AreLeftOutOfAPageThatIsGone) {
    CHtmlBuilder page(path_);
    std::filesystem::remove(path_);
    AddPageScripts(page, report);
    EXPECT_FALSE(std::filesystem::exists(path_));
    EXPECT_TRUE(page.HasFailed());
}

}  // namespace
}  // namespace tradebill::page_scripts_test
