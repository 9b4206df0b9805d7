// What is kept of fonts behind a piece of work that a shortage ends.
#include "paint/freetype/font_use.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>

#include "paint/font.h"
#include "paint/freetype/font_faces.h"
#include "paint/freetype/font_memory.h"
#include "support/gbk_text.h"

namespace tradebill::linux_font_use_test {
namespace {

std::int32_t WidthAt(std::int32_t cellHeight) {
    return MeasureText({.face = "Arial", .cellHeight = cellHeight}, Gbk("账户 1,234.50")).width;
}

TEST(FontUse, BeginsAnewBehindAShortage) {
    constexpr std::int32_t kHeight = 71;  // that no other test asks for
    {
        const CFontUse use;
        NoteFontShortage();
    }
    EXPECT_THROW(static_cast<void>(WidthAt(kHeight)), std::bad_alloc);
    const std::int32_t width = WidthAt(kHeight);
    EXPECT_GT(width, 4 * kHeight);
    EXPECT_EQ(WidthAt(kHeight), width);
    EXPECT_TRUE(HasFontsFor("0"));
}

TEST(FontUse, ForgetsWhatItMadeIfAnExceptionEndsIt) {
    const std::int32_t width = WidthAt(16);
    FT_Library before = nullptr;
    try {
        const CFontUse use;
        before = FamilyFor("Arial", false).FaceAt(0)->face->glyph->library;
        throw 1;
    } catch (int) {
    }
    EXPECT_EQ(WidthAt(16), width);
    const CFontUse use;
    EXPECT_EQ(FamilyFor("Arial", false).FaceAt(0)->face->glyph->library, before);
}

TEST(FontMemory, NotesWhatCantBeHadAndGoesWithoutOnlyBeyondItsReserve) {
    const CFontUse use;
    FT_Memory const memory = FontMemory();
    EXPECT_EQ(memory->alloc(memory, LONG_MAX), nullptr);
    EXPECT_TRUE(TakeFontShortage());
    EXPECT_FALSE(TakeFontShortage());
    void* const block = memory->alloc(memory, 5);
    ASSERT_NE(block, nullptr);
    EXPECT_FALSE(TakeFontShortage());
    std::memcpy(block, "text", 5);
    EXPECT_EQ(memory->realloc(memory, 5, LONG_MAX, block), nullptr);
    EXPECT_TRUE(TakeFontShortage());
    EXPECT_STREQ(static_cast<const char*>(block), "text");
    memory->free(memory, block);
}

}  // namespace
}  // namespace tradebill::linux_font_use_test
