#include "export/row_values.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "base/text.h"
#include "base/utf8.h"
#include "base/word_bytes.h"
#include "export/table.h"
#include "platform/text_encoding.h"

namespace tradebill {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr std::string_view kIsoForm = "yyyy-mm-dd";

bool IsAscii(std::string_view text) {
    for (; text.size() >= kWordBytes; text.remove_prefix(kWordBytes)) {
        if ((LoadWord(text.data()) & kHighBits) != 0) return false;
    }
    return std::ranges::none_of(text, [](char byte) { return (byte & '\x80') != 0; });
}

/// At most this many bytes of UTF-8 come of a byte: U+FFFD, where it is no character.
constexpr std::size_t kMostBytes = 3;

std::size_t RoomOf(const ExportCell& cell) {
    if (const auto* const gbk = std::get_if<GbkCell>(&cell)) return gbk->text.size() * kMostBytes;
    if (const auto* const utf8 = std::get_if<Utf8Cell>(&cell)) return utf8->text.size() * kMostBytes;
    return std::holds_alternative<DayCell>(cell) ? kIsoForm.size() : 0;
}

bool AreDigits(std::string_view text) {
    return std::ranges::all_of(text, IsDigit);
}

unsigned NumberOf(std::string_view digits) {
    unsigned number = 0;
    for (const char digit : digits) number = number * 10 + static_cast<unsigned>(digit - '0');
    return number;
}

struct DayParts {
    std::string_view year;
    std::string_view month;
    std::string_view day;
};

/// Empty parts where the text has another form.
DayParts PartsOf(std::string_view text) {
    if (text.size() == 8) return {text.substr(0, 4), text.substr(4, 2), text.substr(6)};
    const bool isDashed = text.size() == kIsoForm.size() && text[4] == '-' && text[7] == '-';
    return isDashed ? DayParts{text.substr(0, 4), text.substr(5, 2), text.substr(8)} : DayParts{};
}

bool IsDay(const DayParts& parts) {
    if (parts.year.empty() || !AreDigits(parts.year) || !AreDigits(parts.month) || !AreDigits(parts.day)) return false;
    const std::chrono::year year(static_cast<int>(NumberOf(parts.year)));
    return (year / std::chrono::month(NumberOf(parts.month)) / std::chrono::day(NumberOf(parts.day))).ok();
}

/// `text` with U+FFFD for each byte of it that belongs to no character.
std::string Mended(std::string_view text) {
    std::string mended;
    while (!text.empty()) {
        const Utf8Character character = FirstUtf8Character(text);
        mended += character.point ? text.substr(0, character.size) : kReplacement;
        text.remove_prefix(character.size);
    }
    return mended;
}

}  // namespace

std::span<const CellValue> CRowValues::Of(std::span<const ExportCell> cells) {
    MakeRoom(cells);
    values_.resize(cells.size());
    std::ranges::transform(cells, values_.begin(), [this](const ExportCell& cell) {
        return std::visit([this](const auto& content) { return ValueOf(content); }, cell);
    });
    return values_;
}

void CRowValues::MakeRoom(std::span<const ExportCell> cells) {
    std::size_t room = 0;
    for (const ExportCell& cell : cells) room += RoomOf(cell);
    bytes_.clear();
    bytes_.reserve(room);
}

std::string_view CRowValues::Keep(std::string_view text) {
    const std::size_t at = bytes_.size();
    bytes_.append(text);
    return std::string_view(bytes_).substr(at);
}

std::string_view CRowValues::Decoded(std::string_view gbk) {
    if (gbk.size() > kLongestKnown) return Keep(GbkToUtf8(gbk));
    Known& known = known_[std::hash<std::string_view>()(gbk) % kKnown];
    if (known.gbk != gbk) known = {std::string(gbk), GbkToUtf8(gbk)};
    return Keep(known.utf8);
}

CellValue CRowValues::ValueOf(GbkCell gbk) {
    if (gbk.text.empty()) return {};
    return IsAscii(gbk.text) ? gbk.text : Decoded(gbk.text);
}

CellValue CRowValues::ValueOf(Utf8Cell utf8) {
    if (utf8.text.empty()) return {};
    return IsAscii(utf8.text) || IsUtf8(utf8.text) ? utf8.text : Keep(Mended(utf8.text));
}

CellValue CRowValues::ValueOf(DayCell day) {
    const DayParts parts = PartsOf(day.text);
    if (!IsDay(parts)) return {};
    const std::size_t at = bytes_.size();
    bytes_.append(parts.year).append("-").append(parts.month).append("-").append(parts.day);
    return std::string_view(bytes_).substr(at);
}

CellValue CRowValues::ValueOf(double number) {
    if (!std::isfinite(number)) return {};
    return number + 0.0;
}

}  // namespace tradebill
