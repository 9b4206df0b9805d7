// Bounds of the program's own options: the last value that is taken, and the first one that isn't.
#include <gtest/gtest.h>

#include <string>

#include "cli/program_fixture.h"
#include "paint/picture_file.h"
#include "support/shell.h"

namespace tradebill::limits_test {
namespace {

class Limits : public Program {};

TEST_F(Limits, HoldTheResolutionTo1200) {
    const std::string check = "check" + Options().substr(std::string("report").size());
    EXPECT_NE(Run(check + " --dpi 1200").exit, 2);
    const Answer answer = Run(check + " --dpi 1201");
    EXPECT_EQ(answer.exit, 2);
    EXPECT_NE(answer.err.find("--dpi"), std::string::npos) << answer.err;
}

TEST_F(Limits, HoldAChartToTwoToTheTwentyFourPixels) {
    const std::string file = folder_.Path("c.png");
    const std::string chart =
        "chart equity --output " + Quoted(file) + Options().substr(std::string("report").size()) + " --size ";
    EXPECT_EQ(Run(chart + "4096x4096").exit, 0);
    EXPECT_EQ(ReadPictureSize(file), (PictureSize{4096, 4096}));
    const Answer answer = Run(chart + "4096x4097");
    EXPECT_EQ(answer.exit, 2);
    EXPECT_NE(answer.err.find("--size"), std::string::npos) << answer.err;
}

}  // namespace
}  // namespace tradebill::limits_test
