#include "platform/embedded_picture.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>

#include "support/temp_folder.h"

namespace tradebill::embedded_picture_test {
namespace {

TEST(EmbeddedPicture, IsTheFileInTheSources) {
    const struct {
        int id;
        std::string name;
    } cases[] = {{kTitleBarId, "title_bar.png"},
                 {kExpandId, "expand.png"},
                 {kShrinkId, "shrink.png"},
                 {kBannerId, "banner.png"}};
    for (const auto& test : cases) {
        const std::string file = ReadFile(TRADEBILL_TESTS "/../resources/" + test.name);
        ASSERT_FALSE(file.empty()) << test.name;
        EXPECT_TRUE(EmbeddedPicture(test.id) == file) << test.name;
    }
}

TEST(EmbeddedPicture, HasEightBitsOfRedGreenBlueAndAlpha) {
    for (const int id : {kTitleBarId, kExpandId, kShrinkId, kBannerId})
        EXPECT_EQ(EmbeddedPicture(id).substr(24, 2), "\x08\x06") << id;
}

TEST(EmbeddedPicture, IsNothingUnderAnyOtherId) {
    for (const int id : {0, -1, 1, 4999, 5004, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_TRUE(EmbeddedPicture(id).empty()) << id;
    }
}

}  // namespace
}  // namespace tradebill::embedded_picture_test
