#include "cli/file_address.h"

#include <gtest/gtest.h>

#include <string>

namespace tradebill::file_address_test {
namespace {

TEST(FileAddress, WritesByNumberWhatHasAMeaning) {
    EXPECT_EQ(FileAddress("/home/a/TradeBill.html"), "file:///home/a/TradeBill.html");
    EXPECT_EQ(FileAddress("/a b/#1/what?/100%/~x_y-z.html"), "file:///a%20b/%231/what%3F/100%25/~x_y-z.html");
    EXPECT_EQ(FileAddress("/账/\x1B\"<&>"), "file:///%E8%B4%A6/%1B%22%3C%26%3E");
    EXPECT_EQ(FileAddress("/a\\b"), "file:///a%5Cb");
}

TEST(FileAddress, HasDrivesAndSharesOfWindows) {
    EXPECT_EQ(FileAddress("C:\\My bills\\a.html"), "file:///C:/My%20bills/a.html");
    EXPECT_EQ(FileAddress("c:/a.html"), "file:///c:/a.html");
    EXPECT_EQ(FileAddress("\\\\host\\share\\a.html"), "file://host/share/a.html");
}

}  // namespace
}  // namespace tradebill::file_address_test
