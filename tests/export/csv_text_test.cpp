#include "export/csv_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "export/table.h"

namespace tradebill::csv_text_test {
namespace {

constexpr ExportColumn kColumns[] = {{"text"}, {"number", ColumnKind::Number}};
constexpr std::string_view kHead = "\xEF\xBB\xBFtext,number\r\n";

using Rows = std::vector<std::vector<ExportCell>>;

std::string CsvOf(const Rows& rows) {
    std::string csv;
    CCsvText text(kColumns, [&](std::string_view piece) {
        csv += piece;
        return true;
    });
    for (const auto& row : rows) text.OnRow(row);
    EXPECT_TRUE(text.Finish());
    return csv;
}

/// The only row, without the end of its line.
std::string LineOf(const ExportCell& text, const ExportCell& number = {}) {
    const std::string csv = CsvOf({{text, number}});
    EXPECT_EQ(csv.substr(0, kHead.size()), kHead);
    EXPECT_EQ(csv.substr(csv.size() - 2), "\r\n");
    return csv.substr(kHead.size(), csv.size() - kHead.size() - 2);
}

std::string NumberOf(const ExportCell& number) {
    return LineOf({}, number).substr(1);
}

TEST(CsvText, HasAMarkAndAHeadLineWithoutRows) {
    EXPECT_EQ(CsvOf({}), kHead);
}

TEST(CsvText, EndsEachLineWithBothBytes) {
    EXPECT_EQ(CsvOf({{Utf8Cell{"a"}, 1.0}, {Utf8Cell{"b"}, 2.0}}), std::string(kHead) + "a,1\r\nb,2\r\n");
}

TEST(CsvText, LeavesNothingEmpty) {
    EXPECT_EQ(LineOf({}, {}), ",");
    EXPECT_EQ(LineOf(Utf8Cell{""}, std::numeric_limits<double>::quiet_NaN()), ",");
}

TEST(CsvText, QuotesWhatPartsCellsOrLines) {
    EXPECT_EQ(LineOf(Utf8Cell{"a,b"}), "\"a,b\",");
    EXPECT_EQ(LineOf(Utf8Cell{"a;b"}), "\"a;b\",");
    EXPECT_EQ(LineOf(Utf8Cell{"say \"no\""}), "\"say \"\"no\"\"\",");
    EXPECT_EQ(LineOf(Utf8Cell{"a\r\nb"}), "\"a\r\nb\",");
    EXPECT_EQ(LineOf(Utf8Cell{"a\tb"}), "\"a\tb\",");
    EXPECT_EQ(LineOf(Utf8Cell{" a b "}), " a b ,");
}

TEST(CsvText, KeepsSpreadsheetsFromObeyingATextAndCanBeUndone) {
    EXPECT_EQ(LineOf(Utf8Cell{"=1+1"}), "'=1+1,");
    EXPECT_EQ(LineOf(Utf8Cell{"+1"}), "'+1,");
    EXPECT_EQ(LineOf(Utf8Cell{"-1"}), "'-1,");
    EXPECT_EQ(LineOf(Utf8Cell{"@a"}), "'@a,");
    EXPECT_EQ(LineOf(Utf8Cell{"＝1"}), "'＝1,");
    EXPECT_EQ(LineOf(Utf8Cell{"'a"}), "''a,");
    EXPECT_EQ(LineOf(Utf8Cell{"\t=1"}), "\"'\t=1\",");
    EXPECT_EQ(LineOf(Utf8Cell{"=\"a\",1"}), "\"'=\"\"a\"\",1\",");
    EXPECT_EQ(LineOf(Utf8Cell{"a=1"}), "a=1,");
}

TEST(CsvText, PutsNumbersDownPlainly) {
    EXPECT_EQ(NumberOf(-1234.5), "-1234.5");
    EXPECT_EQ(NumberOf(0.1), "0.1");
    EXPECT_EQ(NumberOf(-0.0), "0");
    EXPECT_EQ(NumberOf(1e21), "1000000000000000000000");
    EXPECT_EQ(NumberOf(1e-7), "0.0000001");
    EXPECT_EQ(NumberOf(std::int64_t{-7}), "-7");
}

TEST(CsvText, PutsTheLongestNumbersDownInFull) {
    for (const double number : {std::numeric_limits<double>::max(), -std::numeric_limits<double>::denorm_min(),
                                -std::numeric_limits<double>::min(), 0.1 + 0.2}) {
        const std::string text = NumberOf(number);
        EXPECT_EQ(text.find_first_not_of("-.0123456789"), std::string::npos) << text;
        EXPECT_EQ(std::strtod(text.c_str(), nullptr), number) << text;
    }
}

TEST(CsvText, HandsAllOnInPieces) {
    Rows rows(20000, {Utf8Cell{"some text"}, 1.5});
    const std::string csv = CsvOf(rows);
    EXPECT_EQ(csv.size(), kHead.size() + rows.size() * std::string_view("some text,1.5\r\n").size());
}

TEST(CsvText, TellsThatAPieceIsNotWrittenAndStopsThere) {
    int calls = 0;
    CCsvText text(kColumns, [&](std::string_view) {
        ++calls;
        return false;
    });
    const std::vector<ExportCell> row{Utf8Cell{std::string_view("0123456789")}, 1.0};
    for (int i = 0; i < 50000; ++i) text.OnRow(row);
    EXPECT_FALSE(text.Finish());
    EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace tradebill::csv_text_test
