// Font files as FreeType asks for them.
#include "paint/freetype/font_stream.h"

#include <gtest/gtest.h>

#include <string>

#include "support/temp_folder.h"

namespace tradebill::linux_font_stream_test {
namespace {

TEST(FontStream, SaysWhetherAPlaceIsInTheFile) {
    const CTempFolder folder;
    const FT_Stream stream = OpenFontStream(folder.Write("font.ttf", "1234567").c_str());
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(stream->size, 7u);
    EXPECT_EQ(stream->read(stream, 0, nullptr, 0), 0u);
    EXPECT_EQ(stream->read(stream, 7, nullptr, 0), 0u) << "the end";
    EXPECT_NE(stream->read(stream, 8, nullptr, 0), 0u) << "there is nothing";
    std::string read(4, ' ');
    EXPECT_EQ(stream->read(stream, 5, reinterpret_cast<unsigned char*>(read.data()), 4), 2u);
    EXPECT_EQ(read, "67  ");
    stream->close(stream);
}

}  // namespace
}  // namespace tradebill::linux_font_stream_test
