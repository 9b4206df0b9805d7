// The pictures that the module carries inside, as they look.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <span>

#include "paint/picture_file.h"
#include "platform/embedded_picture.h"

namespace tradebill::picture_resource_test {
namespace {

CPicture Load(int id) {
    const auto picture = LoadPngResource(id);
    EXPECT_TRUE(picture) << id;
    return picture.value_or(CPicture(0, 0));
}

std::span<const std::uint32_t> RowOf(const CPicture& picture, std::int32_t y) {
    return {picture.Row(y), static_cast<std::size_t>(picture.Width())};
}

/// Red, green and blue together.
std::uint32_t Brightness(std::uint32_t pixel) {
    return (pixel >> 16 & 0xFF) + (pixel >> 8 & 0xFF) + (pixel & 0xFF);
}

TEST(PictureResource, HasTheSizeThatTheReportIsBuiltOn) {
    const struct {
        int id;
        std::int32_t width;
        std::int32_t height;
    } cases[] = {{5000, 825, 32}, {5001, 8, 8}, {5002, 8, 8}, {5003, 825, 86}};
    for (const auto& test : cases) {
        const CPicture picture = Load(test.id);
        EXPECT_EQ(picture.Width(), test.width) << test.id;
        EXPECT_EQ(picture.Height(), test.height) << test.id;
        EXPECT_EQ(PngSize(EmbeddedPicture(test.id)), (PictureSize{test.width, test.height})) << test.id;
    }
}

TEST(PictureResource, IsNothingUnderAnyOtherId) {
    for (const int id : {0, -1, 1, 4999, 5004, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_FALSE(LoadPngResource(id)) << id;
        EXPECT_FALSE(PngSize(EmbeddedPicture(id))) << id;
    }
}

TEST(Banner, IsPlainWhereTheWhiteTextStands) {
    constexpr std::uint32_t kGround = 0xFF317DC2;  // rgb(49,125,194)
    const CPicture banner = Load(kBannerId);
    for (std::int32_t y = 0; y < banner.Height(); ++y) {
        for (const std::uint32_t pixel : RowOf(banner, y).subspan(575)) ASSERT_EQ(pixel, kGround) << y;
    }
}

TEST(Banner, ShowsArtworkAtTheLeftAndIsOpaque) {
    const CPicture banner = Load(kBannerId);
    int artwork = 0;
    for (const std::uint32_t pixel : banner.Pixels()) {
        EXPECT_EQ(pixel >> 24, 0xFFu);
        artwork += pixel != banner.Pixels().back() ? 1 : 0;
    }
    EXPECT_GT(artwork, 10000);
}

TEST(TitleBar, IsLighterAtItsUpperEdgeAndTowardsTheMiddle) {
    constexpr std::uint32_t kGround = 0xFF3580C3;  // rgb(53,128,195)
    const CPicture bar = Load(kTitleBarId);
    for (const std::uint32_t pixel : RowOf(bar, 31)) ASSERT_EQ(pixel, kGround);
    EXPECT_GT(Brightness(bar.Row(0)[400]), Brightness(bar.Row(1)[400]));
    EXPECT_GT(Brightness(bar.Row(1)[400]), Brightness(bar.Row(2)[400]));
    EXPECT_GT(Brightness(bar.Row(2)[400]), Brightness(kGround));
    EXPECT_GT(Brightness(bar.Row(15)[400]), Brightness(bar.Row(7)[400]));
    EXPECT_GT(Brightness(bar.Row(15)[400]), Brightness(bar.Row(24)[400]));
    EXPECT_GT(Brightness(bar.Row(15)[400]), Brightness(bar.Row(15)[760]));
    for (const std::uint32_t pixel : bar.Pixels()) EXPECT_EQ(pixel >> 24, 0xFFu);
}

TEST(ButtonMarks, AreWhiteOnTransparentGround) {
    for (const int id : {kExpandId, kShrinkId}) {
        const CPicture mark = Load(id);
        int opaque = 0;
        int transparent = 0;
        for (const std::uint32_t pixel : mark.Pixels()) {
            EXPECT_EQ(pixel & 0xFFFFFF, 0xFFFFFFu) << id;
            opaque += pixel >> 24 > 0xC0 ? 1 : 0;
            transparent += pixel >> 24 < 0x40 ? 1 : 0;
        }
        EXPECT_GE(opaque, 10) << id;
        EXPECT_GE(transparent, 16) << id;
    }
}

TEST(ButtonMarks, PointDownToExpandAndUpToShrink) {
    const CPicture down = Load(kExpandId);
    const CPicture up = Load(kShrinkId);
    // Each of the two chevrons begins with its arms at the sides and ends with its tip in the middle.
    for (const std::int32_t top : {0, 4}) {
        EXPECT_GT(down.Row(top)[0] >> 24, down.Row(top)[3] >> 24);
        EXPECT_LT(down.Row(top + 3)[0] >> 24, down.Row(top + 3)[3] >> 24);
    }
    for (std::int32_t y = 0; y < 8; ++y) {
        for (std::int32_t x = 0; x < 8; ++x) {
            EXPECT_EQ(up.Row(y)[x], down.Row(7 - y)[x]);
            EXPECT_EQ(down.Row(y)[x], down.Row(y)[7 - x]);
        }
    }
}

}  // namespace
}  // namespace tradebill::picture_resource_test
