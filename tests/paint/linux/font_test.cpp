#include "paint/font.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "support/gbk_text.h"

namespace tradebill::linux_font_test {
namespace {

// Arial's stand-in has a cell of 2288 / 2048 em and lacks Chinese: what takes its place there takes its em, not a cell
// of its own.
TEST(LinuxFont, TakesMissingCharactersAtTheSameEm) {
    struct Size {
        std::int32_t cellHeight;
        std::int32_t em;
    };
    for (const auto& [cellHeight, em] : {Size{16, 14}, Size{32, 29}, Size{64, 57}}) {
        EXPECT_EQ(MeasureText({.face = "Arial", .cellHeight = cellHeight}, Gbk("账户统计")).width, 4 * em);
    }
}

}  // namespace
}  // namespace tradebill::linux_font_test
