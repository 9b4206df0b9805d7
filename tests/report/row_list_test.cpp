#include "report/row_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

namespace tradebill::row_list_test {
namespace {

struct Numbered {
    std::uint32_t number;
    char text[396];
};

/// Past the first of the largest blocks: 16 KiB doubled seven times, and once more.
constexpr std::uint32_t kMany = 20000;

Numbered& Add(CRowList<Numbered>& list, std::uint32_t number) {
    Numbered& row = list.NewRow();
    row.number = number;
    list.KeepRow();
    return row;
}

TEST(RowList, IsEmptyAtFirst) {
    const CRowList<Numbered> list;
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.size(), 0U);
    EXPECT_TRUE(list.begin() == list.end());
}

TEST(RowList, LeavesRowsWhereTheyAre) {
    CRowList<Numbered> list;
    std::vector<const Numbered*> addresses;
    for (std::uint32_t i = 0; i < kMany; ++i) addresses.push_back(&Add(list, i));
    ASSERT_EQ(list.size(), kMany);
    for (std::uint32_t i = 0; i < kMany; ++i) {
        ASSERT_EQ(&list[i], addresses[i]) << i;
        ASSERT_EQ(list[i].number, i);
    }
    EXPECT_EQ(&list.front(), addresses.front());
    EXPECT_EQ(&list.back(), addresses.back());
}

TEST(RowList, IsGoneThroughInTheOrderOfAdding) {
    for (const std::uint32_t count : {1U, 39U, 40U, 41U, 120U, 121U, kMany}) {
        CRowList<Numbered> list;
        for (std::uint32_t i = 0; i < count; ++i) Add(list, i);
        std::uint32_t expected = 0;
        for (const Numbered& row : std::as_const(list)) {
            ASSERT_EQ(&row, &std::as_const(list)[expected]);
            ASSERT_EQ(row.number, expected++);
        }
        EXPECT_EQ(expected, count);
        EXPECT_EQ(std::distance(list.begin(), list.end()), static_cast<std::ptrdiff_t>(count));
    }
}

TEST(RowList, GivesRowsToBeChanged) {
    CRowList<Numbered> list;
    for (std::uint32_t i = 0; i < 100; ++i) Add(list, i);
    for (Numbered& row : list) row.number *= 2;
    list[7].number = 1;
    EXPECT_EQ(list[6].number, 12U);
    EXPECT_EQ(list[7].number, 1U);
    EXPECT_EQ(list.back().number, 198U);
}

TEST(RowList, IteratorsStepBeforeOrAfterTheyAreRead) {
    CRowList<Numbered> list;
    Add(list, 1);
    Add(list, 2);
    auto at = list.begin();
    EXPECT_EQ((at++)->number, 1U);
    EXPECT_EQ((*at).number, 2U);
    EXPECT_TRUE(++at == list.end());
}

bool IsCleared(const Numbered& row) {
    return row.number == 0 && std::ranges::all_of(row.text, [](char byte) { return byte == '\0'; });
}

TEST(RowList, GivesClearedRows) {
    CRowList<Numbered> list;
    for (int round = 0; round < 2; ++round) {  // the second meets memory that was used before
        for (std::uint32_t i = 0; i < 2000; ++i) {
            Numbered& row = list.NewRow();
            ASSERT_TRUE(IsCleared(row)) << i;
            row.number = i + 1;
            std::ranges::fill(row.text, 'x');
            list.KeepRow();
        }
        list.Clear();
    }
}

TEST(RowList, ForgetsARowThatIsNotKept) {
    CRowList<Numbered> list;
    Add(list, 1);
    list.NewRow().number = 2;
    EXPECT_EQ(list.size(), 1U);
    EXPECT_EQ(std::distance(list.begin(), list.end()), 1);
    Numbered& again = list.NewRow();
    EXPECT_TRUE(IsCleared(again));
    list.KeepRow();
    EXPECT_EQ(&list.back(), &again);
    EXPECT_EQ(list.size(), 2U);
}

TEST(RowList, EndsWithItsRowsWhereANewBlockHasNone) {
    CRowList<Numbered> list;
    for (std::uint32_t i = 0; i < 40; ++i) Add(list, i);  // 16 KiB hold forty rows of 400 bytes
    (void)list.NewRow();
    std::size_t seen = 0;
    for (const Numbered& row : list) seen += row.number == seen ? 1 : 100;
    EXPECT_EQ(seen, 40U);
}

TEST(RowList, IsAsNewAfterClear) {
    CRowList<Numbered> list;
    for (std::uint32_t i = 0; i < kMany; ++i) Add(list, i);
    list.Clear();
    EXPECT_TRUE(list.empty());
    EXPECT_TRUE(list.begin() == list.end());
    Add(list, 5);
    EXPECT_EQ(list.size(), 1U);
    EXPECT_EQ(list.front().number, 5U);
}

TEST(RowList, TakesRowsLargerThanItsFirstBlock) {
    struct Large {
        char bytes[100000];
    };
    CRowList<Large> list;
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        list.NewRow().bytes[99999] = letter;
        list.KeepRow();
    }
    EXPECT_EQ(list.size(), 26U);
    EXPECT_EQ(list[0].bytes[99999], 'a');
    EXPECT_EQ(list[25].bytes[99999], 'z');
}

}  // namespace
}  // namespace tradebill::row_list_test
