// Where the sheets of the four bill sheet readers begin and end, and which of their rows are read.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "readers/bill_sheet_fixture.h"
#include "readers/fixed_readers.h"

namespace tradebill::bill_sheet_sections_test {
namespace {

std::int32_t Trades(const CReport& report) {
    return report.MatchStore.Count();
}
std::int32_t ClosedRows(const CReport& report) {
    return report.PingDetailStore.Count();
}
std::int32_t OpenRowsOfTwoSides(const CReport& report) {
    return report.OpiSumStore.Count() / 2;
}
std::int32_t OpenRows(const CReport& report) {
    return report.OpiDetailStore.Count();
}
std::int32_t SummaryRows(const CReport& report) {
    return report.OpiSumStore.Count();
}

/// A sheet of rows that ends in a row of totals.
struct Sheet {
    const char* reader;
    Reader* read;
    std::string title;
    std::size_t terminatorOffset;           ///< of the first row that may be the totals row, from the title
    std::size_t firstRow;                   ///< of the first data row
    std::size_t columns;                    ///< the fewest that make a record
    std::size_t tooFew;                     ///< the most that make none
    std::int32_t (*count)(const CReport&);  ///< rows that were read
};

// clang-format off
const Sheet kSheets[] = {
    {"plain bill",     ReadClientBillStatement,         "客户帐单_成交记录单", 0, 4, 12, 11, Trades},
    {"plain bill",     ReadClientBillStatement,         "客户帐单_持仓盈亏单", 2, 4, 11, 10, OpenRowsOfTwoSides},
    {"plain bill",     ReadClientBillStatement,         "客户帐单_平仓盈亏单", 0, 4, 12, 11, ClosedRows},
    {"premium bill",   ReadClientBillPremiumStatement,  "客户帐单_成交记录单", 3, 4, 13, 12, Trades},
    {"premium bill",   ReadClientBillPremiumStatement,  "客户帐单_平仓盈亏单", 3, 4, 11, 10, ClosedRows},
    {"premium bill",   ReadClientBillPremiumStatement,  "客户帐单_持仓盈亏单", 2, 4, 11, 10, OpenRowsOfTwoSides},
    {"plain spaced",   ReadSpacedTitleStatement,        "成 交 记 录 单",      0, 3,  9,  8, Trades},
    {"plain spaced",   ReadSpacedTitleStatement,        "平 仓 盈 亏 单",      0, 3, 10,  9, ClosedRows},
    {"plain spaced",   ReadSpacedTitleStatement,        "持仓明细",            0, 3, 13, 12, OpenRows},
    {"plain spaced",   ReadSpacedTitleStatement,        "持 仓 盈 亏 汇 总",   2, 3,  8,  7, SummaryRows},
    {"premium spaced", ReadSpacedTitlePremiumStatement, "成 交 记 录 单",      0, 3, 10,  8, Trades},  // 9: an error
    {"premium spaced", ReadSpacedTitlePremiumStatement, "平 仓 盈 亏 单",      0, 3, 10,  9, ClosedRows},
    {"premium spaced", ReadSpacedTitlePremiumStatement, "持仓明细",            0, 3, 13, 12, OpenRows},
    {"premium spaced", ReadSpacedTitlePremiumStatement, "持 仓 盈 亏 汇 总",   2, 3,  8,  7, SummaryRows},
};
// clang-format on

class BillSheetSections : public BillSheetFixture {
protected:
    /// Rows of `sheet` that are read from `lines`.
    std::int32_t RowsRead(const Sheet& sheet, const BillLines& lines) {
        MakeReport(201);
        Read(sheet.read, kBillDay, BillOf(lines));
        EXPECT_EQ(report.MoneyStore.Count(), 0);
        return sheet.count(report);
    }

    /// The title and the rows up to the first data row, each wide enough to be one.
    static BillLines Head(const Sheet& sheet) {
        BillLines lines(sheet.firstRow, Ones(sheet.columns));
        lines.front() = sheet.title;
        return lines;
    }

    static std::string NameOf(const Sheet& sheet) { return std::string(sheet.reader) + ", " + sheet.title; }

