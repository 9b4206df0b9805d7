// Charts, placeholder pages and standalone pages made by the program.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "cli/program_fixture.h"
#include "paint/picture.h"
#include "paint/picture_file.h"
#include "platform/paths.h"
#include "support/decoded_picture.h"
#include "support/gbk_text.h"

namespace tradebill::chart_command_test {
namespace {

class ChartCommands : public Program {
protected:
    [[nodiscard]] std::string Chart(const std::string& name, const std::string& more = {}) const {
        return "chart " + name + " --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini") +
               " -o " + Quoted(file_) + " " + more;
    }
    /// All files below the sample.
    [[nodiscard]] std::set<std::string> Files() const {
        std::set<std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(sample_)) files.insert(entry.path().string());
        return files;
    }

    std::string file_ = folder_.Path(kOddName + ".png");
};

TEST_F(ChartCommands, PaintEachChartAtItsUsualSizeAndLeaveNothingElse) {
    const auto before = Files();
    std::set<std::string> pictures;
    for (const std::string name : {"equity", "account-yield", "trading-yield"}) {
        const Answer answer = Run(Chart(name));
        EXPECT_EQ(answer.exit, 0) << answer.err;
        EXPECT_EQ(answer.out + answer.err, "");
        EXPECT_EQ(ReadPictureSize(file_), (PictureSize{500, 250})) << name;
        pictures.insert(ReadFile(file_));
    }
    EXPECT_EQ(Run(Chart("realised")).exit, 0);
    EXPECT_EQ(ReadPictureSize(file_), (PictureSize{825, 250}));
    EXPECT_EQ(pictures.size(), 3U);
    EXPECT_EQ(Files(), before);
}

TEST_F(ChartCommands, PaintAtAnySize) {
    EXPECT_EQ(Run(Chart("equity", "--size 1200x400")).exit, 0);
    EXPECT_EQ(ReadPictureSize(file_), (PictureSize{1200, 400}));
    EXPECT_EQ(Run(Chart("equity", "--size 1x1")).exit, 0);
    EXPECT_EQ(ReadPictureSize(file_), (PictureSize{1, 1}));
}

// 200 by 100 in 400 by 300: its frame begins at (100, 100), where the middle of the area is its own.
TEST_F(ChartCommands, PaintARectangleInTheMiddle) {
    EXPECT_EQ(Run(Chart("equity", "--size 400x300 --rect 10,20,210,120")).exit, 0);
    const auto picture = DecodePng(ReadFile(file_));
    ASSERT_TRUE(picture.has_value());
    EXPECT_EQ(picture->Row(99)[200], 0xFFFFFFFF);
    EXPECT_EQ(picture->Row(100)[200], 0xFF383838);
    EXPECT_EQ(picture->Row(150)[99], 0xFFFFFFFF);
    EXPECT_EQ(picture->Row(150)[100], 0xFF383838);
    EXPECT_EQ(picture->Row(150)[300], 0xFFFFFFFF);
}

TEST_F(ChartCommands, RefuseWhatCannotBe) {
    EXPECT_TRUE(IsWrongUse(Run(Chart("pie")), "pie"));
    for (const std::string size : {"0x10", "10x0", "-1x5", "10", "10x", "x10", "10x10x10", "5000x5000", "10 x 10"}) {
        EXPECT_TRUE(IsWrongUse(Run(Chart("equity", "--size=" + Quoted(size))), "--size")) << size;
    }
    for (const std::string rect : {"0,0,0,5", "0,5,5,5", "5,0,0,5", "1,2,3", "1,2,3,4,5", "a,b,c,d"}) {
        EXPECT_TRUE(IsWrongUse(Run(Chart("equity", "--rect=" + Quoted(rect))), "--rect")) << rect;
    }
    file_ = folder_.Path("none/c.png");
    EXPECT_TRUE(IsWrongUse(Run(Chart("equity")), "--output"));
}

