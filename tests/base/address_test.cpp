#include "base/address.h"

#include <gtest/gtest.h>

namespace tradebill {
namespace {

TEST(AddressPath, WritesByNumberWhatHasAMeaning) {
    EXPECT_EQ(AddressPath("accounts/a b/#1/what?/100%/~x_y-z.html"), "accounts/a%20b/%231/what%3F/100%25/~x_y-z.html");
    EXPECT_EQ(AddressPath("账/\x1B\"<&>\\"), "%E8%B4%A6/%1B%22%3C%26%3E%5C");
    EXPECT_EQ(AddressPath(""), "");
}

TEST(AddressPath, HasNoSchemeUnlessItMay) {
    EXPECT_EQ(AddressPath("javascript:a"), "javascript%3Aa");
    EXPECT_EQ(AddressPath("/C:/a", ":"), "/C:/a");
}

}  // namespace
}  // namespace tradebill
