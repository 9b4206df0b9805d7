// What is painted where fonts are odd: none at all, damaged files, others than asked for, or such as lack what most
// have.
#include <fontconfig/fontconfig.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

#include "paint/canvas.h"
#include "paint/font.h"
#include "paint/freetype/font_faces.h"
#include "support/font_settings.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill::linux_odd_fonts_test {
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

/// The font has no table of this name any more.
void Rename(std::string& bytes, std::string_view table) {
    bytes[bytes.find(table)] = 'x';
}

/// Two bytes of a table, whose place stands behind its name and its sum.
void Put(std::string& bytes, std::string_view table, std::size_t at, std::uint16_t value) {
    const std::size_t entry = bytes.find(table);
    std::size_t begin = 0;
    for (std::size_t i = 8; i < 12; ++i) begin = begin << 8 | static_cast<unsigned char>(bytes[entry + i]);
    bytes[begin + at] = static_cast<char>(value >> 8);
    bytes[begin + at + 1] = static_cast<char>(value & 0xFF);
}

bool IsWhite(const CBitmap& bitmap) {
    return std::ranges::all_of(bitmap.Pixels(), [](std::uint32_t pixel) { return (pixel & 0xFFFFFF) == 0xFFFFFF; });
}

/// A text in one of the fonts that the pictures use.
CBitmap Written(std::string_view face, const std::string& text, std::int32_t weight = 400) {
    CBitmap bitmap(400, 60, kWhite);
    const auto canvas = MakeCanvas(bitmap);
    canvas->SelectFont({.face = face, .cellHeight = 20, .weight = weight});
    canvas->WriteText({2, 2}, text);
    return bitmap;
}

CBitmap WrittenUpwards(std::string_view face, const std::string& text) {
    CBitmap bitmap(60, 400, kWhite);
    const auto canvas = MakeCanvas(bitmap);
    canvas->SelectFont({.face = face, .cellHeight = 20, .escapement = 900});
    canvas->WriteText({2, 380}, text);
    return bitmap;
}

/// Processes for the questions here begin anew, and paint no text before: fonts are looked for once.
class OddFonts : public testing::Test {
protected:
    OddFonts() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    /// Where there is one font of our own, and the Tahoma that is always looked for.
    template <class Change>
    std::string SettingsFor(const std::string& font, Change change) {
        std::string bytes = FontAt(font);
        change(bytes);
        fontFile_ = folder_.Write("fonts/" + font.substr(font.find('/') + 1), bytes);
        return Settings();
    }
    std::string Settings(const std::string& rules = {}) {
        return WriteFontSettings(
            folder_, FontFolder(folder_.Path("fonts")) + "<cachedir>" + folder_.Path("cache") + "</cachedir>" + rules);
    }

    CTempFolder folder_;
    std::string fontFile_;
};

template <class Question>
[[noreturn]] void ExitWith(const std::string& settings, Question question) {
    UseFontSettings(settings);
    std::exit(question() ? 0 : 1);
}

/// Any text leaves a mark: what it looks like is the font's concern.
bool TextsLeaveMarks() {
    const std::string text = Gbk("账户权益 Equity 0123456789");
    for (const std::string_view face : {"Arial", "Tahoma"}) {
        if (IsWhite(Written(face, text)) || IsWhite(Written(face, text, 700)) || IsWhite(WrittenUpwards(face, text))) {
            return false;
        }
    }
    return true;
}

TEST_F(OddFonts, ThatAreCutOffLeaveMarksForTexts) {
    for (const double share : {0.1, 0.6}) {
        const std::string settings = SettingsFor(kLatin, [&](std::string& bytes) { KeepFirst(bytes, share); });
        EXPECT_EXIT(ExitWith(settings, TextsLeaveMarks), testing::ExitedWithCode(0), "") << share;
    }
}

TEST_F(OddFonts, ThatAreCutOffLeaveMarksForChineseTexts) {
    const std::string settings = SettingsFor(kChinese, [&](std::string& bytes) { KeepFirst(bytes, 0.6); });
    EXPECT_EXIT(ExitWith(settings, TextsLeaveMarks), testing::ExitedWithCode(0), "");
}

TEST_F(OddFonts, ThatHaveWrongBytesLeaveMarksForTexts) {
    for (const std::uint32_t seed : {1u, 2u, 3u}) {
        const std::string settings = SettingsFor(kLatin, [&](std::string& bytes) { Spoil(bytes, seed); });
        EXPECT_EXIT(ExitWith(settings, TextsLeaveMarks), testing::ExitedWithCode(0), "") << seed;
    }
}

