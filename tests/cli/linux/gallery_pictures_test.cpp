// Some charts of the gallery compared with pictures that were looked at.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "cli/gallery_charts.h"
#include "paint/canvas.h"
#include "paint/picture_file.h"
#include "support/temp_folder.h"

namespace tradebill::linux_gallery_pictures_test {
namespace {

/// Painting of glyphs changes a little from one FreeType to the next: few pixels may differ by more than a shade.
constexpr int kShade = 24;             // of 255, each channel
constexpr double kMostOthers = 0.004;  // share of the pixels

bool IsOfOtherShade(std::uint32_t left, std::uint32_t right) {
    for (const int shift : {0, 8, 16}) {
        const int difference = static_cast<int>(left >> shift & 0xFF) - static_cast<int>(right >> shift & 0xFF);
        if (std::abs(difference) > kShade) return true;
    }
    return false;
}

const GalleryChart& Find(const std::vector<GalleryChart>& charts, const std::string& fileName) {
    const auto found = std::ranges::find(charts, fileName, &GalleryChart::fileName);
    EXPECT_NE(found, charts.end()) << fileName;
    return *found;
}

CBitmap Painted(const GalleryChart& chart) {
    CBitmap bitmap(chart.width, chart.height, kWhite);
    chart.make()->DrawGraph(*MakeCanvas(bitmap), {0, 0, chart.width, chart.height});
    return bitmap;
}

class GalleryPicture : public testing::TestWithParam<const char*> {};

TEST_P(GalleryPicture, LooksAsItDid) {
    const std::vector<GalleryChart> charts = GalleryCharts();
    const CBitmap bitmap = Painted(Find(charts, GetParam()));
    const auto reference = DecodePng(ReadFile(std::string(TRADEBILL_TESTS) + "/cli/gallery/" + GetParam()));
    ASSERT_TRUE(reference.has_value());
    ASSERT_EQ(bitmap.Width(), reference->Width());
    ASSERT_EQ(bitmap.Height(), reference->Height());
    int others = 0;
    for (std::int32_t y = 0; y < bitmap.Height(); ++y) {
        for (std::int32_t x = 0; x < bitmap.Width(); ++x) {
            if (IsOfOtherShade(bitmap.Row(y)[x], reference->Row(y)[x])) ++others;
        }
    }
    EXPECT_LE(others, kMostOthers * bitmap.Width() * bitmap.Height());
}

INSTANTIATE_TEST_SUITE_P(Gallery, GalleryPicture,
                         testing::Values("line-some-96.png", "line-bars-some-96.png", "bands-few-96.png",
                                         "bars-gaps-96.png", "boxes-some-lying-96.png",
                                         "scatter-some-quadrant-4-96.png", "pie-few-96.png",
                                         "stacked-bars-3d-few-96.png", "lines-3d-few-96.png", "pie-3d-few-96.png",
                                         "line-bars-few-192.png"));

}  // namespace
}  // namespace tradebill::linux_gallery_pictures_test
