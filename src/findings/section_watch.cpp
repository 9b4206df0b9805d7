#include "findings/section_watch.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/line_counter.h"
#include "base/number.h"
#include "base/text.h"
#include "findings/record_amounts.h"
#include "findings/row_shapes.h"
#include "findings/section_facts.h"
#include "findings/section_totals.h"
#include "platform/text_encoding.h"
#include "readers/scan_listener.h"
#include "readers/section_scan.h"

namespace tradebill {
namespace {

/// A row without lots that states no P/L and no margin either says nothing, and is right to make no record.
bool StatesAmounts(Row columns) {
    constexpr double kNothing = 0;
    constexpr std::size_t kAmounts = 3;  // the last columns: P/L, margin, hedge mark
    const Row last = columns.subspan(columns.size() - std::min(columns.size(), kAmounts));
    return std::ranges::any_of(last, [](std::string_view column) { return ParseAmount(column) != kNothing; });
}

/// Rows of data have numbers, whatever their layout: headings and what names the client have none or one.
bool LooksLikeData(const std::vector<std::string_view>& columns) {
    constexpr std::ptrdiff_t kLeastAmounts = 3;
    return std::ranges::count_if(columns, IsAmount) >= kLeastAmounts;
}

}  // namespace

void CSectionWatch::Begin(const SectionSeen& seen, std::string_view text, RecordLife life) {
    seen_ = seen;
    life_ = life;
    text_ = text;
    facts_ = {};
    facts_.kind = seen.kind;
    facts_.hasTitle = !seen.titleRow.empty();
    facts_.hasEnd = !seen.terminatorRow.empty() || !seen.needsTerminator;
    facts_.titleWord = seen.titleWord;
    totals_.Begin(seen.delimiter);
    firstRow_ = lastRow_ = {};
    headingColumns_.reset();
    strange_.reset();
    record_.reset();
    amounts_ = 0;
    tellsAmounts_ = false;
    isOpen_ = true;
}

void CSectionWatch::OnRecord(const RecordSeen& record) {
    if (life_ == RecordLife::Stays) {
        record_ = record;
    } else if (!strange_) {
        strange_ = FindStrangeAmount(record);
    }
}

void CSectionWatch::OnColumns(std::span<const ColumnSeen> columns) {
    for (const ColumnSeen& column : columns) {
        if (column.isAmount && column.column < kMostColumns) amounts_ |= 1U << column.column;
    }
}

/// Where all columns of amounts are numbers in the first row, they tell of themselves whether they are in a later one.
void CSectionWatch::LookForStrangeAmount(Row columns, bool areNumbers) {
    if (!record_) return;
    if (facts_.rowsRead == 0) {
        const unsigned amounts = columns.size() < kMostColumns ? amounts_ & ((1U << columns.size()) - 1) : amounts_;
        tellsAmounts_ = amounts != 0 && (totals_.Numbers() & amounts) == amounts;
    }
    if (!tellsAmounts_ || !areNumbers) strange_ = FindStrangeAmount(*record_);
}

std::string_view CSectionWatch::Between(std::string_view above, std::string_view below) const {
    const char* const from = above.data() + above.size();
    const char* const to = below.empty() ? text_.data() + text_.size() : below.data();
    return to > from ? std::string_view(from, static_cast<std::size_t>(to - from)) : std::string_view();
}

std::string_view CSectionWatch::LineWith(std::string_view row) const {
    const char* begin = row.data();
    while (begin != text_.data() && begin[-1] != '\n') --begin;
    return {begin, static_cast<std::size_t>(row.data() + row.size() - begin)};
}

int CSectionWatch::Beyond(std::string_view row, std::size_t columns) {
    // A sheet of money has a heading above each of its rows.
    const bool isMoney = facts_.kind == SectionKind::Money;
    if (!headingColumns_ || isMoney) {
        Known& known = KnownOfKind();
        const std::string_view heading = Between(isMoney && !lastRow_.empty() ? lastRow_ : seen_.titleRow, row);
        if (known.heading != heading) {
            known.heading = heading;
            known.headingColumns = static_cast<int>(HeadingColumns(heading, seen_.delimiter, seen_.stripsBars));
        }
        headingColumns_ = known.headingColumns;
    }
    return static_cast<int>(columns) - *headingColumns_;
}

void CSectionWatch::OnRow(std::string_view row, Row columns, const RowVerdict& verdict, CLineCounter& lines) {
    if (facts_.isLabelled) {
        ++facts_.rowsRead;
    } else {
        TakeData(row, columns, verdict, lines);
    }
    if (firstRow_.empty()) firstRow_ = row;
    lastRow_ = row;
    strange_.reset();
    record_.reset();
}

void CSectionWatch::TakeData(std::string_view row, Row columns, const RowVerdict& verdict, CLineCounter& lines) {
    switch (verdict.fate) {
        case RowFate::Read:
            TakeShape(row, columns.size(), lines);
            LookForStrangeAmount(columns, totals_.AddRow(LineWith(row), columns));
            if (strange_) TellStrangeAmount(row, columns.size(), lines);
            ++facts_.rowsRead;
            break;
        case RowFate::NoLots:
            TakeShape(row, columns.size(), lines);
            static_cast<void>(totals_.AddRow(LineWith(row), columns));
            if (StatesAmounts(columns)) TakeLostRow(row, columns.size(), lines);
            break;
        case RowFate::FirstOfPair:
            TakeShape(row, columns.size(), lines);
            break;
        case RowFate::Subtotal:
            AddTotalFault(totals_.CompareLots(row), row, lines);
            break;
        case RowFate::TooShort:
            if (!IsHeadingRow(row) && !IsTotalRow(row)) TakeLostRow(row, columns.size(), lines);
            break;
        default:
            break;
    }
}

void CSectionWatch::TakeShape(std::string_view row, std::size_t columns, CLineCounter& lines) {
    const int beyond = Beyond(row, columns);
    if (facts_.runs.empty() || facts_.runs.back().columnsBeyond != beyond) {
        facts_.runs.push_back({.rows = {}, .columnsBeyond = beyond, .columns = static_cast<int>(columns)});
    }
    facts_.runs.back().rows.push_back(lines.LineOf(row));
}

void CSectionWatch::TakeLostRow(std::string_view row, std::size_t columns, CLineCounter& lines) {
    facts_.faults.push_back({.kind = RowFault::Kind::NoRecord,
                             .row = lines.LineOf(row),
                             .columns = static_cast<int>(columns),
                             .columnsBeyond = Beyond(row, columns),
                             .expected = std::to_string(static_cast<int>(columns) - Beyond(row, columns)) + " columns",
                             .found = std::to_string(columns) + " columns"});
}

void CSectionWatch::TellStrangeAmount(std::string_view row, std::size_t columns, CLineCounter& lines) {
    facts_.faults.push_back({.kind = RowFault::Kind::NoAmount,
                             .row = lines.LineOf(row),
                             .columns = static_cast<int>(columns),
                             .columnsBeyond = Beyond(row, columns),
                             .expected = "an amount for " + std::string(strange_->field),
                             .found = GbkToUtf8(strange_->text)});
}

/// Rows of data above the first and below the last that were looked at: the layout counts them to heading and totals.
void CSectionWatch::LookForUnreadRows(CLineCounter& lines) {
    if (facts_.kind == SectionKind::Money || !facts_.IsFound()) return;
    if (firstRow_.empty()) {
        LookForUnreadRows(Between(seen_.titleRow, seen_.terminatorRow), lines);
    } else {
        const std::string_view heading = Between(seen_.titleRow, firstRow_);
        const std::size_t faults = facts_.faults.size();
        if (KnownOfKind().soundHeading != heading) LookForUnreadRows(heading, lines);
        if (facts_.faults.size() == faults) KnownOfKind().soundHeading = heading;
        LookForUnreadRows(Between(lastRow_, seen_.terminatorRow), lines);
    }
}

void CSectionWatch::LookForUnreadRows(std::string_view rows, CLineCounter& lines) {
    std::vector<std::string_view> columns;
    while (!rows.empty()) {
        const std::string_view row = Trim(TakeLine(rows));
        if (row.empty() || IsRule(row) || IsTotalRow(row) || IsHeadingRow(row)) continue;
        const std::size_t count = SplitText(seen_.stripsBars ? TrimByte(row, '|') : row, seen_.delimiter, columns);
        if (count >= seen_.minColumns && LooksLikeData(columns)) TakeLostRow(row, count, lines);
    }
}

void CSectionWatch::AddTotalFault(std::optional<TotalFault> fault, std::string_view row, CLineCounter& lines) {
    if (!fault) return;
    fault->row = lines.LineOf(row);
    facts_.totals.push_back(*std::move(fault));
}

/// The row that ends the section is its row of totals, or the one above it is.
void CSectionWatch::CompareTotals(CLineCounter& lines) {
    if (facts_.kind == SectionKind::Money || !facts_.IsFound() || seen_.terminatorRow.empty()) return;
    std::string_view totals = seen_.terminatorRow;
    if (!IsTotalRow(totals)) {
        std::string_view rows = Between(lastRow_.empty() ? seen_.titleRow : lastRow_, seen_.terminatorRow);
        totals = {};
        while (!rows.empty()) {
            const std::string_view row = Trim(TakeLine(rows));
            if (IsTotalRow(row)) totals = row;
        }
    }
    if (totals.empty()) return;
    facts_.totalRow = lines.LineOf(totals);
    facts_.totalColumns = totals_.CountAmounts(LineWith(totals));
    AddTotalFault(totals_.Compare(LineWith(totals)), totals, lines);
}

SectionFacts CSectionWatch::End(CLineCounter& lines) {
    isOpen_ = false;
    if (facts_.hasTitle) facts_.titleRow = lines.LineOf(seen_.titleRow);
    LookForUnreadRows(lines);
    CompareTotals(lines);
    return std::move(facts_);
}

}  // namespace tradebill
