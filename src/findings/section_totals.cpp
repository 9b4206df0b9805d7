#include "findings/section_totals.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/decimal.h"
#include "base/gbk.h"
#include "base/text.h"
#include "findings/section_facts.h"
#include "readers/scan_listener.h"

namespace tradebill {
namespace {

/// The number behind "共", as in "共 9条" and "|共9条   |"; nothing for a row that counts nothing.
std::optional<int> CountIn(std::string_view row) {
    constexpr std::string_view kWord = "共"_gbk;
    const std::size_t at = row.find(kWord);
    if (at == std::string_view::npos) return std::nullopt;
    row = TrimLeft(row.substr(at + kWord.size()));
    int count = 0;
    const auto [end, error] = std::from_chars(row.data(), row.data() + row.size(), count);
    return error == std::errc{} ? std::optional(count) : std::nullopt;
}

/// The text of a sum, as a total of so many places would print it.
std::string SumText(std::int64_t sum, int places) {
    return places == 0 && sum % kDecimalSteps == 0 ? std::to_string(sum / kDecimalSteps) : DecimalText(sum);
}

/// Dates and the numbers of trades are never added up.
bool IsName(std::string_view column) {
    constexpr std::size_t kDateLength = 8;
    const bool hasLeadingZero = column.size() > 1 && column[0] == '0' && IsDigit(column[1]);
    return hasLeadingZero || (column.size() == kDateLength && (column.starts_with("20") || column.starts_with("19")) &&
                              column.find('.') == std::string_view::npos);
}

void Append(std::string& list, std::string_view text) {
    if (!list.empty()) list += "; ";
    list += text;
}

}  // namespace

void CSectionTotals::Begin(std::string_view delimiter) {
    columns_ = {};
    width_ = 0;
    numbers_ = 0;
    hasBars_ = delimiter == "|";
    rows_ = 0;
    lots_ = 0;
}

bool CSectionTotals::AddRow(std::string_view line, Row columns) {
    bool areNumbers = true;
    const bool isFirst = rows_++ == 0;
    const std::size_t width = std::min(columns.size(), kMostColumns);
    width_ = std::max(width_, width);
    for (std::size_t i = 0; i < width; ++i) {
        Column& column = columns_[i];
        column.end = static_cast<std::size_t>(columns[i].data() + columns[i].size() - line.data());
        if (!isFirst && !column.isNumber) continue;
        const auto amount = ParseDecimal(columns[i]);
        if (amount) column.sum = WrappingSum(column.sum, amount->steps);
        // Readers stop at a thousands comma: a number to people isn't one to them.
        const bool isRead = amount && !amount->hasMarks;
        if (isFirst) {
            column.isNumber = amount && !IsName(columns[i]);
            if (isRead) numbers_ |= 1U << i;
        }
        areNumbers &= isRead || !column.isNumber;
    }
    return areNumbers;
}

std::vector<CSectionTotals::Amount> CSectionTotals::AmountsOf(std::string_view line) const {
    std::vector<Amount> amounts;
    std::string_view text = hasBars_ ? TrimLeft(line) : line;
    if (hasBars_ && text.starts_with('|')) text.remove_prefix(1);
    const char* const delimiters = hasBars_ ? "|" : " \t|";
    std::size_t cell = 0;
    for (std::size_t begin = 0; begin < text.size(); ++cell) {
        const std::size_t end = std::min(text.find_first_of(delimiters, begin), text.size());
        const std::string_view column = Trim(text.substr(begin, end - begin));
        const auto amount = column.empty() ? std::nullopt : ParseDecimal(column);
        if (amount) {
            const std::size_t place =
                hasBars_ ? cell : static_cast<std::size_t>(column.data() + column.size() - line.data());
            amounts.push_back({column, amount->steps, amount->places, place});
        }
        begin = end + 1;
    }
    return amounts;
}

const CSectionTotals::Column* CSectionTotals::ColumnOf(const Amount& amount) const {
    if (hasBars_) return amount.place < width_ ? &columns_[amount.place] : nullptr;
    const auto end = columns_.begin() + static_cast<std::ptrdiff_t>(width_);
    const auto found =
        std::find_if(columns_.begin(), end, [&](const Column& column) { return column.end == amount.place; });
    return found != end ? &*found : nullptr;
}

bool CSectionTotals::IsSumOfAny(const Amount& amount) const {
    return std::any_of(columns_.begin(), columns_.begin() + static_cast<std::ptrdiff_t>(width_),
                       [&](const Column& column) { return column.isNumber && column.sum == amount.steps; });
}

/// A total stands below its column. Where the print is ragged it counts as right if it is the sum of any.
std::optional<TotalFault> CSectionTotals::Compare(std::string_view line) const {
    TotalFault fault;
    fault.isWithinRounding = true;
    if (const auto count = CountIn(line); count && *count != rows_) {
        fault.expected = std::to_string(rows_) + " rows";
        fault.found = std::to_string(*count) + " rows";
        fault.isWithinRounding = false;
    }
    if (rows_ == 0) return fault.found.empty() ? CompareWithNothing(line) : std::optional(fault);
    for (const Amount& amount : AmountsOf(line)) {
        const Column* const column = ColumnOf(amount);
        if (column == nullptr || !column->isNumber || column->sum == amount.steps) continue;
        if (amount.steps != 0 && IsSumOfAny(amount)) continue;
        const std::int64_t rounding = amount.places == 0 ? 0 : Decimal::HalfUnit(amount.places) * (rows_ + 1);
        fault.isWithinRounding &= DistanceOf(column->sum, amount.steps) <= static_cast<std::uint64_t>(rounding);
        Append(fault.expected, SumText(column->sum, amount.places));
        Append(fault.found, amount.text);
    }
    return fault.found.empty() ? std::nullopt : std::optional(fault);
}

/// Of rows that are all gone. A count has told already.
std::optional<TotalFault> CSectionTotals::CompareWithNothing(std::string_view line) const {
    if (CountIn(line)) return std::nullopt;
    TotalFault fault;
    for (const Amount& amount : AmountsOf(line)) {
        if (amount.steps == 0) continue;
        Append(fault.expected, SumText(0, amount.places));
        Append(fault.found, amount.text);
    }
    return fault.found.empty() ? std::nullopt : std::optional(fault);
}

std::optional<TotalFault> CSectionTotals::CompareLots(std::string_view row) {
    const std::size_t at = row.find(':');
    if (at == std::string_view::npos) return std::nullopt;
    const std::string_view rest = TrimLeft(row.substr(at + 1));
    const std::size_t digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
    const auto printed = ParseDecimal(rest.substr(0, digits));
    const int lots = lots_;
    lots_ = 0;
    if (!printed || printed->steps == lots * kDecimalSteps) return std::nullopt;
    TotalFault fault;
    fault.expected = std::to_string(lots) + " lots";
    fault.found = std::string(rest.substr(0, digits)) + " lots";
    return fault;
}

int CSectionTotals::CountAmounts(std::string_view line) const {
    const std::vector<Amount> amounts = AmountsOf(line);
    // Half an amount, where a file is cut, stands below no column and is no sum.
    return static_cast<int>(std::ranges::count_if(amounts, [this](const Amount& amount) {
        return rows_ == 0 || ColumnOf(amount) != nullptr || IsSumOfAny(amount);
    }));
}

}  // namespace tradebill
