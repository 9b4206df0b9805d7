// The page as one file, of small reports and of what can go wrong.
#include "cli/standalone_page.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "report/report.h"
#include "support/gbk_text.h"
#include "support/store_fixture.h"
#include "support/temp_folder.h"

namespace tradebill::standalone_page_test {
namespace {

class StandalonePage : public StoreFixture {
protected:
    StandalonePage() {
        report.ReportDocument.BillFolder = folder_.Path();
        report.ReportDocument.ImageFolderName = "Image_files";
        folder_.Write("Image_files/BillShrink.png", "abcd");
        folder_.Write("Image_files/AccountSummary.jpg", "ab");
    }

    /// What becomes of a page with this text in its body.
    std::string Made(const std::string& body) {
        folder_.Write("page.html", Gbk("<html>\r\n<head>\r\n</head>\r\n<body>\r\n" + body + "</body>\r\n</html>\r\n"));
        EXPECT_TRUE(WriteStandalonePage(report, folder_.Path("page.html"), file_));
        const std::string text = ReadFile(file_);
        const std::string before = "<html>\r\n<head>\r\n<meta charset=\"utf-8\">\r\n</head>\r\n<body>\r\n";
        const std::string after = "</body>\r\n</html>\r\n";
        EXPECT_TRUE(text.starts_with(before) && text.ends_with(after)) << text;
        return text.substr(before.size(), text.size() - before.size() - after.size());
    }

    CTempFolder folder_;
    std::string file_ = folder_.Path(kOddName + ".html");
};

// "abcd" is 01100001 01100010 01100011 01100100: YWJj, and 01100100 alone: ZA==. "ab" is YWI=.
TEST_F(StandalonePage, HoldsItsPictures) {
    EXPECT_EQ(Made("<img src=\"Image_files\\BillShrink.png\" alt=\"账户\" />"),
              "<img src=\"data:image/png;name=BillShrink.png;base64,YWJjZA==\" alt=\"账户\" />");
    EXPECT_EQ(Made("<img src=\"Image_files\\AccountSummary.jpg\" />"),
              "<img src=\"data:image/jpeg;name=AccountSummary.jpg;base64,YWI=\" />");
}

TEST_F(StandalonePage, FoldsByTheNamesOfItsButtons) {
    EXPECT_EQ(
        Made("if (element.src.match(\"BillShrink\"))element.src=\"Image_files/BillShrink.png\";"),
        "if (element.src.match(\"BillShrink\"))element.src=\"data:image/png;name=BillShrink.png;base64,YWJjZA==\";");
}

TEST_F(StandalonePage, LeavesOutMissingPictures) {
    EXPECT_EQ(Made("<img src=\"Image_files\\HealthFigure.jpg\" />"),
              "<img src=\"data:image/jpeg;name=HealthFigure.jpg;base64,\" />");
}

TEST_F(StandalonePage, TakesInNothingElse) {
    folder_.Write("secret.txt", "secret");
    const std::string body = "<td>\"Image_files\\../secret.txt\" \"secret.txt\" Image_files\\BillShrink.png</td>";
    EXPECT_EQ(Made(body), body);
}

TEST_F(StandalonePage, TellsWhatCannotBeReadOrWritten) {
    EXPECT_FALSE(WriteStandalonePage(report, folder_.Path("none.html"), file_));
    EXPECT_FALSE(std::filesystem::exists(file_));
    folder_.Write("page.html", "<head>\r\n");
    EXPECT_FALSE(WriteStandalonePage(report, folder_.Path("page.html"), folder_.Path("none/file.html")));
    EXPECT_FALSE(
        WriteStandalonePage(report, folder_.Path("page.html"),
                            folder_.Path("../" + folder_.Path().substr(folder_.Path().rfind('/') + 1) + "/page.html")));
    EXPECT_EQ(ReadFile(folder_.Path("page.html")), "<head>\r\n");
}

}  // namespace
}  // namespace tradebill::standalone_page_test
