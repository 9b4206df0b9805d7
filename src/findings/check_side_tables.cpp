#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/decimal.h"
#include "findings/account_checks.h"
#include "findings/finding.h"
#include "findings/section_facts.h"
#include "findings/side_table_watch.h"
#include "findings/statement_facts.h"
#include "readers/scan_listener.h"
#include "report/printed_money.h"
#include "report/report.h"
#include "report/side_records.h"

namespace tradebill {
namespace {

constexpr std::size_t kNoField = 0;  // BILL_DATE, which no table prints

template <class Record, std::size_t N>
consteval std::size_t FieldAt(const SideField<Record> (&fields)[N], std::string_view name) {
    const auto* const found = std::ranges::find(fields, name, &SideField<Record>::name);
    if (found == std::end(fields)) throw "no such field";
    return static_cast<std::size_t>(found - fields);
}

/// A figure of the money section that rows add up to, one field less another.
struct FigureOfRows {
    PrintedFigure figure;
    std::string_view name;  ///< in a sentence
    SectionKind kind;
    std::size_t field;
    std::size_t less = kNoField;
};

// clang-format off
constexpr FigureOfRows kFigures[] = {
    {PrintedFigure::CashFlow,     "deposits less withdrawals", SectionKind::Cash,
     FieldAt(kCashFields, "CASH_IN"), FieldAt(kCashFields, "CASH_OUT")},
    {PrintedFigure::Deposits,     "deposits",         SectionKind::Cash,       FieldAt(kCashFields, "CASH_IN")},
    {PrintedFigure::Withdrawals,  "withdrawals",      SectionKind::Cash,       FieldAt(kCashFields, "CASH_OUT")},
    {PrintedFigure::ExercisePL,   "P/L of exercises", SectionKind::Exercises,  FieldAt(kExerciseFields, "EXERCISE_PL")},
    {PrintedFigure::ExerciseFees, "exercise fees",    SectionKind::Exercises,  FieldAt(kExerciseFields, "EXERCISE_FEE")},
    {PrintedFigure::DeliveryFees, "delivery fees",    SectionKind::Deliveries, FieldAt(kDeliveryFields, "DELIVERY_FEE")},
};
// clang-format on

/// What the tables of a statement say of a figure.
struct RowsOfFigure {
    std::int64_t sum = 0;
    std::vector<std::int64_t> parts;  ///< of each table and currency
    std::int64_t rows = 0;
    int titleRow = 0;     ///< of the first table
    bool isRead = false;  ///< there is a table, each has the columns, and all of its rows are read
};

bool HasColumn(const SideTableFacts& table, std::size_t field) {
    return field == kNoField || (field < table.known.size() && table.known[field]);
}

RowsOfFigure RowsOf(const StatementFacts& statement, const FigureOfRows& figure) {
    RowsOfFigure rows;
    for (const SideTableFacts& table : statement.sideTables) {
        if (table.section.kind != figure.kind) continue;
        const bool isWhole = table.section.faults.empty();
        if (!isWhole || !HasColumn(table, figure.field) || !HasColumn(table, figure.less)) return {};
        if (!rows.isRead) rows.titleRow = table.section.titleRow;
        rows.isRead = true;
        rows.rows += table.section.rowsRead;
        for (const auto& [currency, sums] : table.sums) {
            const std::int64_t less = figure.less == kNoField ? 0 : sums[figure.less];
            rows.parts.push_back(WrappingDifference(sums[figure.field], less));
            rows.sum = WrappingSum(rows.sum, rows.parts.back());
        }
    }
    return rows;
}

/// A statement in several currencies has a table, or a word in a column, for each, and one money figure of the first.
bool Agrees(const RowsOfFigure& rows, std::int64_t printed) {
    constexpr int kCents = 2;
    const auto rounding = static_cast<std::uint64_t>(Decimal::HalfUnit(kCents) * (rows.rows + 1));
    const auto isPrinted = [&](std::int64_t sum) { return DistanceOf(sum, printed) <= rounding; };
    return isPrinted(rows.sum) || std::ranges::any_of(rows.parts, isPrinted);
}

void CheckFigures(const StatementFacts& statement, const PrintedMoney& money, std::vector<Finding>& findings) {
    for (const FigureOfRows& figure : kFigures) {
        const auto& printed = money[figure.figure];
        if (!printed) continue;
        const RowsOfFigure rows = RowsOf(statement, figure);
        if (!rows.isRead || Agrees(rows, *printed)) continue;
        Finding finding = FindingAbout(statement, FindingCode::MoneyRows);
        finding.row = rows.titleRow;
        finding.section = figure.kind;
        finding.expected = DecimalText(*printed);
        finding.found = DecimalText(rows.sum);
        finding.text = "The money figures state other " + std::string(figure.name) + " than the rows add up to.";
        findings.push_back(std::move(finding));
    }
}

/// What has less than half the cells of a row is no such row.
bool IsShifted(const RowFault& fault) {
    return fault.kind == RowFault::Kind::NoAmount || fault.columns * 2 >= fault.columns - fault.columnsBeyond;
}

void CheckTable(const StatementFacts& statement, const SideTableFacts& table, std::vector<Finding>& findings) {
    for (const RowFault& fault : table.section.faults) {
        findings.push_back(FindingOfRow(statement, table.section.kind, fault, IsShifted(fault)));
    }
    TellTotals(statement, table.section, findings);
}

}  // namespace

void CheckSideTables(const CReport& report, const StatementList& statements, std::vector<Finding>& findings) {
    for (const StatementFacts& statement : statements) {
        if (!statement.isUsable) continue;
        for (const SideTableFacts& table : statement.sideTables) CheckTable(statement, table, findings);
        for (const PrintedMoney& money : MoneyOf(report, statement)) CheckFigures(statement, money, findings);
    }
}

}  // namespace tradebill
