#include "platform/host_surface.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

namespace tradebill::linux_host_surface_test {
namespace {

TEST(HostSurface, TellsOfATargetThatCannotBe) {
    constexpr std::uint32_t kUntouched = 0x12345678;
    std::array<std::uint32_t, 64> pixels{};
    pixels.fill(kUntouched);
    const ChartTarget good{.Pixels = pixels.data(), .Width = 8, .Height = 8, .Stride = 32, .LastStatus = kChartDone};
    ChartTarget bad[] = {good, good, good, good};
    bad[0].Pixels = nullptr;
    bad[1].Width = 0;
    bad[2].Height = -1;
    bad[3].Stride = 31;
    std::array<std::uint32_t, 64> white{};
    white.fill(0xFFFFFF);
    const ShownPixels shown{.top = white.data(), .width = 8, .height = 8, .pitch = 8};
    for (ChartTarget& target : bad) {
        EXPECT_EQ(ShowOnSurface(&target, shown, {0, 0, 8, 8}, {0, 0}), kChartInvalidParameter);
    }
    for (const std::uint32_t pixel : pixels) EXPECT_EQ(pixel, kUntouched);
}

}  // namespace
}  // namespace tradebill::linux_host_surface_test
