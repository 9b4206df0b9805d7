#include "readers/statement_rows.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace tradebill::statement_rows_test {
namespace {

using Rows = std::vector<std::string_view>;

Rows RowsOf(const CStatementRows& rows) {
    Rows result;
    for (std::size_t row = 0; row < rows.Count(); ++row) result.push_back(rows[row]);
    return result;
}

/// Of `count` lines; every third has white space around it, and a blank line follows every fifth.
std::string TextOf(std::size_t count) {
    std::string text;
    for (std::size_t line = 0; line < count; ++line) {
        const std::string number = std::to_string(line);
        text += line % 3 == 0 ? " \t" + number + " x \r\n" : number + "\n";
        if (line % 5 == 0) text += " \r\n\n";
    }
    return text;
}

TEST(StatementRows, AreTrimmedAndNeverEmpty) {
    EXPECT_EQ(RowsOf(CStatementRows(" \r\n\t one \r\n\r\n \t\ntwo\n three ")), (Rows{"one", "two", "three"}));
    EXPECT_EQ(RowsOf(CStatementRows("a b\nc\n")), (Rows{"a b", "c"}));
    EXPECT_EQ(CStatementRows("").Count(), 0u);
    EXPECT_EQ(CStatementRows(" \r\n\t\n").Count(), 0u);
}

TEST(StatementRows, AreThoseOfTheTextHoweverManyThereAre) {
    for (const std::size_t count : {1u, 1023u, 1024u, 1025u, 2048u, 5000u}) {
        const std::string text = TextOf(count);
        Rows expected;
        SplitText(text, "\n", expected);
        ASSERT_EQ(expected.size(), count);
        const CStatementRows rows(text);
        EXPECT_EQ(RowsOf(rows), expected) << count;
        EXPECT_EQ(rows[0], "0 x") << "again, from the end";
    }
}

TEST(StatementRows, AreFoundInAnyOrder) {
    constexpr std::size_t kCount = 4000;
    const std::string text = TextOf(kCount);
    const CStatementRows rows(text);
    std::mt19937 random(1);
    for (int i = 0; i < 500; ++i) {
        const std::size_t row = random() % kCount;
        ASSERT_EQ(rows[row], std::to_string(row) + (row % 3 == 0 ? " x" : ""));
    }
}

TEST(StatementRows, AreToldByAnyPlaceUpToTheNext) {
    constexpr std::size_t kCount = 3000;
    const std::string text = TextOf(kCount);
    const CStatementRows rows(text);
    for (const std::size_t row : {2999u, 0u, 1023u, 1024u, 2047u, 2048u, 5u}) {
        const char* const begin = rows[row].data();
        EXPECT_EQ(rows.RowAt(begin), row);
        EXPECT_EQ(rows.RowAt(begin + rows[row].size()), row) << "what stands behind a row belongs to it";
        if (row == 0) continue;
        EXPECT_EQ(rows.RowAt(begin - 1), row - 1);
    }
}

}  // namespace
}  // namespace tradebill::statement_rows_test