/// The greatest distance of one channel of colour; all of them if the sizes differ.
int DistanceBetween(const CPicture& one, const CPicture& other) {
    if (one.Width() != other.Width() || one.Height() != other.Height()) return 256;
    int distance = 0;
    for (std::size_t i = 0; i < one.Pixels().size(); ++i) {
        for (const int shift : {0, 8, 16}) {
            const auto channel = [&](const CPicture& picture) {
                return static_cast<int>(picture.Pixels()[i] >> shift & 0xFF);
            };
            distance = std::max(distance, std::abs(channel(one) - channel(other)));
        }
    }
    return distance;
}

TEST_F(ChartCommands, WriteTheKindOfPictureThatTheNameEndsIn) {
    constexpr std::string_view kPng = "\x89PNG\r\n";
    constexpr std::string_view kJpeg = "\xFF\xD8\xFF";
    const std::initializer_list<std::pair<std::string, std::string_view>> files = {
        {"c.png", kPng},  {"d.PNG", kPng},   {"plain", kPng},   {"c.jpg.png", kPng}, {"c.jpg", kJpeg},
        {"d.JPG", kJpeg}, {"c.jpeg", kJpeg}, {"d.JpEg", kJpeg}, {"c.v2.jpg", kJpeg}};
    for (const auto& [name, beginning] : files) {
        file_ = folder_.Path("dotted.gif/" + name);
        fs::create_directories(folder_.Path("dotted.gif"));
        EXPECT_EQ(Run(Chart("equity", "--size 60x40")).exit, 0) << name;
        EXPECT_TRUE(ReadFile(file_).starts_with(beginning)) << name;
    }
    const std::string folder = folder_.Path("dotted.gif/");
    EXPECT_EQ(ReadFile(folder + "plain"), ReadFile(folder + "c.png"));
    EXPECT_EQ(ReadFile(folder + "d.JPG"), ReadFile(folder + "c.jpeg"));
}

// Frames are thin and dark on white: a JPEG leaves the grounds as they are and blurs the rest a little.
TEST_F(ChartCommands, PaintTheSameAsJpeg) {
    ASSERT_EQ(Run(Chart("equity")).exit, 0);
    const CPicture png = DecodedPicture(file_);
    file_ = folder_.Path("c.jpg");
    ASSERT_EQ(Run(Chart("equity")).exit, 0);
    EXPECT_EQ(ReadPictureSize(file_), (PictureSize{500, 250}));
    EXPECT_LT(DistanceBetween(png, DecodedPicture(file_)), 100);
}

TEST_F(ChartCommands, RefuseEndingsOfOtherPictures) {
    for (const std::string name : {"c.gif", "c.bmp", "c.png2", "c.", "c.png.", ".gif", "c.jpg.webp"}) {
        file_ = folder_.Path(name);
        EXPECT_TRUE(IsWrongUse(Run(Chart("equity", "--format 99")), "ends in .png, .jpg or .jpeg")) << name;
        EXPECT_FALSE(fs::exists(file_)) << name;
    }
}

TEST_F(ChartCommands, FailIfNoFileOfTheKindCanBeSoLarge) {
    file_ = folder_.Path("c.jpg");
    const Answer answer = Run(Chart("equity", "--size 65536x10"));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "--size")) << answer.err;
    EXPECT_FALSE(fs::exists(file_));
    EXPECT_EQ(Run(Chart("equity", "--size 65500x10")).exit, 0);
    file_ = folder_.Path("c.png");
    EXPECT_EQ(Run(Chart("equity", "--size 65536x10")).exit, 0);
}

TEST_F(ChartCommands, PaintNothingWithoutAStatement) {
    const Answer answer = Run(Chart("equity", "--from 2023-01-01 --to 2023-01-31"));
    EXPECT_EQ(answer.exit, 2);
    EXPECT_EQ(answer.err, "tradebill: no statement was found in the whole range: nothing is written\n");
    EXPECT_FALSE(fs::exists(file_));
}

