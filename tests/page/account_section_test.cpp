// The first section: pictures at their places, and the sizes that the host is told.
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

#include "base/text.h"
#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/page_sections.h"
#include "paint/picture_file.h"
#include "report/report.h"
#include "support/host_objects.h"

namespace tradebill::account_section_test {
namespace {

std::optional<ChartSizeReport> Told;
std::string PageWhenTold;
std::string PagePathToRead;

void TakeSizes(const ChartSizeReport* sizes) {
    Told = *sizes;
    PageWhenTold = GbkToUtf8(ReadFile(PagePathToRead));
}

class AccountSection : public PageFixture {
protected:
    AccountSection() {
        Told.reset();
        PagePathToRead = path_;
    }

    void AddPicture(const std::string& name, int width, int height) {
        std::filesystem::create_directories(folder_.Path("Image_files"));
        const CBitmap bitmap(width, height, 0xFFFFFF);
        const std::string path = folder_.Path("Image_files/" + name);
        ASSERT_TRUE(name.ends_with(".png") ? SavePng(bitmap, path) : SaveJpeg(bitmap, path));
    }

    /// What the section alone leaves between the body tags.
    std::string Section(bool (*add)(CHtmlBuilder&, const CReport&)) {
        CHtmlBuilder page(path_);
        EXPECT_TRUE(add(page, report));
        const std::string text = Page();
        const std::string before = "<html>\r\n" + kHead + "<body>\r\n";
        const std::string after = "<h1></h1>\r\n</body>\r\n</html>\r\n";
        EXPECT_TRUE(text.starts_with(before));
        EXPECT_TRUE(text.ends_with(after)) << text.substr(text.size() - 60);
        return text.substr(before.size(), text.size() - before.size() - after.size());
    }
};

struct BannerBlock {
    std::string bannerSize = "width:0px; height:0px; ";
    int top = 108;
    int left = 730;
    std::string buttonSize = "width:0px; height:0px; ";
    int buttonHeight = 0;
    int fontHeight = 16;
};

std::string SummaryHtml(const BannerBlock& block) {
    const TextExtent title = MeasuredTitle("账户统计", block.fontHeight);
    const std::string left = std::to_string(block.left);
    return "<div style=\"position:relative; -moz-user-select:-moz-none; \"  onselectstart=\"return false;\" >\r\n"
           "<img border=\"0\" style=\"position:relative; letf:0px; top:0px; " +
           block.bannerSize +
           "\" src=\"Image_files\\AccountSummary.jpg\" alt=\"账户统计\" />\r\n"
           "<div style = \"cursor:hand; position:absolute; top:" +
           std::to_string(block.top) + "px; left:" + left + "px; width:" + std::to_string(title.width + 10) +
           "px; \" class = \"titletext\" onclick = \"clicksummary()\" >账户统计</div>\r\n"
           "<img style = \"cursor:hand; " +
           block.buttonSize +
           "position:absolute; top:" + std::to_string(block.top + (title.height - block.buttonHeight) / 2) +
           "px; left:" + std::to_string(block.left + title.width) +
           "px; \" id = \"summarybtn\" onclick = \"clicksummary()\" border=\"0\" "
           "src=\"Image_files\\BillShrink.png\" alt=\"\" />\r\n"
           "</div>\r\n";
}

std::string ImageHtml(const std::string& name, const std::string& alt, const std::string& size) {
    return "<img border=\"0\" style=\"" + size + " \" src=\"Image_files\\" + name + "\" alt=\"" + alt + "\" />\r\n";
}

const std::string kNoSize = "width:0px; height:0px;";

std::string PanelHtml(const std::string& top, const std::string& left, const std::string& secondTop) {
    return "<div id = \"tabStatistics\" style=\"position:relative;\">\r\n" +
           ImageHtml("AccountStatics.jpg", "账户统计", kNoSize) + "<div style=\"position:absolute; top:" + top +
           "; left:" + left + ";\">\r\n<a href = \"javascript:void(2)\"> \r\n" +
           ImageHtml("HealthFigure.jpg", "资金收益图", kNoSize) + "<div style=\"position:absolute; top:" + secondTop +
           "; left:0px;\">\r\n<a href = \"javascript:void(3)\"> \r\n" +
           ImageHtml("RiskFigure.jpg", "交易收益率", kNoSize) + "</a>\r\n</div>\r\n</div>\r\n</div>\r\n";
}

TEST_F(AccountSection, StandsWithoutPictures) {
    EXPECT_EQ(Section(AddAccountSection), SummaryHtml({}) + "<div id = \"account\" style=\"position:relative;\">\r\n" +
                                              ImageHtml("AccountDetail.jpg", "账户明细", kNoSize) +
                                              "<div style=\"position:absolute; top:7px; left:310px;\">\r\n"
                                              "<a href = \"javascript:void(0)\"> \r\n" +
                                              ImageHtml("AccountFigure.jpg", "权益走势图", kNoSize) +
                                              "</a>\r\n</div>\r\n</div>\r\n" + PanelHtml("7px", "310px", "267px"));
}

TEST_F(AccountSection, HasBlocksOfTheirOwnInForeignPages) {
    EXPECT_EQ(Section(AddForeignAccountSection),
              SummaryHtml({}) + "<div id = \"AccountDetail\" style=\"position:relative;\">\r\n" +
                  ImageHtml("AccountDetail.jpg", "资金明细", kNoSize) +
                  "</div>\r\n<div id = \"AccountFigure\" style=\"position:relative;\">\r\n"
                  "<a href = \"javascript:void(0)\"> \r\n" +
                  ImageHtml("AccountFigure.jpg", "权益走势", kNoSize) + "</a>\r\n</div>\r\n" +
                  PanelHtml("7px", "310px", "267px"));
}

// At 120 dots per inch measures grow by a quarter: 310 to 387.5, rounded up. The banner and the button lie on disk
// unscaled, the other pictures are shown as they are.
TEST_F(AccountSection, ScalesWhatLiesOnDiskUnscaled) {
    report.Request.Dpi = 120;
    AddPicture("AccountSummary.jpg", 825, 135);
    AddPicture("AccountDetail.jpg", 1031, 333);
    AddPicture("BillShrink.png", 8, 8);
    const std::string section = Section(AddAccountSection);
    EXPECT_TRUE(section.starts_with(SummaryHtml({.bannerSize = "width:1031px; height:169px; ",
                                                 .top = 135,
                                                 .left = 913,
                                                 .buttonSize = "width:10px; height:10px; ",
                                                 .buttonHeight = 10,
                                                 .fontHeight = 20})))
        << section;
    EXPECT_NE(section.find(ImageHtml("AccountDetail.jpg", "账户明细", "width:1031px; height:333px;")),
              std::string::npos);
    EXPECT_NE(section.find("top:9px; left:388px;"), std::string::npos);
    EXPECT_NE(section.find("top:334px; left:0px;"), std::string::npos);
}

TEST_F(AccountSection, TellsTheHostTheChartSizesWithThePageWholeSoFar) {
    report.Request.HostWindow = CreateHostWindow([](void*, std::uint32_t, std::uint64_t, std::int64_t) {}, nullptr);
    report.Request.ChartSizeCallback = TakeSizes;
    report.MoneyStore.ChartSizes = {1, 2, 3, 4, 5, 6, 7, 8};
    auto day = std::make_unique<MoneyRecord>();
    CopyField(day->BILL_DATE, "20240102");
    day->EXCHANGE_RATE = 1;
    report.MoneyStore.Add(std::move(day), MoneySource::Statement);
    Section(AddForeignAccountSection);
    ASSERT_TRUE(Told.has_value());
    EXPECT_EQ(Told->EquityWidth, 1);
    EXPECT_EQ(Told->EquityHeight, 2);
    EXPECT_EQ(Told->RealisedWidth, 3);
    EXPECT_EQ(Told->RealisedHeight, 4);
    EXPECT_EQ(Told->AccountYieldWidth, 5);
    EXPECT_EQ(Told->AccountYieldHeight, 6);
    EXPECT_EQ(Told->TradeYieldWidth, 7);
    EXPECT_EQ(Told->TradeYieldHeight, 8);
    EXPECT_EQ(Told->MoneyRecordCount, 1);
    EXPECT_EQ(PageWhenTold, Page());
    DestroyHostWindow(report.Request.HostWindow);
}

TEST_F(AccountSection, TellsNobodyWithoutAWindow) {
    report.Request.ChartSizeCallback = TakeSizes;
    Section(AddAccountSection);
    EXPECT_FALSE(Told.has_value());
}

TEST_F(AccountSection, IsWholeWithoutACallback) {
    report.Request.HostWindow = CreateHostWindow([](void*, std::uint32_t, std::uint64_t, std::int64_t) {}, nullptr);
    EXPECT_NE(Section(AddAccountSection).find("javascript:void(3)"), std::string::npos);
    DestroyHostWindow(report.Request.HostWindow);
}

}  // namespace
}  // namespace tradebill::account_section_test
