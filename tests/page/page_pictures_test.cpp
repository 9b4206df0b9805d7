#include "page/page_pictures.h"

#include <gtest/gtest.h>

#include "images/picture_names.h"
#include "support/store_fixture.h"

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

}  // namespace
}  // namespace tradebill::page_pictures_test
