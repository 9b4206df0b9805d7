// Control characters in texts.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "paint/canvas.h"
#include "support/gbk_text.h"

namespace tradebill::control_character_test {
namespace {

constexpr std::string_view kControls("\x01\t\n\r\x1F", 5);

std::vector<std::uint32_t> Painted(const Font& font, const std::string& text) {
    CBitmap bitmap(200, 40, kWhite);
    const auto canvas = MakeCanvas(bitmap);
    canvas->SelectFont(font);
    canvas->WriteText({5, 5}, text);
    return {bitmap.Pixels().begin(), bitmap.Pixels().end()};
}

class ControlCharacter : public testing::TestWithParam<Font> {};

TEST_P(ControlCharacter, IsAsWideAsASpace) {
    const std::int32_t space = MeasureText(GetParam(), " ").width;
    ASSERT_GT(space, 0);
    for (const char control : kControls) {
        EXPECT_EQ(MeasureText(GetParam(), std::string(1, control)).width, space) << static_cast<int>(control);
        EXPECT_EQ(MeasureText(GetParam(), Gbk("账号:") + std::string(2, control) + "9").width,
                  MeasureText(GetParam(), Gbk("账号:  9")).width)
            << static_cast<int>(control);
    }
}

TEST_P(ControlCharacter, IsBlank) {
    for (const char control : kControls) {
        EXPECT_EQ(Painted(GetParam(), Gbk("账号:") + std::string(2, control) + "9"),
                  Painted(GetParam(), Gbk("账号:  9")))
            << static_cast<int>(control);
    }
}

// All of these lack them.
INSTANTIATE_TEST_SUITE_P(Fonts, ControlCharacter,
                         testing::Values(Font{.face = "Arial", .cellHeight = 16, .weight = 600},
                                         Font{.face = "Arial", .cellHeight = 16},
                                         Font{.face = "Tahoma", .cellHeight = 11, .weight = 700},
                                         Font{.face = "Tahoma", .cellHeight = 24, .escapement = 450}));

}  // namespace
}  // namespace tradebill::control_character_test
