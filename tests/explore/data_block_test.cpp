#include "explore/data_block.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>

#include "explore/page_blocks.h"

namespace tradebill::data_block_test {
namespace {

std::string PageOf(std::string_view bytes) {
    std::ostringstream page;
    CDataBlock block(page, "0.days");
    for (const char byte : bytes) block.Add({&byte, 1});
    block.Finish();
    return page.str();
}

TEST(DataBlock, HoldsNothingThatAPageHasAMeaningFor) {
    const std::string bytes = "</script><!--<script>\n\"&amp;";
    const std::string page = PageOf(bytes);
    EXPECT_TRUE(page.starts_with("<script type=\"application/octet-stream\" id=\"0.days\">"));
    EXPECT_TRUE(page.ends_with("</script>\n"));
    const std::string packed = PackedBlocksOf(page).at("0.days");
    EXPECT_EQ(packed.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/="),
              std::string::npos);
    EXPECT_EQ(Inflated(DecodedBase64(packed)), bytes);
}

TEST(DataBlock, HoldsMoreThanAPiece) {
    std::string bytes;
    unsigned state = 1;
    for (int i = 0; i < 400'000; ++i) bytes += static_cast<char>((state = state * 1664525U + 1013904223U) >> 24U);
    EXPECT_EQ(Inflated(DecodedBase64(PackedBlocksOf(PageOf(bytes)).at("0.days"))), bytes);
}

}  // namespace
}  // namespace tradebill::data_block_test
