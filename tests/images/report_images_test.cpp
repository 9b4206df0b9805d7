// The picture files of a report: names, sizes by the resolution of the screen, and what can't be made.
#include "images/report_images.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "images/picture_names.h"
#include "paint/picture_file.h"
#include "platform/embedded_picture.h"
#include "support/decoded_picture.h"
#include "support/store_fixture.h"
#include "support/temp_folder.h"

namespace tradebill::report_images_test {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kBars[] = {"BillStatistics.jpg", "TradeStatistics.jpg", "LastPositions.jpg",
                                      "MatchDetails.jpg", "OffsetRecords.jpg"};

/// Measures of 96 dots per inch at another resolution, each worked out and rounded by hand.
struct Measures {
    int dpi;
    int width;        ///< 825
    int chartWidth;   ///< 500
    int chartHeight;  ///< 250
    int panelHeight;  ///< 534
    int blockHeight;  ///< 230
};
constexpr Measures kMeasures[] = {{0, 825, 500, 250, 534, 230},
                                  {96, 825, 500, 250, 534, 230},
                                  {120, 1031, 625, 313, 668, 288},
                                  {144, 1238, 750, 375, 801, 345},
                                  {192, 1650, 1000, 500, 1068, 460}};

class ReportImages : public StoreFixture {
protected:
    ReportImages() {
        report.ReportDocument.BillFolder = folder_.Path();
        report.ReportDocument.ImageFolderName = "Image_files";
        fs::create_directories(folder_.Path("Image_files"));
    }

    [[nodiscard]] static tradebill::ReportImages ImagesOf(const CReport& report) {
        tradebill::ReportImages images;
        BuildReportImages(report, images);
        return images;
    }
    [[nodiscard]] std::string PathOf(std::string_view name) const {
        return folder_.Path("Image_files/" + std::string(name));
    }
    [[nodiscard]] PictureSize SizeOf(std::string_view name) const { return ReadPictureSize(PathOf(name)); }

    void ExpectBars() const {
        EXPECT_EQ(SizeOf("AccountSummary.jpg"), (PictureSize{825, 135}));
        for (const std::string_view name : kBars) EXPECT_EQ(SizeOf(name), (PictureSize{825, 35})) << name;
    }
    void AddCurrencies(int count) {
        for (int i = 0; i < count; ++i) {
            auto money = std::make_unique<MoneyRecord>();
            money->EXCHANGE_RATE = 1;
            report.CurrencyMoneyStore.Add(std::move(money), "C" + std::to_string(i), MoneySource::Statement);
        }
    }
    /// Red, green and blue of a pixel of a JPEG file.
    [[nodiscard]] std::array<int, 3> PixelOf(std::string_view name, int x, int y) const {
        const CPicture picture = DecodedPicture(PathOf(name));
        const std::uint32_t pixel = picture.Row(y)[x];
        return {static_cast<int>(pixel >> 16 & 0xFF), static_cast<int>(pixel >> 8 & 0xFF),
                static_cast<int>(pixel & 0xFF)};
    }

