// How each layout finds and cuts its sections: the same trials for all of them, on statements that hold one section.
#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "readers/reader_fixture.h"

namespace tradebill::fixed_sections_test {
namespace {

/// How a section must be read. Money sections have no rows to count: their rows fill KHQY.
struct Section {
    const char* name;
    Reader* reader;
    const char* title;
    const char* terminator;
    int terminatorOffset;
    int firstRow;
    int endOffset;
    std::size_t minColumns;
    std::string_view delimiter = " ";
    std::size_t lotsColumn = 0;  ///< of a summary: the buy lots
};

void PrintTo(const Section& section, std::ostream* out) {
    *out << section.name;
}

constexpr const char* kNineDashes = "---------";
constexpr const char* kTenDashes = "----------";

// clang-format off
constexpr Section kTables[] = {
    {"StatusTrades",   ReadFundStatusStatement,        "成交记录", "共",        0, 3, 0, 12},
    {"StatusClosed",   ReadFundStatusStatement,        "平仓明细", "共",        0, 3, 0, 12},
    {"StatusOpen",     ReadFundStatusStatement,        "持仓明细", "共",        0, 3, 0, 13},
    {"StatusSummary",  ReadFundStatusStatement,        "持仓汇总", "共",        2, 3, 0, 13, " ", 3},
    {"ClassTrades",    ReadFundClassStatement,         "成交记录", "共",        0, 3, 0, 12},
    {"ClassClosed",    ReadFundClassStatement,         "平仓明细", "共",        0, 3, 0, 13},
    {"ClassOpen",      ReadFundClassStatement,         "持仓明细", "共",        0, 3, 0, 13},
    {"PremiumTrades",  ReadFundStatusPremiumStatement, "成交记录", kTenDashes,  3, 3, 1, 11},
    {"PremiumClosed",  ReadFundStatusPremiumStatement, "平仓明细", kTenDashes,  3, 3, 1, 11},
    {"PremiumOpen",    ReadFundStatusPremiumStatement, "持仓明细", kTenDashes,  2, 3, 1, 11},
    {"TabulatedTrades",  ReadTabulatedStatement,       "成交记录", "共",        0, 4, 1, 12, "|"},
    {"TabulatedClosed",  ReadTabulatedStatement,       "平仓明细", "共",        0, 4, 1, 11, "|"},
    {"TabulatedOpen",    ReadTabulatedStatement,       "持仓明细", "共",        0, 4, 1, 13, "|"},
    {"TabulatedSummary", ReadTabulatedStatement,       "持仓汇总", kNineDashes, 2, 4, 0, 11, "|", 2},
};

constexpr Section kMoneyBlocks[] = {
    {"StatusMoney",    ReadFundStatusStatement,        "资金状况", kNineDashes, 2, 2, 0, 0},
    {"ClassMoney",     ReadFundClassStatement,         "资金类别", kNineDashes, 2, 2, 0, 0},
    {"PremiumMoney",   ReadFundStatusPremiumStatement, "资金状况", kTenDashes,  4, 2, 0, 0},
    {"TabulatedMoney", ReadTabulatedStatement,         "资金状况", kNineDashes, 2, 2, 1, 0},
};
// clang-format on

constexpr std::string_view kDay = "20240102";

class FixedSections : public ReaderFixture, public testing::WithParamInterface<Section> {
protected:
    /// A row of `columns` columns; in a summary it holds one lot on the buy side.
    static std::string RowOf(std::size_t columns) {
        std::string row;
        for (std::size_t column = 0; column < columns; ++column) {
            if (column != 0) row += GetParam().delimiter;
            row += column == GetParam().lotsColumn ? "1" : "x";
        }
        return row;
    }
    static std::string WideRow() { return RowOf(GetParam().minColumns); }

    using ReaderFixture::Read;
    void Read(const std::vector<std::string>& rows) {
        MakeReport();
        std::string text = "head\r\n";
        for (const std::string& row : rows) text += Gbk(row) + "\r\n";
        Read(GetParam().reader, kDay, text);
    }

