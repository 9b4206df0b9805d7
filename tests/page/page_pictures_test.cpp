#include "page/page_pictures.h"

#include <gtest/gtest.h>

#include "images/picture_names.h"
#include "paint/bitmap.h"
#include "paint/picture_file.h"
#include "report/report_document.h"
#include "support/store_fixture.h"
#include "support/temp_folder.h"

namespace tradebill::page_pictures_test {
namespace {

class PagePictures : public StoreFixture {
protected:
    PagePictures() {
        report.ReportDocument.BillFolder = "/root/Users/u/Data/Bill/Image";
        report.ReportDocument.ImageFolderName = "Image_files";
    }
};

TEST_F(PagePictures, AreNamedWithABackslashInThePage) {
    EXPECT_EQ(PagePicturePath(report, "TradeStatistics.jpg"), "Image_files\\TradeStatistics.jpg");
}

TEST_F(PagePictures, AreNamedWithSlashesInScripts) {
    EXPECT_EQ(ScriptPicturePath(report, "BillShrink.png"), "Image_files/BillShrink.png");
    report.ReportDocument.ImageFolderName = "a\\b";
    EXPECT_EQ(ScriptPicturePath(report, "BillShrink.png"), "a/b/BillShrink.png");
}

TEST_F(PagePictures, LieBelowTheBillFolder) {
    EXPECT_EQ(FullPicturePath(report.ReportDocument, "BillShrink.png"),
              "/root/Users/u/Data/Bill/Image/Image_files/BillShrink.png");
}

/// With a picture of 40 by 30 on disk.
class PagePictureSizes : public StoreFixture {
protected:
    PagePictureSizes() {
        report.ReportDocument.BillFolder = folder_.Path();
        report.ReportDocument.ImageFolderName = ".";
        EXPECT_TRUE(SavePng(CBitmap(40, 30, 0), folder_.Path("Bar.jpg")));
    }
    CTempFolder folder_;
};

TEST_F(PagePictureSizes, AreThoseOfTheFiles) {
    EXPECT_EQ(SizeOf(report, "Bar.jpg"), (PictureSize{40, 30}));
    EXPECT_EQ(SizeOf(report, "Other.jpg"), PictureSize{});
    report.Request.Dpi = 192;
    EXPECT_EQ(ScaledSizeOf(report, "Bar.jpg"), (PictureSize{80, 60}));
}

TEST_F(PagePictureSizes, AreThoseThatWereSavedUntilTheReportIsCleared) {
    report.ReportDocument.SavedPictures = {{.name = "Bar.jpg", .width = 7, .height = 5},
                                           {.name = "Gone.jpg", .width = 3, .height = 2}};
    EXPECT_EQ(SizeOf(report, "Bar.jpg"), (PictureSize{7, 5}));
    EXPECT_EQ(SizeOf(report, "Gone.jpg"), (PictureSize{3, 2}));
    report.Clear();
    EXPECT_EQ(SizeOf(report, "Bar.jpg"), (PictureSize{40, 30}));
    EXPECT_EQ(SizeOf(report, "Gone.jpg"), PictureSize{});
}

}  // namespace
}  // namespace tradebill::page_pictures_test
