// A gallery that can't be written whole.
#include "cli/gallery_command.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "cli/gallery_charts.h"
#include "support/temp_folder.h"

namespace tradebill::linux_gallery_command_test {
namespace {

namespace fs = std::filesystem;

std::string FailureOf(const std::string& folder) {
    try {
        RunGalleryCommand(folder);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return {};
}

TEST(GalleryCommand, NamesThePictureThatCantBeWritten) {
    const CTempFolder folder;
    const std::string picture = folder.Path(GalleryCharts().back().fileName);
    fs::create_directories(picture + "/in the way");
    EXPECT_EQ(FailureOf(folder.Path()), "cannot write " + picture);
    EXPECT_FALSE(fs::exists(folder.Path("index.html")));  // which would show it
}

TEST(GalleryCommand, NamesThePageThatCantBeWritten) {
    const CTempFolder folder;
    fs::create_symlink("/dev/full", folder.Path("index.html"));
    EXPECT_EQ(FailureOf(folder.Path()), "cannot write " + folder.Path("index.html"));
    EXPECT_TRUE(fs::exists(folder.Path(GalleryCharts().back().fileName)));
}

}  // namespace
}  // namespace tradebill::linux_gallery_command_test