    /// Records made of a section of these rows below its title row.
    int RecordsOf(const std::vector<std::string>& rows) { return RecordsOf(GetParam().title, rows); }
    int RecordsOf(const std::string& title, std::vector<std::string> rows) {
        rows.insert(rows.begin(), title);
        Read(rows);
        return report.MatchStore.Count() + report.PingDetailStore.Count() + report.OpiDetailStore.Count() +
               report.OpiSumStore.Count();
    }

    /// The section with `count` wide rows between title and terminating row, the first ones standing for headings.
    static std::vector<std::string> WithRows(int count) {
        std::vector<std::string> rows(static_cast<std::size_t>(count), WideRow());
        rows.emplace_back(GetParam().terminator);
        return rows;
    }
    /// Rows of a section that make `records` records.
    static int RowsFor(int records) { return GetParam().firstRow - 1 + records + GetParam().endOffset; }
};

TEST_P(FixedSections, BeginAndEndAtTheirOffsets) {
    EXPECT_EQ(RecordsOf(WithRows(RowsFor(0))), 0);
    EXPECT_EQ(RecordsOf(WithRows(RowsFor(1))), 1);
    EXPECT_EQ(RecordsOf(WithRows(RowsFor(3))), 3);
}

TEST_P(FixedSections, DoNotReadTheirHeadings) {
    std::vector<std::string> rows = WithRows(RowsFor(2));
    std::fill_n(rows.begin(), GetParam().firstRow - 1, "-");
    EXPECT_EQ(RecordsOf(rows), 2);
    rows[static_cast<std::size_t>(GetParam().firstRow - 1)] = "-";
    EXPECT_EQ(RecordsOf(rows), 1);
}

TEST_P(FixedSections, DoNotReadWhatStandsAtTheirEnd) {
    std::vector<std::string> rows = WithRows(RowsFor(2));
    for (int i = 0; i < GetParam().endOffset; ++i) rows[rows.size() - 2 - static_cast<std::size_t>(i)] = "-";
    EXPECT_EQ(RecordsOf(rows), 2);
    rows.push_back(WideRow());
    EXPECT_EQ(RecordsOf(rows), 2);
}

TEST_P(FixedSections, TakeNoRecordFromTheTerminatingRow) {
    std::vector<std::string> rows = WithRows(RowsFor(2));
    rows.back() += std::string(GetParam().delimiter) + WideRow();
    EXPECT_EQ(RecordsOf(rows), 2);
}

TEST_P(FixedSections, PassOverRowsWithTooFewColumns) {
    std::vector<std::string> rows = WithRows(RowsFor(3));
    const auto first = static_cast<std::size_t>(GetParam().firstRow - 1);
    rows[first] = RowOf(GetParam().minColumns - 1);
    EXPECT_EQ(RecordsOf(rows), 2);
    rows[first] = RowOf(GetParam().minColumns + 3);
    EXPECT_EQ(RecordsOf(rows), 3);
}

TEST_P(FixedSections, SplitTheirRowsAtTheirDelimiterOnly) {
    std::vector<std::string> rows = WithRows(RowsFor(3));
    const char other = GetParam().delimiter == "|" ? ' ' : '|';
    std::string& row = rows[static_cast<std::size_t>(GetParam().firstRow - 1)];
    std::ranges::replace(row, GetParam().delimiter.front(), other);
    EXPECT_EQ(RecordsOf(rows), 2);
}

TEST_P(FixedSections, LookForTheirEndFromItsOffsetOn) {
    const int records = 3;
    const std::vector<std::string> rows = WithRows(RowsFor(records));
    ASSERT_EQ(RecordsOf(rows), records);
    const std::string marked = WideRow() + std::string(GetParam().delimiter) + GetParam().terminator;
    // Row 0 is the title row; none of these rows lies below the first row of data.
    for (int offset = 0; offset <= GetParam().firstRow; ++offset) {
        const int expected = offset < GetParam().terminatorOffset ? records : 0;
        if (offset == 0) {
            EXPECT_EQ(RecordsOf(std::string(GetParam().title) + GetParam().terminator, rows), expected);
            continue;
        }
        std::vector<std::string> marking = rows;
        marking[static_cast<std::size_t>(offset - 1)] = marked;
        EXPECT_EQ(RecordsOf(marking), expected) << offset;
    }
}

TEST_P(FixedSections, AreAbsentWithoutTheirTerminatingRow) {
    std::vector<std::string> rows = WithRows(RowsFor(3));
    rows.back() = std::string(GetParam().terminator) == "共" ? "合计" : std::string(GetParam().terminator).substr(1);
    EXPECT_EQ(RecordsOf(rows), 0);
}

TEST_P(FixedSections, AreAbsentWithoutTheirTitle) {
    EXPECT_EQ(RecordsOf("其他明细", WithRows(RowsFor(3))), 0);
    EXPECT_EQ(RecordsOf("(" + std::string(GetParam().title) + ")", WithRows(RowsFor(3))), 3);
}

INSTANTIATE_TEST_SUITE_P(AllLayouts, FixedSections, testing::ValuesIn(kTables), testing::PrintToStringParamName());

class FixedMoneyBlocks : public FixedSections {
protected:
    static constexpr int kNoRecord = -1;