TEST_F(OddFonts, WithoutTheirCellsFillTheCellAllTheSame) {
    // By its other table: 1,854 and 434 units of 2,048, the height of 20 pixels.
    const auto withoutTable = [](std::string& bytes) { Rename(bytes, "OS/2"); };
    EXPECT_EXIT(ExitWith(SettingsFor(kLatin, withoutTable),
                         [] { return MetricsOf({.face = "Arial", .cellHeight = 20, .weight = 700}).height == 20; }),
                testing::ExitedWithCode(0), "");
    // Without any height the em is the cell, all of it above the line.
    const auto withoutHeights = [](std::string& bytes) {
        Put(bytes, "OS/2", 74, 0);
        Put(bytes, "OS/2", 76, 0);
    };
    EXPECT_EXIT(ExitWith(SettingsFor(kLatin, withoutHeights),
                         [] {
                             const TextMetrics metrics = MetricsOf({.face = "Arial", .cellHeight = 20, .weight = 700});
                             return metrics.ascent == 20 && metrics.descent == 0;
                         }),
                testing::ExitedWithCode(0), "");
}

TEST_F(OddFonts, ThatHaveGoneSinceTheyWereListedAreDoneWithout) {
    const std::string settings = SettingsFor(kLatin, [](std::string&) {});
    const std::string fontFile = fontFile_;
    EXPECT_EXIT(ExitWith(settings,
                         [&] {
                             ::FcInit();
                             std::ofstream(fontFile) << "no font";
                             return TextsLeaveMarks();
                         }),
                testing::ExitedWithCode(0), "");
}

TEST_F(OddFonts, OfOtherNamesStandInWhereTheSettingsWantThem) {
    folder_.Write("fonts/LiberationSerif-Regular.ttf", FontAt("liberation/LiberationSerif-Regular.ttf"));
    SettingsFor(kLatin, [](std::string&) {});
    const std::string settings = Settings(
        "<match target=\"pattern\"><test name=\"family\"><string>Liberation Sans</string></test><edit name=\"family\" "
        "mode=\"assign\" binding=\"strong\"><string>Liberation Serif</string></edit></match>");
    EXPECT_EXIT(ExitWith(settings, TextsLeaveMarks), testing::ExitedWithCode(0), "");
}

/// One letter of eight by eight pixels.
constexpr std::string_view kPixelFont = R"(STARTFONT 2.1
FONT -Test-Pixels-Medium-R-Normal--8-80-75-75-C-80-ISO10646-1
SIZE 8 75 75
FONTBOUNDINGBOX 8 8 0 0
STARTPROPERTIES 4
FONT_ASCENT 8
FONT_DESCENT 0
CHARSET_REGISTRY "ISO10646"
CHARSET_ENCODING "1"
ENDPROPERTIES
CHARS 1
STARTCHAR wide
ENCODING 36134
SWIDTH 1000 0
DWIDTH 8 0
BBX 8 8 0 0
BITMAP
FF
FF
FF
FF
FF
FF
FF
FF
ENDCHAR
ENDFONT
)";

TEST_F(OddFonts, OfOneSizeAreNone) {
    folder_.Write("fonts/pixels.bdf", kPixelFont);
    SettingsFor(kLatin, [](std::string&) {});
    const std::string settings =
        Settings("<selectfont><rejectfont><glob>/usr/share/wine/*</glob></rejectfont></selectfont>");
    EXPECT_EXIT(ExitWith(settings, [] { return !HasFontsFor(Gbk("账")) && !IsWhite(Written("Arial", Gbk("账"))); }),
                testing::ExitedWithCode(0), "");
}

TEST_F(OddFonts, ThatLackACharacterShowItAsABox) {
    const std::string settings = SettingsFor(kLatin, [](std::string&) {});
    EXPECT_EXIT(ExitWith(settings,
                         [] {
                             // A Chinese character is as wide as the cell is high, another half of that.
                             const Font font{.face = "Arial", .cellHeight = 20};
                             return MeasureText(font, Gbk("账")).width == 20 &&
                                    MeasureText(font, "\xA8\x40").width == 10;
                         }),
                testing::ExitedWithCode(0), "");
}

TEST_F(OddFonts, WhereThereAreNoneShowTextsAsBoxes) {
    EXPECT_EXIT(ExitWith(Settings(std::string(kNoFontAtAll)),
                         [] {
                             const Font font{.face = "Arial", .cellHeight = 20};
                             return !HasFontsFor("0") && MeasureText(font, "0").width == 10 && TextsLeaveMarks() &&
                                    IsWhite(Written("Arial", "\r\n"));
                         }),
                testing::ExitedWithCode(0), "");
}

TEST(FontFile, ThatIsNoneOrMissingHasNoFace) {
    const CTempFolder folder;
    EXPECT_EQ(OpenFontFile(folder.Path("missing.ttf").c_str(), 0), nullptr);
    EXPECT_EQ(OpenFontFile(folder.Write("text.ttf", "no font").c_str(), 0), nullptr);
}

}  // namespace
}  // namespace tradebill::linux_odd_fonts_test
