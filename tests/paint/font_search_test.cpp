#include "paint/font_search.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "paint/font.h"
#include "support/gbk_text.h"

namespace tradebill::font_search_test {
namespace {

std::vector<std::int32_t> WidthsOfTexts() {
    std::vector<std::int32_t> widths;
    for (const std::int32_t weight : {400, 600}) {
        const Font font{.face = "Arial", .cellHeight = 23, .weight = weight};
        widths.push_back(MeasureText(font, Gbk("账户 1,234.50")).width);
    }
    return widths;
}

TEST(FontSearch, ChangesNoTextThatIsMeasuredMeanwhile) {
    const std::vector<std::int32_t> alone = WidthsOfTexts();
    std::array<std::unique_ptr<CFontSearch>, 4> searches;
    for (auto& search : searches) {
        search = std::make_unique<CFontSearch>();
        EXPECT_EQ(WidthsOfTexts(), alone);
    }
    EXPECT_TRUE(HasFontsFor("0"));
}

}  // namespace
}  // namespace tradebill::font_search_test
