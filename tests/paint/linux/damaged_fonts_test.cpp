// What is painted where font files are damaged: cut off, as a copy that ran out of room leaves them, or with wrong
// bytes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

#include "base/shortage.h"
#include "paint/canvas.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill::linux_damaged_fonts_test {
namespace {

constexpr const char* kLatin = "liberation/LiberationSans-Bold.ttf";
constexpr const char* kChinese = "arphic/uming.ttc";  // takes a second to be looked through

std::string FontAt(const std::string& name) {
    return ReadFile("/usr/share/fonts/truetype/" + name);
}

void KeepFirst(std::string& bytes, double share) {
    bytes.resize(static_cast<std::size_t>(static_cast<double>(bytes.size()) * share));
}

/// Each byte in a thousand is another, from the second kilobyte on: the directory of tables stays.
void Spoil(std::string& bytes, std::uint32_t seed) {
    std::mt19937 random(seed);
    for (std::size_t at = 1024; at < bytes.size(); at += 1 + random() % 2000) bytes[at] = static_cast<char>(random());
}

/// Where there are no fonts but damaged ones.
class DamagedFonts : public testing::Test {
protected:
    template <class Damage>
    std::string SettingsFor(const std::string& font, Damage damage) {
        std::string bytes = FontAt(font);
        damage(bytes);
        folder_.Write("fonts/" + font.substr(font.find('/') + 1), bytes);
        return folder_.Write("fonts.conf",
                             R"(<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig><dir>)" +
                                 folder_.Path("fonts") + "</dir><cachedir>" + folder_.Path("cache") +
                                 "</cachedir></fontconfig>");
    }

    CTempFolder folder_;
};

bool IsWhite(const CBitmap& bitmap) {
    return std::ranges::all_of(bitmap.Pixels(), [](std::uint32_t pixel) { return (pixel & 0xFFFFFF) == 0xFFFFFF; });
}

/// 0: there is a mark for the text, of whatever form, or the picture can't be had; anything but a crash. To be asked in
/// a process that has painted no text yet: fonts are looked for once.
int ExitOfPainting(const std::string& settings) {
    ::setenv("FONTCONFIG_FILE", settings.c_str(), 1);
    try {
        for (const std::int32_t weight : {400, 700}) {
            for (const std::string_view face : {"Arial", "Tahoma"}) {
                CBitmap bitmap(400, 60, kWhite);
                const auto canvas = MakeCanvas(bitmap);
                canvas->SelectFont({.face = face, .cellHeight = 20, .weight = weight});
                canvas->WriteText({2, 2}, Gbk("账户权益 Equity 0123456789"));
                canvas->SelectFont({.face = face, .cellHeight = 20, .weight = weight, .escapement = 900});
                canvas->WriteText({380, 58}, Gbk("日期"));
                if (IsWhite(bitmap)) return 2;
            }
        }
    } catch (const CShortage&) {
        return 0;
    }
    return 0;
}

TEST_F(DamagedFonts, ThatAreCutOffLeaveMarksForTexts) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // which begins the process anew
    for (const double share : {0.1, 0.6}) {
        const std::string settings = SettingsFor(kLatin, [&](std::string& bytes) { KeepFirst(bytes, share); });
        EXPECT_EXIT(std::_Exit(ExitOfPainting(settings)), testing::ExitedWithCode(0), "") << share;
    }
}

TEST_F(DamagedFonts, ThatAreCutOffLeaveMarksForChineseTexts) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const std::string settings = SettingsFor(kChinese, [&](std::string& bytes) { KeepFirst(bytes, 0.6); });
    EXPECT_EXIT(std::_Exit(ExitOfPainting(settings)), testing::ExitedWithCode(0), "");
}

TEST_F(DamagedFonts, ThatHaveWrongBytesLeaveMarksForTexts) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    for (const std::uint32_t seed : {1u, 2u, 3u}) {
        const std::string settings = SettingsFor(kLatin, [&](std::string& bytes) { Spoil(bytes, seed); });
        EXPECT_EXIT(std::_Exit(ExitOfPainting(settings)), testing::ExitedWithCode(0), "") << seed;
    }
}

}  // namespace
}  // namespace tradebill::linux_damaged_fonts_test
