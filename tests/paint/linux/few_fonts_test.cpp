// What is painted where only the fonts of three packages are installed.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string>

#include "paint/canvas.h"
#include "support/font_settings.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill::linux_few_fonts_test {
namespace {

/// Those of fonts-liberation, fonts-arphic-uming and fonts-wine.
constexpr const char* kFolders[] = {"/usr/share/fonts/truetype/liberation", "/usr/share/fonts/truetype/arphic",
                                    "/usr/share/wine/fonts"};

/// Whether two texts look the same in the banner's font.
bool LookAlike(const std::string& one, const std::string& other) {
    CBitmap bitmaps[] = {CBitmap(200, 40, kWhite), CBitmap(200, 40, kWhite)};
    const std::string* const texts[] = {&one, &other};
    for (std::size_t i = 0; i < 2; ++i) {
        const auto canvas = MakeCanvas(bitmaps[i]);
        canvas->SelectFont({.face = "Arial", .cellHeight = 16, .weight = 600});
        canvas->WriteText({5, 5}, *texts[i]);
    }
    return std::ranges::equal(bitmaps[0].Pixels(), bitmaps[1].Pixels());
}

/// To be asked in a process that has painted no text yet: fonts are looked for once.
int ExitOfBanner(const std::string& fontSettings) {
    UseFontSettings(fontSettings);
    if (!HasFontsFor("0")) return 2;
    if (LookAlike(Gbk("账号:"), Gbk("合计:"))) return 3;  // both rows of boxes
    return LookAlike(Gbk("账号:\r\r") + "9001", Gbk("账号:  ") + "9001") ? 0 : 4;
}

TEST(FewFonts, ShowNoBoxesInTheBanner) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // which begins the process anew
    const CTempFolder folder;
    std::string folders;
    for (const char* const fonts : kFolders) folders += FontFolder(fonts);
    const std::string file = WriteFontSettings(folder, folders);
    EXPECT_EXIT(std::_Exit(ExitOfBanner(file)), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace tradebill::linux_few_fonts_test