    CTempFolder folder_;
};

TEST_F(ReportImages, HaveTheirSizesAtEveryResolution) {
    for (const Measures& measures : kMeasures) {
        SCOPED_TRACE(measures.dpi);
        report.Request.Dpi = measures.dpi;
        const auto images = ImagesOf(report);
        ASSERT_TRUE(images.pageWidth);
        const PictureSize chart{measures.chartWidth, measures.chartHeight};
        EXPECT_EQ(images.pageWidth, measures.width);
        ExpectBars();
        EXPECT_EQ(SizeOf("AccountDetail.jpg"), (PictureSize{measures.width, measures.chartHeight + 20}));
        EXPECT_EQ(SizeOf("AccountFigure.jpg"), chart);
        EXPECT_EQ(SizeOf("AccountStatics.jpg"), (PictureSize{measures.width, measures.panelHeight}));
        EXPECT_EQ(SizeOf("HealthFigure.jpg"), chart);
        EXPECT_EQ(SizeOf("RiskFigure.jpg"), chart);
        EXPECT_EQ(SizeOf("OffsetFigure.jpg"), (PictureSize{measures.width, measures.chartHeight}));
        EXPECT_EQ(images.chartSizes, (ChartSizes{chart.width, chart.height, measures.width, chart.height, chart.width,
                                                 chart.height, chart.width, chart.height}));
    }
}

// Five columns of 160 fit at every resolution; each block spends one on the labels.
TEST_F(ReportImages, GrowWithTheCurrenciesOfAForeignAccount) {
    report.Request.StatementKind = 2;
    const std::map<int, int> blocks{{0, 1}, {1, 1}, {4, 1}, {5, 2}, {8, 2}, {9, 3}, {12, 3}, {16, 4}, {20, 5}};
    for (const Measures& measures : kMeasures) {
        report.Request.Dpi = measures.dpi;
        for (const auto& [currencies, expected] : blocks) {
            report.CurrencyMoneyStore.Clear();
            AddCurrencies(currencies);
            ASSERT_TRUE(ImagesOf(report).pageWidth);
            EXPECT_EQ(SizeOf("AccountDetail.jpg"), (PictureSize{measures.width, expected * measures.blockHeight + 40}))
                << measures.dpi << " " << currencies;
            if (measures.dpi > 0) break;  // the size of a block is what the resolution changes
        }
        EXPECT_EQ(SizeOf("AccountFigure.jpg"), (PictureSize{measures.width, measures.chartHeight}));
        EXPECT_EQ(SizeOf("OffsetFigure.jpg"), (PictureSize{measures.width, measures.chartHeight}));
        ExpectBars();
    }
}

TEST_F(ReportImages, SaveTheTwoButtons) {
    ASSERT_TRUE(ImagesOf(report).pageWidth);
    EXPECT_EQ(DecodePng(ReadFile(PathOf("BillShrink.png"))), LoadPngResource(5002));
    EXPECT_EQ(DecodePng(ReadFile(PathOf("BillExpand.png"))), LoadPngResource(5001));
}

/// A realised P/L that isn't 0 and has no tenth: no ticks, no chart.
TEST_F(ReportImages, LeaveBlackWhatTheGroundOfTheRealisedChartDoesNotReach) {
    report.MoneyStore.MinDayPL = report.MoneyStore.MaxDayPL = 5e-324;
    report.Request.Dpi = 192;
    const auto images = ImagesOf(report);
    ASSERT_TRUE(images.pageWidth);
    EXPECT_EQ(images.chartSizes[kRealisedSize], 1650);  // noted all the same
    EXPECT_EQ(images.chartSizes[kRealisedSize + 1], 500);
    EXPECT_EQ(PixelOf("OffsetFigure.jpg", 400, 120), (std::array{255, 255, 255}));
    EXPECT_EQ(PixelOf("OffsetFigure.jpg", 1000, 120), (std::array{0, 0, 0}));
    EXPECT_EQ(PixelOf("OffsetFigure.jpg", 400, 400), (std::array{0, 0, 0}));
    report.MoneyStore.MinDayPL = report.MoneyStore.MaxDayPL = 0;
    ASSERT_TRUE(ImagesOf(report).pageWidth);
    EXPECT_EQ(PixelOf("OffsetFigure.jpg", 1640, 490), (std::array{255, 255, 255}));
}

TEST_F(ReportImages, OverwriteThoseOfTheLastReport) {
    folder_.Write("Image_files/RiskFigure.jpg", "rubbish");
    ASSERT_TRUE(ImagesOf(report).pageWidth);
    EXPECT_EQ(SizeOf("RiskFigure.jpg"), (PictureSize{500, 250}));
}

TEST_F(ReportImages, PassOverOneThatCannotBeSaved) {
    fs::create_directories(PathOf("AccountDetail.jpg") + "/in the way");
    fs::create_directories(PathOf("BillShrink.png") + "/in the way");
    ASSERT_TRUE(ImagesOf(report).pageWidth);
    EXPECT_EQ(SizeOf("AccountDetail.jpg"), (PictureSize{0, 0}));
    EXPECT_EQ(SizeOf("OffsetFigure.jpg"), (PictureSize{825, 250}));
    EXPECT_EQ(SizeOf("BillExpand.png"), (PictureSize{8, 8}));
}

TEST_F(ReportImages, AreNotedWithTheirSizesAsFarAsTheyAreSaved) {
    fs::create_directories(PathOf("AccountDetail.jpg") + "/in the way");
    fs::create_directories(PathOf("BillShrink.png") + "/in the way");
    report.Request.Dpi = 144;
    const auto images = ImagesOf(report);
    ASSERT_TRUE(images.pageWidth);
    EXPECT_EQ(images.saved.size(), 12U);  // 12 JPEG and 2 PNG files but for these two
    ASSERT_EQ(images.failures.size(), 2U);
    EXPECT_EQ(images.failures[0].name, "BillShrink.png");
    EXPECT_EQ(images.failures[1].name, "AccountDetail.jpg");
    for (const PictureFailure& failure : images.failures) {
        EXPECT_EQ(failure.stage, PictureStage::Saving);
        EXPECT_EQ(failure.path, PathOf(failure.name));
        EXPECT_NE(failure.reason, "");
    }
    for (const SavedPicture& picture : images.saved) {
        EXPECT_EQ(SizeOf(picture.name), (PictureSize{picture.width, picture.height})) << picture.name;
        EXPECT_NE(picture.width, 0) << picture.name;
    }
}

TEST_F(ReportImages, AreNotNotedWithoutAFolder) {
    fs::remove_all(folder_.Path("Image_files"));
    const auto images = ImagesOf(report);
    ASSERT_TRUE(images.pageWidth);
    EXPECT_TRUE(images.saved.empty());
    EXPECT_EQ(images.failures.size(), 14U);
}

TEST_F(ReportImages, HaveTitleBarsThatAreAllAlike) {
    ASSERT_TRUE(ImagesOf(report).pageWidth);
    for (const std::string_view name : kBars) EXPECT_EQ(ReadFile(PathOf(name)), ReadFile(PathOf(kBars[0]))) << name;
    EXPECT_NE(ReadFile(PathOf(kBars[0])), ReadFile(PathOf("AccountSummary.jpg")));
}

TEST_F(ReportImages, PassOverAFolderThatIsGone) {
    fs::remove_all(folder_.Path("Image_files"));
    const auto images = ImagesOf(report);
    ASSERT_TRUE(images.pageWidth);
    EXPECT_FALSE(fs::exists(folder_.Path("Image_files")));
    EXPECT_EQ(images.pageWidth, 825);
}

TEST_F(ReportImages, AreTheButtonsAloneWithoutABanner) {
    report.MoneyStore.ChartSizes = {1, 2, 3, 4, 5, 6, 7, 8};
    tradebill::ReportImages images;
    BuildReportImages(report, images, "no picture");
    EXPECT_FALSE(images.pageWidth);
    EXPECT_EQ(images.chartSizes, report.MoneyStore.ChartSizes);
    EXPECT_EQ(images.saved.size(), 2U);
    EXPECT_EQ(images.failures.size(), 12U);
    for (const PictureFailure& failure : images.failures) {
        EXPECT_EQ(failure.stage, PictureStage::Decoding);
        EXPECT_EQ(failure.path, PathOf(failure.name));
        EXPECT_FALSE(fs::exists(failure.path)) << failure.name;
    }
    EXPECT_TRUE(fs::exists(PathOf("BillShrink.png")));
    EXPECT_EQ(MeasureCharts(report, "no picture"), report.MoneyStore.ChartSizes);
}

TEST_F(ReportImages, AreAsWideAsTheirBanner) {
    const int width = LoadPngResource(kShrinkId).value().Width();
    tradebill::ReportImages images;
    BuildReportImages(report, images, EmbeddedPicture(kShrinkId));
    EXPECT_EQ(images.pageWidth, width);
    EXPECT_EQ(SizeOf("OffsetFigure.jpg"), (PictureSize{width, 250}));
    EXPECT_EQ(MeasureCharts(report, EmbeddedPicture(kShrinkId))[kRealisedSize], width);
}

TEST_F(ReportImages, AreSafeAtAbsurdResolutions) {
    for (const int dpi : {-96, 1, 2'000'000'000}) {
        report.Request.Dpi = dpi;
        EXPECT_TRUE(ImagesOf(report).pageWidth) << dpi;
        ExpectBars();
    }
}

// Eleven blocks of 230 and 40 are the most.
TEST_F(ReportImages, EndWithTheEleventhBlockHoweverManyCurrenciesThereAre) {
    report.Request.StatementKind = 2;
    for (const int more : {1200, 3800}) {
        AddCurrencies(more);
        EXPECT_TRUE(ImagesOf(report).failures.empty()) << more;
        EXPECT_EQ(SizeOf("AccountDetail.jpg"), (PictureSize{825, 2570})) << more;
    }
}

TEST_F(ReportImages, LeaveOutOneOfTooManyPixelsAndSayHowManyTheyWouldBe) {
    report.Request.StatementKind = 2;
    AddCurrencies(1200);
    report.Request.Dpi = 4800;  // 41,250 by 126,540; the charts of 41,250 by 12,500 are as far beyond
    const auto images = ImagesOf(report);
    std::map<std::string, std::string> reasons;
    for (const PictureFailure& failure : images.failures) {
        EXPECT_EQ(failure.stage, PictureStage::Painting);
        reasons.emplace(failure.name, failure.reason);
    }
    EXPECT_EQ(reasons["AccountDetail.jpg"], "41250 by 126540 pixels are more than a picture may have");
    EXPECT_EQ(reasons["OffsetFigure.jpg"], "41250 by 12500 pixels are more than a picture may have");
    EXPECT_FALSE(fs::exists(PathOf("AccountDetail.jpg")));
    EXPECT_FALSE(fs::exists(PathOf("OffsetFigure.jpg")));
    ExpectBars();
}

TEST_F(ReportImages, HaveAnEquityChartAsWideAsThePageForForeignAccountsAlone) {
    EXPECT_EQ(MeasureCharts(report), (ChartSizes{500, 250, 825, 250, 500, 250, 500, 250}));
    report.Request.StatementKind = 2;
    EXPECT_EQ(MeasureCharts(report), (ChartSizes{825, 250, 825, 250, 500, 250, 500, 250}));
}

TEST_F(ReportImages, LeaveTheSizesThatAreMeasuredWithoutPainting) {
    for (const int kind : {1, 2}) {
        report.Request.StatementKind = kind;
        report.Request.Dpi = 144;
        const auto painted = ImagesOf(report);
        ASSERT_TRUE(painted.pageWidth);
        EXPECT_EQ(MeasureCharts(report), painted.chartSizes);
    }
}

}  // namespace
}  // namespace tradebill::report_images_test
