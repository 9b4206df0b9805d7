// The blocks that stretch pictures: sizes come from real picture files, places from the measure of the title.
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/page_sections.h"
#include "page/section_title.h"
#include "paint/picture_file.h"

namespace tradebill::section_title_test {
namespace {

const std::string kDivStart =
    "<div style=\"position:relative; -moz-user-select:-moz-none; \"  onselectstart=\"return false;\">\r\n";

class SectionTitleBlock : public PageFixture {
protected:
    // White pictures.
    void PutPng(const std::string& name, int width, int height) {
        EXPECT_TRUE(SavePng(CBitmap(width, height, 0xFFFFFF), PlaceOf(name)));
    }
    void PutJpeg(const std::string& name, int width, int height) {
        EXPECT_TRUE(SaveJpeg(CBitmap(width, height, 0xFFFFFF), PlaceOf(name)));
    }
    void AddPictures() {
        PutJpeg("Bar.jpg", 100, 27);
        PutPng("BillShrink.png", 13, 11);
    }

    [[nodiscard]] std::string PlaceOf(const std::string& name) const {
        std::filesystem::create_directories(folder_.Path("Image_files"));
        return folder_.Path("Image_files/" + name);
    }

    std::string Block() {
        CHtmlBuilder page(path_);
        const std::string title = Gbk("成交明细");
        AddSectionTitle(page, report,
                        {.title = title,
                         .handler = "fold",
                         .buttonId = "btn",
                         .picture = "Bar.jpg",
                         .titleTail = "[behind title]",
                         .heightTail = "[behind height]"});
        return Page().substr(kHead.size());
    }

