#include "readers/statement_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/gbk_text.h"

namespace tradebill::statement_text_test {
namespace {

TEST(DateScan, TakesDigitsDotsAndBlanksBehindTheWord) {
    const struct {
        std::string_view text;
        std::string_view date;
    } cases[] = {
        {"-Date:20240102", "20240102"},   {"-Date:2024.01.02", "2024.01.02"},         {"-Date: 20240102", " 20240102"},
        {"-Date:20240102 ", "20240102 "}, {"-Date:2024 01 02 . 3", "2024 01 02 . 3"}, {"-Date:", ""},
        {"-Date:x20240102", ""},
    };
    for (const auto& row : cases) EXPECT_EQ(ScanDate(row.text, "Date:"), row.date) << row.text;
}

TEST(DateScan, StopsAtTheFirstOtherByte) {
    for (const std::string_view other : {"\r\n", "\n", "\t", "-", "/", ":", "a", "\xA1\xA1", "\xA3\xB1"}) {
        EXPECT_EQ(ScanDate("-Date:2024" + std::string(other) + "0102", "Date:"), "2024");
    }
}

TEST(DateScan, StopsAtTheEndOfTheText) {
    const std::string_view text = "-Date:20240102";
    EXPECT_EQ(ScanDate(text.substr(0, 10), "Date:"), "2024");
    EXPECT_EQ(ScanDate(text.substr(0, 6), "Date:"), "");
    EXPECT_EQ(ScanDate(text.substr(0, 5), "Date:"), "");
}

TEST(DateScan, IgnoresAWordAtTheFirstByte) {
    EXPECT_EQ(ScanDate("Date:20240102", "Date:"), "");
    EXPECT_EQ(ScanDate(" Date:20240102", "Date:"), "20240102");
    EXPECT_EQ(ScanDate("Date:20240102\nDate:20240103", "Date:"), "");
}

TEST(DateScan, TakesTheFirstOfTwoWords) {
    EXPECT_EQ(ScanDate("-Date:x\nDate:20240103", "Date:"), "");
    EXPECT_EQ(ScanDate("-Date:20240102\nDate:20240103", "Date:"), "20240102");
}

TEST(DateScan, FindsNothingWithoutTheWord) {
    EXPECT_EQ(ScanDate("", "Date:"), "");
    EXPECT_EQ(ScanDate("-date:20240102", "Date:"), "");
    EXPECT_EQ(ScanDate("-Date 20240102", "Date:"), "");
}

TEST(DateScan, LooksThroughTheWholeText) {
    const std::string text = Statement({"结算单", "客户号: 1    日  期:20240102    页: 1"});
    EXPECT_EQ(ScanDate(text, Gbk("日  期:")), "20240102    ");
}

}  // namespace
}  // namespace tradebill::statement_text_test