TEST_F(ChartCommands, NameAStatementThatCantBeRead) {
    const std::string statement = root_ + "/Users/demo/Data/Bill/D90010002.20240104o.txt";
    fs::remove(statement);
    fs::create_directories(statement);
    Answer answer = Run(Chart("equity"));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.err, "tradebill: 20240104: " + NativePath(statement) + " is not a file\n");
    EXPECT_TRUE(fs::exists(file_));
    fs::remove(file_);
    answer = Run(Chart("equity", "--from 2024-01-04 --to 2024-01-04"));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "no statement could be read: nothing is written")) << answer.err;
    EXPECT_FALSE(fs::exists(file_));
}

// 500 by 250 at 1200 dots per inch are 6,250 by 3,125 pixels: 19.5 million, where 16.8 are the most.
TEST_F(ChartCommands, RefuseAResolutionAtWhichTheChartIsTooLarge) {
    const Answer refused = Run(Chart("equity", "--dpi 1200"));
    EXPECT_EQ(refused.exit, 1);
    EXPECT_EQ(refused.err, "tradebill: the chart is too large for a picture: choose another --size\n");
    EXPECT_FALSE(fs::exists(file_));
    EXPECT_EQ(Run(Chart("equity", "--dpi 1100")).exit, 0);
    EXPECT_EQ(Run(Chart("equity", "--dpi 1200 --size 100x50")).exit, 0);
    EXPECT_EQ(ReadPictureSize(file_), (PictureSize{100, 50}));
}

TEST_F(ChartCommands, RefuseSlips) {
    EXPECT_TRUE(IsWrongUse(Run(Chart("equity", "--from 2024-02-01 --to 2024-01-01")), "--from"));
    EXPECT_TRUE(IsWrongUse(Run(Chart("equity", "--template nope")), "--template"));
    EXPECT_FALSE(fs::exists(file_));
}

TEST_F(ChartCommands, WritePlaceholders) {
    const std::string page = folder_.Path(kOddName + ".html");
    EXPECT_EQ(Run("reset " + Quoted(page)).exit, 0);
    EXPECT_TRUE(Says(GbkToUtf8(ReadFile(page)), "<h2>账单查询中...</h2>"));
    EXPECT_EQ(Run("reset --finished " + Quoted(page)).exit, 0);
    EXPECT_TRUE(Says(GbkToUtf8(ReadFile(page)), "<h2>请查询！</h2>"));
    const Answer refused = Run("reset " + Quoted(folder_.Path("none/page.html")));
    EXPECT_EQ(refused.exit, 1);
    EXPECT_TRUE(Says(refused.err, "none/page.html")) << refused.err;
    EXPECT_TRUE(IsWrongUse(Run("reset " + Quoted(std::string(260, 'x'))), "259"));
}

TEST_F(ChartCommands, WriteStandalonePages) {
    const std::string page = folder_.Path(kOddName + ".html");
    ASSERT_EQ(Run(Report("--quiet --standalone " + Quoted(page))).exit, 0);
    const std::string text = ReadFile(page);
    EXPECT_FALSE(Says(text, "Image_files"));
    EXPECT_TRUE(Says(text, "<title> 交易及账单报告 </title>"));
    EXPECT_TRUE(ReadFile(PageFile()).find("Image_files") != std::string::npos);
    EXPECT_TRUE(IsWrongUse(Run(Report("--standalone " + Quoted(folder_.Path("none/x.html")))), "--standalone"));
}

TEST_F(ChartCommands, DontWriteAStandalonePageOverThePage) {
    ASSERT_EQ(Run(Report("--quiet")).exit, 0);
    const std::string page = ReadFile(PageFile());
    const Answer refused = Run(Report("--quiet --standalone " + Quoted(PageFile())));
    EXPECT_EQ(refused.exit, 1);
    EXPECT_TRUE(Says(refused.err, "can't write")) << refused.err;
    EXPECT_EQ(ReadFile(PageFile()), page);
    EXPECT_FALSE(std::filesystem::exists(PageFile() + ".part"));
}

}  // namespace
}  // namespace tradebill::chart_command_test
