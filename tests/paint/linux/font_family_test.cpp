// The faces of a family, which are looked for one by one.
#include "paint/freetype/font_faces.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace tradebill::font_family_test {
namespace {

/// Of all faces, asked for in this order.
std::vector<FaceChoice> FacesOf(CFontFamily& family) {
    std::vector<FaceChoice> faces;
    for (std::size_t i = 0; family.FaceAt(i) != nullptr; ++i) faces.push_back(*family.FaceAt(i));
    return faces;
}

TEST(FontFamily, HasTheSameFacesInWhateverOrderTheyAreAskedFor) {
    const std::scoped_lock guard(FontLock());
    for (const char* const name : {"Arial", "Tahoma", "宋体", "No Such Family"}) {
        for (const bool bold : {false, true}) {
            CFontFamily forward(name, bold);
            CFontFamily backward(name, bold);
            const std::vector<FaceChoice> faces = FacesOf(forward);
            ASSERT_GE(faces.size(), 2U) << name;
            for (std::size_t i = faces.size(); i-- > 0;) {
                ASSERT_NE(backward.FaceAt(i), nullptr) << name << i;
                EXPECT_EQ(backward.FaceAt(i)->face, faces[i].face) << name << i;
                EXPECT_EQ(backward.FaceAt(i)->isThickened, faces[i].isThickened) << name << i;
            }
        }
    }
}

TEST(FontFamily, HasEachFaceOnce) {
    const std::scoped_lock guard(FontLock());
    CFontFamily family("Arial", false);
    std::set<FT_Face> faces;
    for (const FaceChoice& choice : FacesOf(family)) EXPECT_TRUE(faces.insert(choice.face).second);
}

TEST(FontFamily, KeepsAFaceWhereItIs) {
    const std::scoped_lock guard(FontLock());
    CFontFamily family("Arial", true);
    const FaceChoice* const own = family.FaceAt(0);
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(family.FaceAt(1000), nullptr);
    EXPECT_EQ(family.FaceAt(0), own);
    EXPECT_STREQ(own->face->family_name, "Liberation Sans");
    EXPECT_EQ(&FamilyFor("Arial", true), &FamilyFor("Arial", true));
}

}  // namespace
}  // namespace tradebill::font_family_test
