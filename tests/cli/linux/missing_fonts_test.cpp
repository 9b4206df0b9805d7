// The program where fonts for its pictures aren't installed.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "cli/program_fixture.h"
#include "support/font_settings.h"

namespace tradebill::linux_missing_fonts_test {
namespace {

constexpr const char* kBoxes =
    "tradebill: no installed font has Chinese characters: texts in pictures are boxes (docs/guide.md names the "
    "packages)\n";

/// With the fonts of one package, none of which has Chinese characters.
class MissingFonts : public Program {
protected:
    MissingFonts() { UseFontSettings(WriteFontSettings(folder_, FontFolder("/usr/share/fonts/truetype/liberation"))); }
    ~MissingFonts() override { ::unsetenv(kFontSettingsVariable); }
};

TEST_F(MissingFonts, AreAFailureOfTheReport) {
    const Answer answer = Run(Report("--quiet"));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.err, kBoxes);
    EXPECT_TRUE(fs::exists(PageFile()));
}

TEST_F(MissingFonts, AreToldApartFromThoseWithoutChinese) {
    UseFontSettings(WriteFontSettings(folder_, kNoFontAtAll));
    const Answer answer = Run(Report("--quiet"));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.err,
              "tradebill: no font is installed: texts in pictures are boxes (docs/guide.md names the packages)\n");
}

TEST_F(MissingFonts, AreAFailureOfAChart) {
    const std::string picture = folder_.Path("chart.png");
    const Answer answer = Run("chart equity" + Options().substr(6) + " --units none -o " + Quoted(picture));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.err, kBoxes);
    EXPECT_TRUE(fs::exists(picture));
}

TEST_F(MissingFonts, AreAFailureOfTheGallery) {
    const Answer answer = Run("gallery " + Quoted(folder_.Path("charts")));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.err, kBoxes);
}

TEST_F(MissingFonts, DontMatterWhereNothingIsPainted) {
    const Answer answer = Run("check" + Options().substr(6) + " --units none");
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_EQ(answer.err, "");
}

}  // namespace
}  // namespace tradebill::linux_missing_fonts_test
