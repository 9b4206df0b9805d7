#include "readers/section_scan.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <new>
#include <optional>
#include <string_view>

#include "base/byte_mask.h"
#include "base/gbk.h"
#include "base/line_counter.h"
#include "base/report_error.h"
#include "base/text.h"
#include "readers/scan_listener.h"
#include "readers/statement_text.h"

namespace tradebill {
namespace {

/// `row` less `offset`, not before the first row: a title row may be its own terminating row.
std::size_t RowBefore(std::size_t row, int offset) {
    return row - std::min(row, static_cast<std::size_t>(offset));
}

const char* EndOf(std::string_view row) {
    return row.data() + row.size();
}

/// Lines, corners and crossings of boxes stand side by side in GBK.
bool IsLineOfBox(std::string_view character) {
    return character >= "\xA9\xA4" && character <= "\xA9\xEF";
}

/// The ASCII characters of which rules are made: rules are long, and every section has some.
constexpr std::array<bool, 256> kIsOfRule = [] {
    std::array<bool, 256> marks{};
    for (const char byte : std::string_view("-=_|+*~. ")) marks[static_cast<unsigned char>(byte)] = true;
    return marks;
}();

/// Bytes of the character of which rules are made that `row` begins with; 0 if it begins with another.
std::size_t RuleCharacterLength(std::string_view row) {
    constexpr std::string_view kWide[] = {"—"_gbk, "－"_gbk, "＝"_gbk, "＿"_gbk, "…"_gbk, "｜"_gbk, "＋"_gbk, "　"_gbk};
    if (kIsOfRule[static_cast<unsigned char>(row.front())]) return 1;
    const std::string_view wide = row.substr(0, 2);
    return IsLineOfBox(wide) || std::ranges::find(kWide, wide) != std::end(kWide) ? wide.size() : 0;
}

}  // namespace

bool IsRule(std::string_view row) {
    if (row.empty()) return false;
    // Nearly all are of one character.
    const bool opensRule = kIsOfRule[static_cast<unsigned char>(row.front())];
    if (opensRule && CountByte(row, row.front()) == row.size()) return true;
    while (!row.empty()) {
        const std::size_t length = RuleCharacterLength(row);
        if (length == 0) return false;
        row.remove_prefix(length);
    }
    return true;
}

RowVerdict ShortRow(std::string_view row, std::size_t needed) {
    return IsRule(row) ? RowVerdict{RowFate::Rule} : RowVerdict{RowFate::TooShort, needed};
}

CSectionScan::CSectionScan(std::string_view text, SearchFrom searchFrom, CScanListener* listener)
    : text_(text), rows_(text), searchFrom_(searchFrom), listener_(listener) {}

CSectionScan::CSectionScan(const StatementText& statement, SearchFrom searchFrom)
    : CSectionScan(statement.text, searchFrom, statement.listener) {
    onlyRows_ = statement.onlyRows;
}

std::optional<std::size_t> CSectionScan::FindRow(std::size_t from, std::size_t end, std::string_view word) const {
    if (from >= end) return std::nullopt;
    // All rows are looked through at once; what begins or ends in the white space around a row isn't in the row.
    const char* const textEnd = EndOf(rows_[end - 1]);
    for (const char* at = rows_[from].data(); at < textEnd; ++at) {
        const std::size_t found = FindText({at, textEnd}, word);
        if (found == std::string_view::npos) break;
        at += found;
        const std::size_t row = rows_.RowAt(at);
        if (at + word.size() <= EndOf(rows_[row])) return row;
    }
    return std::nullopt;
}

CSectionScan::Frame CSectionScan::FindFrame(std::size_t from, const SectionLayout& layout) const {
    Frame frame;
    frame.title = FindRow(from, rows_.Count(), layout.title);
    if (frame.title) {
        const std::size_t first = *frame.title + static_cast<std::size_t>(layout.terminatorOffset);
        frame.terminator = FindRow(first, rows_.Count(), layout.terminator);
        if (!layout.otherTerminator.empty()) {
            const auto other = FindRow(first, frame.terminator.value_or(rows_.Count()), layout.otherTerminator);
            if (other) frame.terminator = other;
        }
    }
    TellSection(layout, frame, true);
    return frame;
}

std::optional<SectionRows> CSectionScan::RowsOf(const Frame& frame, const SectionLayout& layout) {
    if (!frame.title || !frame.terminator) return std::nullopt;
    return SectionRows{.title = *frame.title,
                       .terminator = *frame.terminator,
                       .begin = static_cast<std::int64_t>(*frame.title) + layout.firstRow,
                       .end = static_cast<std::int64_t>(*frame.terminator) - layout.endOffset};
}

std::optional<SectionRows> CSectionScan::Find(const SectionLayout& layout) {
    const Frame frame = FindFrame(searchFrom_ == SearchFrom::Cursor ? cursor_ : 0, layout);
    if (frame.terminator) {
        cursor_ = lastGoodEnd_ = RowBefore(*frame.terminator, layout.cursorOffset);
    } else {
        cursor_ = frame.title.value_or(lastGoodEnd_);
    }
    return RowsOf(frame, layout);
}

std::optional<SectionRows> CSectionScan::FindBehind(std::size_t from, const SectionLayout& layout) const {
    return RowsOf(FindFrame(from, layout), layout);
}

std::optional<std::size_t> CSectionScan::FindTitle(const SectionLayout& layout) const {
    const Frame frame{.title = FindRow(0, rows_.Count(), layout.title), .terminator = {}};
    TellSection(layout, frame, false);
    return frame.title;
}

void CSectionScan::TellSection(const SectionLayout& layout, const Frame& frame, bool needsTerminator) const {
    if (listener_ == nullptr) return;
    const auto rowText = [&](std::optional<std::size_t> row) { return row ? rows_[*row] : std::string_view(); };
    listener_->OnSection({.kind = layout.kind,
                          .titleWord = layout.title,
                          .terminatorWord = layout.terminator,
                          .otherTerminatorWord = layout.otherTerminator,
                          .needsTerminator = needsTerminator,
                          .delimiter = layout.delimiter,
                          .stripsBars = layout.stripsBars,
                          .minColumns = layout.minColumns,
                          .titleRow = rowText(frame.title),
                          .terminatorRow = rowText(frame.terminator)});
}

std::string_view CSectionScan::RowText(std::int64_t row) const {
    if (row < 0 || row >= static_cast<std::int64_t>(rows_.Count())) {
        if (listener_ != nullptr) listener_->OnStop({});
        throw CReportError(kErrorInvalidArgument, {.line = LineOf(row)});
    }
    return rows_[static_cast<std::size_t>(row)];
}

int CSectionScan::LineOf(std::int64_t row) const {
    if (rows_.Count() == 0) return 0;
    const std::int64_t nearest = std::clamp<std::int64_t>(row, 0, static_cast<std::int64_t>(rows_.Count()) - 1);
    const char* const at = rows_[static_cast<std::size_t>(nearest)].data();
    return LineAt(text_, static_cast<std::size_t>(at - text_.data()));
}

void CSectionScan::RethrowFrom(std::int64_t row, SectionKind kind) const {
    const ErrorPlace place{.line = LineOf(row), .section = SectionName(kind)};
    const bool isThere = row >= 0 && row < static_cast<std::int64_t>(rows_.Count());
    if (isThere && listener_ != nullptr) listener_->OnStop(currentRow_);
    try {
        throw;
    } catch (const CReportError& error) {
        throw CReportError(error.Code(), place);
    } catch (const std::bad_alloc&) {
        throw CReportError(kErrorOutOfMemory, place);
    }
}

bool CSectionScan::SplitRow(std::int64_t row, const SectionLayout& layout) {
    currentRow_ = RowText(row);
    columns_.clear();
    for (const std::string_view word : layout.subtotals) {
        if (!Contains(currentRow_, word)) continue;
        Tell({RowFate::Subtotal});
        return false;
    }
    const std::string_view text = layout.stripsBars ? TrimByte(currentRow_, '|') : currentRow_;
    if (SplitText(text, layout.delimiter, columns_) >= layout.minColumns) return true;
    if (listener_ != nullptr) Tell(ShortRow(currentRow_, layout.minColumns));
    return false;
}

std::optional<Row> CSectionScan::ReadRow(std::int64_t row, const SectionLayout& layout) {
    try {
        if (!SplitRow(row, layout)) return std::nullopt;
        Tell({});
    } catch (...) {
        RethrowFrom(row, layout.kind);
    }
    return Row(columns_);
}

std::optional<Row> CSectionScan::ReadRowBelow(std::size_t title, std::int32_t offset, const SectionLayout& layout) {
    const std::int64_t row = static_cast<std::int64_t>(title) + offset;
    if (row >= static_cast<std::int64_t>(rows_.Count())) return std::nullopt;
    return ReadRow(row, layout);
}

}  // namespace tradebill