    static std::string WithTotals(const std::string& row) { return row + " 合计"; }
};

TEST_F(BillSheetSections, HoldTheRowsBetweenHeadAndTotals) {
    for (const Sheet& sheet : kSheets) {
        const std::string row = Ones(sheet.columns);
        EXPECT_EQ(RowsRead(sheet, Joined({{row}, Head(sheet), {row}, {WithTotals(row)}, {row}})), 1) << NameOf(sheet);
        EXPECT_EQ(RowsRead(sheet, Joined({Head(sheet), {row, row, row}, {WithTotals(row)}})), 3) << NameOf(sheet);
        EXPECT_EQ(RowsRead(sheet, Joined({Head(sheet), {WithTotals(row)}, {row}})), 0) << NameOf(sheet);
    }
}

TEST_F(BillSheetSections, EndAtTotalsFromTheirOffsetOn) {
    for (const Sheet& sheet : kSheets) {
        const BillLines data{Ones(sheet.columns), "合计"};
        for (std::size_t row = 0; row < sheet.firstRow; ++row) {
            BillLines head = Head(sheet);
            head[row] = WithTotals(head[row]);
            const std::int32_t expected = row < sheet.terminatorOffset ? 1 : 0;
            EXPECT_EQ(RowsRead(sheet, Joined({head, data})), expected) << NameOf(sheet) << ", row " << row;
        }
    }
}

TEST_F(BillSheetSections, SkipRowsShorterThanTheLayout) {
    for (const Sheet& sheet : kSheets) {
        const BillLines rows{Ones(sheet.tooFew), Ones(sheet.columns), Ones(1), Ones(sheet.columns + 5)};
        EXPECT_EQ(RowsRead(sheet, Joined({Head(sheet), rows, {"合计"}})), 2) << NameOf(sheet);
    }
}

TEST_F(BillSheetSections, AreAbsentWithoutTitleOrTotals) {
    for (const Sheet& sheet : kSheets) {
        const std::string row = Ones(sheet.columns);
        EXPECT_EQ(RowsRead(sheet, Joined({Head(sheet), {row, row}})), 0) << NameOf(sheet);
        EXPECT_EQ(RowsRead(sheet, Joined({{"合计", row, "合计"}, Head(sheet), {row, row}})), 0) << NameOf(sheet);
        EXPECT_EQ(RowsRead(sheet, Joined({Head(sheet), {row, row, "共 2 条", "合 计", "-----------"}})), 0)
            << NameOf(sheet);
        EXPECT_EQ(RowsRead(sheet, {"合计", row, row, row, row, row, "合计"}), 0) << NameOf(sheet);
        EXPECT_TRUE(NothingRead()) << NameOf(sheet);
    }
}

TEST_F(BillSheetSections, AreFoundByATitleInsideALongerRow) {
    for (const Sheet& sheet : kSheets) {
        BillLines head = Head(sheet);
        head[0] = "** " + sheet.title + " **";
        EXPECT_EQ(RowsRead(sheet, Joined({head, {Ones(sheet.columns), "合计"}})), 1) << NameOf(sheet);
    }
}

TEST_F(BillSheetSections, CountNoBlankRows) {
    for (const Sheet& sheet : kSheets) {
        BillLines lines;
        for (const std::string& line : Joined({Head(sheet), {Ones(sheet.columns), "合计"}})) {
            lines.insert(lines.end(), {"", line, " \t "});
        }
        EXPECT_EQ(RowsRead(sheet, lines), 1) << NameOf(sheet);
    }
}

TEST_F(BillSheetSections, EndEarlyAtARowThatHoldsTheWordForTotals) {
    for (const Sheet& sheet : kSheets) {
        const std::string row = Ones(sheet.columns);
        EXPECT_EQ(RowsRead(sheet, Joined({Head(sheet), {row, row + "(合计)", row, "合计"}})), 1) << NameOf(sheet);
    }
}

TEST_F(BillSheetSections, SplitRowsAtBlanksOnly) {
    for (const Sheet& sheet : kSheets) {
        std::string barred = Ones(sheet.columns);
        for (char& byte : barred) byte = byte == ' ' ? '|' : byte;
        std::string wide = "  ";
        for (const char byte : Ones(sheet.columns)) wide += byte == ' ' ? std::string("    ") : std::string(1, byte);
        EXPECT_EQ(RowsRead(sheet, Joined({Head(sheet), {barred, wide, "合计"}})), 1) << NameOf(sheet);
    }
}

TEST_F(BillSheetSections, AreNotFoundByATitleOfOtherBlanks) {
    const struct {
        const char* printed;
        const char* title;
    } cases[] = {
        {"成交记录单", "成 交 记 录 单"},      {"成  交  记  录  单", "成 交 记 录 单"},
        {"平仓盈亏单", "平 仓 盈 亏 单"},      {"持 仓 明 细", "持仓明细"},
        {"持仓盈亏汇总", "持 仓 盈 亏 汇 总"}, {"持 仓 盈 亏 单", "持 仓 盈 亏 汇 总"},
        {"成交记录单", "客户帐单_成交记录单"}, {"客户帐单 成交记录单", "客户帐单_成交记录单"},
        {"持仓盈亏单", "客户帐单_持仓盈亏单"}, {"客户帐单_平 仓 盈 亏 单", "客户帐单_平仓盈亏单"},
    };
    for (const auto& title : cases) {
        for (const Sheet& sheet : kSheets) {
            if (sheet.title != title.title) continue;
            BillLines head = Head(sheet);
            head[0] = title.printed;
            EXPECT_EQ(RowsRead(sheet, Joined({head, {Ones(sheet.columns), "合计"}})), 0)
                << NameOf(sheet) << ": " << title.printed;
        }
    }
}

TEST_F(BillSheetSections, FileTheirRowsUnderTheDay) {
    for (const Sheet& sheet : kSheets) {
        BillLines head = Head(sheet);
        head[1] = "日  期:20240102 制表时间：20240102 " + Ones(sheet.columns);
        RowsRead(sheet, Joined({head, {Ones(sheet.columns), "合计"}}));
        Texts days;
        for (const Texts& of :
             {TextsOf(report.MatchStore.Rows, "BILL_DATE"), TextsOf(report.PingDetailStore.Rows, "BILL_DATE"),
              TextsOf(report.OpiDetailStore.Rows, "BILL_DATE"), TextsOf(report.OpiSumStore.Rows, "BILL_DATE")}) {
            days.insert(days.end(), of.begin(), of.end());
        }
        ASSERT_FALSE(days.empty()) << NameOf(sheet);
        for (const std::string& day : days) EXPECT_EQ(day, "20240105") << NameOf(sheet);
    }
}

TEST_F(BillSheetSections, YieldNothingFromAnEmptyStatement) {
    for (const Sheet& sheet : kSheets) {
        for (const std::string_view text : {"", "\r\n", "x"}) {
            MakeReport();
            EXPECT_EQ(ErrorOf([&] { Read(sheet.read, kBillDay, text); }), 0U) << NameOf(sheet);
            EXPECT_TRUE(NothingRead()) << NameOf(sheet);
        }
    }
}

}  // namespace
}  // namespace tradebill::bill_sheet_sections_test
