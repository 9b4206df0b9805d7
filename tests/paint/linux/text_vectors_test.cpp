#include "paint/linux/text_vectors.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>

#include "paint/freetype/scaled_face.h"
#include "platform/text_encoding.h"

namespace tradebill::linux_text_vectors_test {
namespace {

/// Where Debian's packages put the recorded font files.
const std::map<std::string, std::string>& FontFiles() {
    static const std::map<std::string, std::string> files = {
        {"tahoma.ttf", "/usr/share/wine/fonts/tahoma.ttf"},
        {"tahomabd.ttf", "/usr/share/wine/fonts/tahomabd.ttf"},
        {"LiberationSans-Regular.ttf", "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf"},
        {"LiberationSans-Bold.ttf", "/usr/share/fonts/truetype/liberation/LiberationSans-Bold.ttf"},
        {"uming.ttc", "/usr/share/fonts/truetype/arphic/uming.ttc"},
        {"wqy-zenhei.ttc", "/usr/share/fonts/truetype/wqy/wqy-zenhei.ttc"},
    };
    return files;
}

/// The width that the recorded texts' characters have together; those of the tests are ASCII and two-byte ones.
int WidthOf(CScaledFace& face, const std::string& gbk) {
    const std::string utf8 = GbkToUtf8(gbk);
    int width = 0;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : 3;
        char32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
        for (std::size_t k = 1; k < length; ++k) {
            character = character << 6 | (static_cast<unsigned char>(utf8[i + k]) & 0x3Fu);
        }
        width += face.AdvanceOf(character);
        i += length;
    }
    return width;
}

void ExpectNear(const TextMetrics& actual, const TextMetrics& recorded) {
    EXPECT_NEAR(actual.height, recorded.height, 1);
    EXPECT_NEAR(actual.ascent, recorded.ascent, 1);
    EXPECT_NEAR(actual.descent, recorded.descent, 1);
    EXPECT_NEAR(actual.internalLeading, recorded.internalLeading, 1);
    EXPECT_NEAR(actual.averageWidth, recorded.averageWidth, 1);
    EXPECT_NEAR(actual.maxWidth, recorded.maxWidth, 1);
}

TEST(TextVectors, GiveTheRecordedMeasures) {
    const auto fonts =
        ReadFontVectors(std::filesystem::path(TRADEBILL_TESTS) / "paint" / "gdi_vectors" / "text-metrics.txt");
    ASSERT_EQ(fonts.size(), 77u);
    const std::scoped_lock guard(FontLock());
    for (const FontVectors& font : fonts) {
        SCOPED_TRACE(font.name + " " + font.file + " " + std::to_string(font.cellHeight));
        FT_Face const file = OpenFontFile(FontFiles().at(font.file).c_str(), 0);
        ASSERT_NE(file, nullptr);
        const FaceChoice choice{file, font.isThickened};
        CScaledFace face(choice, EmForCell(choice, font.cellHeight));
        ExpectNear(face.Metrics(), font.metrics);
        ASSERT_FALSE(font.texts.empty());
        for (const TextVector& text : font.texts) {
            // A rasteriser of another version may differ by a pixel a glyph; this one gives most of them to the pixel.
            EXPECT_NEAR(WidthOf(face, text.text), text.extent.width, 1) << GbkToUtf8(text.text);
            EXPECT_NEAR(face.Metrics().height, text.extent.height, 1);
        }
        FT_Done_Face(file);
    }
}

}  // namespace
}  // namespace tradebill::linux_text_vectors_test