    std::string Figure() {
        CHtmlBuilder page(path_);
        AddOffsetFigure(page, report);
        return Page().substr(kHead.size());
    }
};

TEST_F(SectionTitleBlock, HasZeroSizesWithoutPictures) {
    const TextExtent title = MeasuredTitle("成交明细");
    EXPECT_EQ(title.height, 16);
    EXPECT_GT(title.width, 0);
    EXPECT_EQ(Block(), kDivStart +
                           "<img border=\"0\" style=\"width:0px; height:0px; \" src=\"Image_files\\Bar.jpg\" "
                           "alt=\"成交明细\" />\r\n"
                           "<div style = \"cursor:hand; position:absolute; top:10px; left:730px; width:" +
                           std::to_string(title.width + 10) +
                           "px; \" class = \"titletext\" onclick = \"fold()\" >成交明细[behind title]"
                           "<img style = \"cursor:hand; position:absolute; top:18px; left:" +
                           std::to_string(730 + title.width) +
                           "px; width:0px; height:0px;[behind height]\" id = \"btn\" onclick = \"fold()\" border=\"0\" "
                           "src=\"Image_files\\BillShrink.png\" alt=\"\" />\r\n"
                           "</div>\r\n");
}

TEST_F(SectionTitleBlock, TakesPictureSizesAsTheyAreAt96Dpi) {
    AddPictures();
    const TextExtent title = MeasuredTitle("成交明细");
    for (const int dpi : {0, 96}) {
        report.Request.Dpi = dpi;
        EXPECT_EQ(Block(), kDivStart +
                               "<img border=\"0\" style=\"width:100px; height:27px; \" src=\"Image_files\\Bar.jpg\" "
                               "alt=\"成交明细\" />\r\n"
                               "<div style = \"cursor:hand; position:absolute; top:10px; left:730px; width:" +
                               std::to_string(title.width + 10) +
                               "px; \" class = \"titletext\" onclick = \"fold()\" >成交明细[behind title]"
                               "<img style = \"cursor:hand; position:absolute; top:12px; left:" +  // (16 - 11) / 2
                               std::to_string(730 + title.width) +
                               "px; width:13px; height:11px;[behind height]\" id = \"btn\" onclick = \"fold()\" "
                               "border=\"0\" src=\"Image_files\\BillShrink.png\" alt=\"\" />\r\n"
                               "</div>\r\n");
    }
}

TEST_F(SectionTitleBlock, ScalesPicturesPlacesAndFontAt120Dpi) {
    AddPictures();
    report.Request.Dpi = 120;
    const TextExtent title = MeasuredTitle("成交明细", 20);
    EXPECT_EQ(title.height, 20);
    EXPECT_GT(title.width, MeasuredTitle("成交明细").width);
    // 125 % of 100 by 27 and 13 by 11, of 10 and of 730; the button stands (20 - 14) / 2 below 13.
    EXPECT_EQ(Block(), kDivStart +
                           "<img border=\"0\" style=\"width:125px; height:34px; \" src=\"Image_files\\Bar.jpg\" "
                           "alt=\"成交明细\" />\r\n"
                           "<div style = \"cursor:hand; position:absolute; top:13px; left:913px; width:" +
                           std::to_string(title.width + 10) +
                           "px; \" class = \"titletext\" onclick = \"fold()\" >成交明细[behind title]"
                           "<img style = \"cursor:hand; position:absolute; top:16px; left:" +
                           std::to_string(913 + title.width) +
                           "px; width:16px; height:14px;[behind height]\" id = \"btn\" onclick = \"fold()\" "
                           "border=\"0\" src=\"Image_files\\BillShrink.png\" alt=\"\" />\r\n"
                           "</div>\r\n");
}

TEST_F(SectionTitleBlock, HalvesAnOddDifferenceTowardsZero) {
    const auto topWithButton = [this](int height) {
        PutPng("BillShrink.png", 5, height);
        const std::string block = Block();
        const std::string before = "<img style = \"cursor:hand; position:absolute; top:";
        const std::size_t from = block.find(before) + before.size();
        return block.substr(from, block.find("px", from) - from);
    };
    EXPECT_EQ(topWithButton(13), "11");  // 10 + 3 / 2
    EXPECT_EQ(topWithButton(15), "10");
    EXPECT_EQ(topWithButton(16), "10");
    EXPECT_EQ(topWithButton(17), "10");  // 10 + -1 / 2
    EXPECT_EQ(topWithButton(18), "9");
    EXPECT_EQ(topWithButton(19), "9");
}

TEST_F(SectionTitleBlock, TakesABrokenPictureAsNone) {
    folder_.Write("Image_files/Bar.jpg", "no picture");
    EXPECT_NE(Block().find("width:0px; height:0px; \" src=\"Image_files\\Bar.jpg\""), std::string::npos);
}

TEST_F(SectionTitleBlock, GoesOntoThePageInOneStep) {
    CHtmlBuilder page(path_);
    page.AddText("before\r\n");
    AddSectionTitle(page, report,
                    {.title = "t", .handler = "f", .buttonId = "b", .picture = "p", .titleTail = "", .heightTail = ""});
    const std::string text = Page();
    EXPECT_TRUE(text.starts_with(kHead + "before\r\n" + kDivStart));
    EXPECT_TRUE(text.ends_with("alt=\"\" />\r\n</div>\r\n"));
}

TEST_F(SectionTitleBlock, OfEachSectionNamesItsPicture) {
    struct Section {
        bool (*add)(CHtmlBuilder&, const CReport&);
        std::string picture;
    };
    const std::vector<Section> sections = {
        {AddTradeSection, "TradeStatistics.jpg"},  {AddForeignTradeSection, "TradeStatistics.jpg"},
        {AddPositionSection, "LastPositions.jpg"}, {AddForeignPositionSection, "LastPositions.jpg"},
        {AddMatchSection, "MatchDetails.jpg"},     {AddForeignMatchSection, "MatchDetails.jpg"},
        {AddOffsetSection, "OffsetRecords.jpg"},
    };
    PutPng("BillShrink.png", 13, 11);
    int width = 200;
    for (const Section& section : sections) {
        PutJpeg(section.picture, ++width, 30);
        CHtmlBuilder page(path_);
        section.add(page, report);
        const std::string bar = "<img border=\"0\" style=\"width:" + std::to_string(width) +
                                "px; height:30px; \" src=\"Image_files\\" + section.picture + "\" alt=";
        EXPECT_NE(Page().find(kDivStart + bar), std::string::npos) << section.picture;
        EXPECT_NE(Page().find("px; width:13px; height:11px;"), std::string::npos) << section.picture;
    }
}

TEST_F(SectionTitleBlock, OffsetFigureShowsItsChart) {
    const auto figure = [](const std::string& width, const std::string& height) {
        return "<div id = \"offsetFigure\" style=\"position:relative; -moz-user-select:-moz-none; \"  "
               "onselectstart=\"return false;\">\r\n"
               "<a href = \"javascript:void(1)\"> \r\n"
               "<img border=\"0\" style=\"style = \"cursor:hand; width:" +
               width + "px; height:" + height +
               "px; \" src=\"Image_files\\OffsetFigure.jpg\" alt=\"平仓盈亏曲线图\" />\r\n"
               "</a>\r\n</div>\r\n";
    };
    EXPECT_EQ(Figure(), figure("0", "0"));
    PutJpeg("OffsetFigure.jpg", 90, 41);
    EXPECT_EQ(Figure(), figure("90", "41"));
    report.Request.Dpi = 96;
    EXPECT_EQ(Figure(), figure("90", "41"));
    report.Request.Dpi = 120;
    EXPECT_EQ(Figure(), figure("113", "51"));  // 112.5 and 51.25
}

}  // namespace
}  // namespace tradebill::section_title_test
