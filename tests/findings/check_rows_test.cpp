// Rows that differ from those of their section in the account's other statements, rows without a record, totals.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "findings/account_check.h"
#include "findings/account_checks.h"
#include "findings/finding.h"
#include "findings/section_facts.h"
#include "findings/statement_facts.h"
#include "readers/scan_listener.h"

namespace tradebill::check_rows_test {
namespace {

class CheckRowsTest : public testing::Test {
protected:
    /// Three statements with a table of trades; rows of it are added by tests.
    CheckRowsTest() {
        for (const char* const day : {"20240102", "20240103", "20240104"}) {
            StatementFacts statement;
            statement.day = day;
            statement.file = "D1." + statement.day + "o.txt";
            statement.isUsable = true;
            statement.layout = "fund-status";
            SectionFacts section;
            section.kind = SectionKind::Trades;
            statement.sections.push_back(section);
            statements_.push_back(statement);
        }
    }
    SectionFacts& Trades(int statement) { return statements_[static_cast<std::size_t>(statement)].sections[0]; }

    FindingKeys Check() {
        findings_.clear();
        CheckRows(statements_, findings_);
        return KeysOf(findings_);
    }

    StatementList statements_;
    std::vector<Finding> findings_;
};

TEST_F(CheckRowsTest, FindsNothingInSectionsWithoutRows) {
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckRowsTest, ARowIsShiftedThatHasOtherColumnsThanMostRows) {
    Trades(0).runs = {{.rows = {5, 6}, .columnsBeyond = 0, .columns = 12}};
    Trades(1).runs = {{.rows = {5}, .columnsBeyond = -1, .columns = 11}};
    EXPECT_EQ(Check(), FindingKeys{"shifted@20240103"});
    ASSERT_EQ(findings_.size(), 1U);
    EXPECT_EQ(findings_[0].row, 5);
    EXPECT_EQ(findings_[0].section, SectionKind::Trades);
    EXPECT_EQ(findings_[0].file, "D1.20240103o.txt");
    EXPECT_EQ(findings_[0].expected, "12 columns");
    EXPECT_EQ(findings_[0].found, "11 columns");
}

TEST_F(CheckRowsTest, WhatMostRowsHaveIsRightHoweverTheirHeadingIsCut) {
    Trades(0).runs = {{.rows = {5, 6}, .columnsBeyond = 2, .columns = 14}};
    Trades(1).runs = {{.rows = {5}, .columnsBeyond = 0, .columns = 12}};
    EXPECT_EQ(Check(), FindingKeys{"shifted@20240103"});
    EXPECT_EQ(findings_[0].expected, "14 columns");
    EXPECT_EQ(findings_[0].found, "12 columns");
}

TEST_F(CheckRowsTest, OfTwoShapesAlikeInNumberThatOfTheHeadingIsRight) {
    for (const int other : {-1, 1}) {
        Trades(0).runs = {{.rows = {5}, .columnsBeyond = other, .columns = 12 + other}};
        Trades(1).runs = {{.rows = {7}, .columnsBeyond = 0, .columns = 12}};
        EXPECT_EQ(Check(), FindingKeys{"shifted@20240102"}) << other;
    }
}

TEST_F(CheckRowsTest, OneColumnIsToldAsOne) {
    Trades(0).runs = {{.rows = {5, 6}, .columnsBeyond = 0, .columns = 2}};
    Trades(1).runs = {{.rows = {5}, .columnsBeyond = -1, .columns = 1}};
    EXPECT_EQ(Check(), FindingKeys{"shifted@20240103"});
    EXPECT_EQ(findings_[0].expected, "2 columns");
    EXPECT_EQ(findings_[0].found, "1 column");
}

TEST_F(CheckRowsTest, LayoutsSectionsAndUnusableStatementsHaveShapesOfTheirOwn) {
    Trades(0).runs = {{.rows = {5, 6}, .columnsBeyond = 0, .columns = 12}};
    Trades(1).runs = {{.rows = {5}, .columnsBeyond = -1, .columns = 11}};
    statements_[1].layout = "client-bill";
    EXPECT_EQ(Check(), FindingKeys{});
    statements_[1].layout = "fund-status";
    Trades(1).kind = SectionKind::Closed;
    EXPECT_EQ(Check(), FindingKeys{});
    Trades(1).kind = SectionKind::Trades;
    statements_[1].isUsable = false;
    EXPECT_EQ(Check(), FindingKeys{});
    statements_[1].isUsable = true;
    statements_[0].isUsable = false;
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckRowsTest, ARowWithoutARecordIsSkippedWhereNoOtherRowSaysMore) {
    Trades(0).faults = {{.kind = RowFault::Kind::NoRecord,
                         .row = 8,
                         .columns = 4,
                         .columnsBeyond = -8,
                         .expected = "12 columns",
                         .found = "4 columns"}};
    EXPECT_EQ(Check(), FindingKeys{"row-skipped@20240102"});
    EXPECT_EQ(findings_[0].row, 8);
    EXPECT_EQ(findings_[0].expected, "12 columns");
    EXPECT_EQ(findings_[0].found, "4 columns");
    EXPECT_EQ(findings_[0].text, "The row made no record, and is no rule, heading or total.");
}

TEST_F(CheckRowsTest, ARowWithoutARecordIsShiftedFromHalfTheUsualColumnsOn) {
    Trades(1).runs = {{.rows = {5}, .columnsBeyond = 0, .columns = 12}};
    const struct {
        int columns;
        const char* code;
    } cases[] = {{5, "row-skipped"}, {6, "shifted"}, {11, "shifted"}, {12, "row-skipped"}, {13, "shifted"}};
    for (const auto& row : cases) {
        Trades(0).faults = {{.kind = RowFault::Kind::NoRecord,
                             .row = 8,
                             .columns = row.columns,
                             .columnsBeyond = row.columns - 12,
                             .expected = "",
                             .found = ""}};
        EXPECT_EQ(Check(), FindingKeys{KeyOf(row.code, "20240102")}) << row.columns;
    }
    EXPECT_EQ(findings_[0].text, "The row has another number of columns than its section, and made no record.");
}

TEST_F(CheckRowsTest, TheUsualColumnsAreThoseOfMostRowsWhereTheirHeadingHasFewer) {
    Trades(1).runs = {{.rows = {5}, .columnsBeyond = 2, .columns = 14}};  // below a heading of 12
    for (const auto& [columns, code] : {std::pair(6, "row-skipped"), std::pair(7, "shifted")}) {
        Trades(0).faults = {{.kind = RowFault::Kind::NoRecord,
                             .row = 8,
                             .columns = columns,
                             .columnsBeyond = columns - 12,
                             .expected = "",
                             .found = ""}};
        EXPECT_EQ(Check(), FindingKeys{KeyOf(code, "20240102")}) << columns;
    }
}

TEST_F(CheckRowsTest, ATextInTheShapeOfItsSectionIsShifted) {
    Trades(0).runs = {{.rows = {8}, .columnsBeyond = 0, .columns = 12}};
    Trades(0).faults = {{.kind = RowFault::Kind::NoAmount,
                         .row = 8,
                         .columns = 12,
                         .columnsBeyond = 0,
                         .expected = "an amount for MATCH_VOL",
                         .found = "x"}};
    EXPECT_EQ(Check(), FindingKeys{"shifted@20240102"});
    EXPECT_EQ(findings_[0].text, "A text stands where the layout has an amount.");
}

TEST_F(CheckRowsTest, ARowIsToldOnce) {
    Trades(0).runs = {{.rows = {5, 6}, .columnsBeyond = 0, .columns = 12}};
    Trades(1).runs = {{.rows = {8}, .columnsBeyond = -1, .columns = 11}};
    Trades(1).faults = {
        {.kind = RowFault::Kind::NoAmount, .row = 8, .columns = 11, .columnsBeyond = -1, .expected = "", .found = ""}};
    EXPECT_EQ(Check(), FindingKeys{"shifted@20240103"});
    EXPECT_EQ(findings_.size(), 1U);
}

TEST_F(CheckRowsTest, TotalsAreToldUnlessTheyMayBeRounded) {
    Trades(0).totals = {{.row = 9, .expected = "5", .found = "6", .isWithinRounding = true}};
    EXPECT_EQ(Check(), FindingKeys{});
    Trades(0).totals[0].isWithinRounding = false;
    EXPECT_EQ(Check(), FindingKeys{"totals@20240102"});
    EXPECT_EQ(findings_[0].row, 9);
    EXPECT_EQ(findings_[0].section, SectionKind::Trades);
    EXPECT_EQ(findings_[0].expected, "5");
    EXPECT_EQ(findings_[0].found, "6");
}

}  // namespace
}  // namespace tradebill::check_rows_test
