#include "cli/roff_text.h"

#include <gtest/gtest.h>

namespace tradebill::roff_text_test {
namespace {

TEST(RoffText, KeepsLettersThatRoffHasAnotherFormOf) {
    EXPECT_EQ(RoffText("--root"), R"(\-\-root)");
    EXPECT_EQ(RoffText(R"(C:\new)"), R"(C:\enew)");
    EXPECT_EQ(RoffText("it's `x` ^ ~ \"q\""), R"(it\(aqs \(gax\(ga \(ha \(ti \(dqq\(dq)");
    EXPECT_EQ(RoffText("资金 ä"), "资金 ä");
}

TEST(RoffText, BeginsNoRequest) {
    EXPECT_EQ(RoffText(".png, .jpg"), R"(\&.png, .jpg)");
    EXPECT_EQ(RoffText("'quoted'"), R"(\(aqquoted\(aq)");
    EXPECT_EQ(RoffText(""), "");
}

TEST(RoffText, StaysOnItsLine) {
    EXPECT_EQ(RoffText("a\n.sp\tb"), "a .sp b");
}

TEST(RoffArgument, HoldsBlanksAndQuotes) {
    EXPECT_EQ(RoffArgument(R"(the "user")"), R"("the \(dquser\(dq")");
}

}  // namespace
}  // namespace tradebill::roff_text_test
