#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/host_fixture.h"
#include "hosts/tradebill.h"
#include "paint/picture.h"
#include "paint/picture_file.h"

namespace tradebill::chart_exports_test {
namespace {

class HostCharts : public HostFixture {
protected:
    HostCharts() { EXPECT_EQ(host_.Read(), TRADEBILL_DONE) << host_.Error(); }

    [[nodiscard]] std::optional<CPicture> Png(const char* chart, std::int32_t width, std::int32_t height) const {
        void* png = nullptr;
        std::size_t bytes = 0;
        EXPECT_EQ(TradeBillPng(host_.Handle(), chart, width, height, &png, &bytes), TRADEBILL_DONE) << host_.Error();
        auto picture = DecodePng({static_cast<const char*>(png), bytes});
        TradeBillFree(png);
        return picture;
    }
};

TEST(ChartNames, AreThoseOfTheAccount) {
    ASSERT_EQ(TradeBillChartCount(), 4);
    EXPECT_STREQ(TradeBillChartName(0), "equity");
    EXPECT_STREQ(TradeBillChartName(1), "realised");
    EXPECT_STREQ(TradeBillChartName(2), "account-yield");
    EXPECT_STREQ(TradeBillChartName(3), "trading-yield");
    EXPECT_EQ(TradeBillChartName(4), nullptr);
    EXPECT_EQ(TradeBillChartName(-1), nullptr);
}

TEST_F(HostCharts, PaintsOnTheHostsPixels) {
    constexpr std::int32_t kWidth = 300;
    constexpr std::int32_t kHeight = 200;
    constexpr std::int32_t kRow = kWidth + 5;  // the stride is the host's own
    constexpr std::uint32_t kUntouched = 0x12345678;
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(kRow) * kHeight, kUntouched);
    const TradeBillPixels target{.Size = sizeof(TradeBillPixels),
                                 .Pixels = pixels.data(),
                                 .Width = kWidth,
                                 .Height = kHeight,
                                 .Stride = kRow * 4};
    ASSERT_EQ(TradeBillPaint(host_.Handle(), "equity", &target), TRADEBILL_DONE) << host_.Error();
    const auto png = Png("equity", kWidth, kHeight);
    ASSERT_TRUE(png);
    for (std::int32_t y = 0; y < kHeight; ++y) {
        const auto* const row = pixels.data() + static_cast<std::ptrdiff_t>(y) * kRow;
        ASSERT_TRUE(std::equal(row, row + kWidth, png->Row(y))) << "row " << y;
        ASSERT_TRUE(std::all_of(row + kWidth, row + kRow, [](std::uint32_t pixel) { return pixel == kUntouched; }));
    }
    EXPECT_TRUE(std::ranges::all_of(png->Pixels(), [](std::uint32_t pixel) { return pixel >> 24 == 0xFF; }));
    EXPECT_TRUE(std::ranges::any_of(png->Pixels(), [](std::uint32_t pixel) { return pixel != 0xFFFFFFFF; }));
}

TEST_F(HostCharts, HasTheSizeOfThePageWithoutOne) {
    const auto usual = Png("realised", 0, 0);
    ASSERT_TRUE(usual);
    EXPECT_GT(usual->Width(), 100);
    EXPECT_GT(usual->Height(), 100);
    const auto wide = Png("realised", usual->Width() + 10, 0);
    ASSERT_TRUE(wide);
    EXPECT_EQ(wide->Width(), usual->Width() + 10);
    EXPECT_EQ(wide->Height(), usual->Height());
}

TEST_F(HostCharts, RefusesWhatNoPictureIs) {
    std::uint32_t pixel = 7;
    const TradeBillPixels good{.Size = sizeof(TradeBillPixels), .Pixels = &pixel, .Width = 1, .Height = 1, .Stride = 4};
    const auto paint = [&](auto change) {
        TradeBillPixels pixels = good;
        change(pixels);
        return TradeBillPaint(host_.Handle(), "equity", &pixels);
    };
    EXPECT_EQ(paint([](TradeBillPixels& pixels) { pixels.Size = 8; }), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(paint([](TradeBillPixels& pixels) { pixels.Pixels = nullptr; }), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(paint([](TradeBillPixels& pixels) { pixels.Width = 0; }), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(paint([](TradeBillPixels& pixels) { pixels.Height = -1; }), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(paint([](TradeBillPixels& pixels) { pixels.Height = (1 << 24) + 1; }), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(paint([](TradeBillPixels& pixels) { pixels.Stride = 3; }), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(paint([](TradeBillPixels& pixels) { pixels.Stride = 6; }), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(pixel, 7U);
    EXPECT_EQ(TradeBillPaint(host_.Handle(), "money", &good), TRADEBILL_NO_SUCH_NAME);
    EXPECT_EQ(TradeBillPaint(host_.Handle(), nullptr, &good), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(TradeBillPaint(host_.Handle(), "equity", nullptr), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(TradeBillPaint(nullptr, "equity", &good), TRADEBILL_WRONG_ARGUMENT);
    void* png = nullptr;
    std::size_t bytes = 0;
    EXPECT_EQ(TradeBillPng(host_.Handle(), "equity", -1, 10, &png, &bytes), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(TradeBillPng(host_.Handle(), "equity", 1 << 13, 1 << 12, &png, &bytes), TRADEBILL_WRONG_ARGUMENT);
    EXPECT_EQ(TradeBillPng(host_.Handle(), "", 10, 10, &png, &bytes), TRADEBILL_NO_SUCH_NAME);
    EXPECT_EQ(png, nullptr);
}

}  // namespace
}  // namespace tradebill::chart_exports_test
