#include "anonymise/loose_cells.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "anonymise/amount_text.h"
#include "anonymise/cell_meaning.h"
#include "anonymise/day_shift.h"
#include "anonymise/statement_sheet.h"
#include "base/gbk.h"
#include "base/text.h"

namespace tradebill {
namespace {

bool IsLetter(char byte) {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

/// Bytes of a word that holds letters: "m2405-C-3000", "13:07:15", "T+1".
std::size_t WordLength(std::string_view text) {
    std::size_t size = 0;
    while (size < text.size() &&
           (IsLetter(text[size]) || IsDigit(text[size]) || text[size] == '-' || text[size] == '_'))
        ++size;
    return size;
}

std::size_t TimeLength(std::string_view text) {
    std::size_t size = 0;
    bool hasColon = false;
    while (size < text.size() && (IsDigit(text[size]) || (text[size] == ':' && size > 0 && size + 1 < text.size() &&
                                                          IsDigit(text[size + 1])))) {
        hasColon |= text[size] == ':';
        ++size;
    }
    return hasColon ? size : 0;
}

/// Bytes of digits, with thousands commas and a point between them.
std::size_t NumberLength(std::string_view text) {
    std::size_t size = 0;
    bool hasPoint = false;
    for (; size < text.size(); ++size) {
        if (IsDigit(text[size])) continue;
        const bool goesOn = size > 0 && size + 1 < text.size() && IsDigit(text[size + 1]);
        const bool isMark = text[size] == ',' && !hasPoint;
        const bool isPoint = text[size] == '.' && !hasPoint;
        if (!goesOn || (!isMark && !isPoint)) break;
        hasPoint |= isPoint;
    }
    return size;
}

SheetCell NumberCell(std::string_view part, std::size_t from, std::size_t size, std::size_t at) {
    const std::string_view text = part.substr(from, size);
    SheetCell cell{.at = at + from, .size = size};
    const auto number = ParsePrinted(text);
    const std::string_view behind = part.substr(from + size);
    constexpr std::size_t kLongNumber = 5;
    if (number && (number->printedPlaces > 0 || number->hasMarks)) {
        cell.meaning = behind.starts_with('%') ? Meaning::Ratio : Meaning::Money;
        cell.number = number;
    } else if (size >= kLongNumber && !IsCounted(behind)) {
        cell.meaning = Meaning::Identity;
    } else {
        cell.meaning = Meaning::Keep;
    }
    return cell;
}

}  // namespace

bool IsCounted(std::string_view behind) {
    constexpr std::string_view kWords[] = {"手"_gbk, "笔"_gbk, "条"_gbk, "个"_gbk, "lot", "Lot"};
    behind = TrimLeft(behind);
    return std::ranges::any_of(kWords, [&](std::string_view word) { return behind.starts_with(word); });
}

void AddLooseCells(std::string_view part, std::size_t at, std::vector<SheetCell>& cells) {
    for (std::size_t from = 0; from < part.size();) {
        const std::string_view rest = part.substr(from);
        const char byte = rest.front();
        if (!IsDigit(byte)) {
            from += IsLetter(byte) ? WordLength(rest) : GbkCharacterLength(rest);
            continue;
        }
        if (const std::size_t date = DateLengthAt(rest); date > 0) {
            cells.push_back({.at = at + from, .size = date, .meaning = Meaning::Date});
            from += date;
            continue;
        }
        if (const std::size_t time = TimeLength(rest); time > 0) {
            from += time;
            continue;
        }
        const std::size_t size = NumberLength(rest);
        const bool isOfWord = size < rest.size() && IsLetter(rest[size]);
        const std::size_t sign = from > 0 && (part[from - 1] == '-' || part[from - 1] == '+') ? 1 : 0;
        if (!isOfWord) {
            const SheetCell cell = NumberCell(part, from - sign, size + sign, at);
            if (cell.meaning != Meaning::Keep) cells.push_back(cell);
        }
        from += isOfWord ? std::max(WordLength(rest), size) : size;
    }
}

}  // namespace tradebill