    /// Which row below the title filled KHQY last, counted from 1; 0 if none did.
    int LastRowRead(int rowCount, int terminatorRow = 0) {
        std::vector<std::string> rows = {GetParam().title};
        for (int row = 1; row <= rowCount; ++row) {
            rows.push_back(row == terminatorRow ? GetParam().terminator : "客户权益: " + std::to_string(row));
        }
        rows.emplace_back(GetParam().terminator);
        Read(rows);
        if (report.MoneyStore.Count() == 0) return kNoRecord;
        const std::string text = TextsOf(report.MoneyStore.Records, "KHQY").front();
        return text.empty() ? 0 : std::stoi(text);
    }
};

TEST_P(FixedMoneyBlocks, BeginAtTheirFirstRow) {
    std::vector<std::string> rows = {GetParam().title, "客户权益: 1", "出入金: 2",          "其他: 3",
                                     "其他: 4",        "其他: 5",     GetParam().terminator};
    Read(rows);
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "KHQY"), (Texts{""}));
    std::swap(rows[1], rows[2]);
    Read(rows);
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "KHQY"), (Texts{"1"}));
}

TEST_P(FixedMoneyBlocks, EndAtTheirOffset) {
    for (const int rows : {3, 4, 7}) EXPECT_EQ(LastRowRead(rows), rows - GetParam().endOffset);
}

TEST_P(FixedMoneyBlocks, LookForTheirEndFromItsOffsetOn) {
    for (int row = 1; row < 7; ++row) {
        const bool ends = row >= GetParam().terminatorOffset;
        const int lastRow = ends ? row - 1 - GetParam().endOffset : 8 - GetParam().endOffset;
        EXPECT_EQ(LastRowRead(8, row), lastRow < GetParam().firstRow ? 0 : lastRow) << row;
    }
}

TEST_P(FixedMoneyBlocks, MakeNoRecordOutOfReachOfTheirEnd) {
    EXPECT_EQ(LastRowRead(GetParam().terminatorOffset - 2), kNoRecord);
    EXPECT_NE(LastRowRead(GetParam().terminatorOffset - 1), kNoRecord);
}

TEST_P(FixedMoneyBlocks, EndAtALongEnoughRowOfDashes) {
    const std::string dashes = GetParam().terminator;
    const std::vector<std::string> rows = {GetParam().title, "-", "客户权益: 1", "出入金: 2", "其他: 3"};
    for (const auto& [end, records] : {std::pair{dashes.substr(1), 0},
                                       {dashes, 1},
                                       {dashes + "-", 1},
                                       {"|" + dashes + "|", 1},
                                       {dashes.substr(1) + " -", 0}}) {
        std::vector<std::string> ended = rows;
        ended.push_back(end);
        Read(ended);
        EXPECT_EQ(report.MoneyStore.Count(), records) << end;
    }
}

INSTANTIATE_TEST_SUITE_P(AllLayouts, FixedMoneyBlocks, testing::ValuesIn(kMoneyBlocks),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace tradebill::fixed_sections_test
