#include "findings/statement_texts.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/byte_mask.h"
#include "base/gbk.h"
#include "base/line_counter.h"
#include "base/text.h"
#include "base/utf8.h"
#include "base/word_bytes.h"

namespace tradebill {
namespace {

constexpr std::size_t kHeadBytes = 4096;  // what a statement says of itself stands above its tables

/// Calls `onCharacter(at)` for each byte that is no ASCII and in none of the characters before it; it returns the bytes
/// of the character that begins there, or 0 to stop. Returns where it stopped, or npos.
template <class OnCharacter>
std::size_t FindAmongWide(std::string_view text, OnCharacter onCharacter) {
    std::size_t next = 0;
    for (std::size_t block = 0; block < text.size(); block += kMaskedBytes) {
        for (std::uint64_t mask = WideMask(text, block); mask != 0; mask &= mask - 1) {
            const std::size_t at = block + static_cast<std::size_t>(std::countr_zero(mask));
            if (at < next) continue;
            const std::size_t length = onCharacter(at);
            if (length == 0) return at;
            next = at + length;
        }
    }
    return std::string_view::npos;
}

/// Chinese text of GBK is as good as never sound UTF-8. A character that the end of the file cuts doesn't count.
bool ReadsAsUtf8(std::string_view text) {
    constexpr std::size_t kLongest = 4;
    bool hasCharacters = false;
    const std::size_t strange = FindAmongWide(text, [&](std::size_t at) -> std::size_t {
        const Utf8Character character = FirstUtf8Character(text.substr(at));
        if (!character.point) return 0;
        hasCharacters = true;
        return character.size;
    });
    return hasCharacters && (strange == std::string_view::npos || strange + kLongest > text.size());
}

/// Half a character at the very end is a cut file's.
bool IsGbkPair(std::string_view text, std::size_t at) {
    if (at + 1 >= text.size()) return true;
    const auto lead = static_cast<unsigned char>(text[at]);
    const auto trail = static_cast<unsigned char>(text[at + 1]);
    return lead >= 0x81 && lead <= 0xFE && trail >= 0x40 && trail <= 0xFE && trail != 0x7F;
}

/// Where the first byte stands that belongs to no character of GBK.
std::optional<std::size_t> FirstStrangeByte(std::string_view text) {
    constexpr std::size_t kPair = 2;
    const std::size_t strange = FindAmongWide(text, [&](std::size_t at) { return IsGbkPair(text, at) ? kPair : 0; });
    return strange == std::string_view::npos ? std::nullopt : std::optional(strange);
}

std::string_view Head(std::string_view text) {
    return text.substr(0, kHeadBytes);
}

/// What stands behind `word` and its colon, blanks off; nothing if a colon doesn't follow, with Latin words between.
std::optional<std::string_view> BehindLabel(std::string_view text, std::size_t wordEnd) {
    constexpr std::string_view kWideColon = "："_gbk;
    std::string_view rest = text.substr(wordEnd);
    const auto isLabel = [](char byte) {
        return byte == ' ' || byte == '.' || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    };
    while (!rest.empty() && isLabel(rest.front())) rest.remove_prefix(1);
    if (rest.starts_with(':')) return TrimLeft(rest.substr(1));
    if (rest.starts_with(kWideColon)) return TrimLeft(rest.substr(kWideColon.size()));
    return std::nullopt;
}

/// Words that make a date another one than the statement's.
bool IsOfAnotherDate(std::string_view before) {
    constexpr std::string_view kWords[] = {"制表"_gbk, "打印"_gbk, "查询"_gbk, "成交"_gbk,
                                           "平仓"_gbk, "开仓"_gbk, "生成"_gbk, "创建"_gbk};
    return std::ranges::any_of(kWords, [&](std::string_view word) { return before.ends_with(word); });
}

bool IsOfAccount(char byte) {
    return IsDigit(byte) || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || byte == '-' ||
           byte == '_' || byte == '*';
}

constexpr std::size_t kLongestDate = 32;

bool BeginsWithDay(std::string_view behind) {
    constexpr std::size_t kDayLength = 8;
    return PackedDate(behind.substr(0, kLongestDate)).size() == kDayLength;
}

/// Whether what follows `byte` begins a cell.
bool BeginsCell(char byte) {
    return IsWhiteSpace(byte) || byte == '|';
}

/// The first label, by its words and then by its place, that has a colon and of which isWanted(before, behind) says so.
template <class IsWanted>
std::optional<StatedLabel> FindLabel(std::string_view text, std::span<const std::string_view> words,
                                     IsWanted isWanted) {
    for (const std::string_view word : words) {
        for (std::size_t from = 0; from < text.size();) {
            const std::size_t found = FindText(text.substr(from), word);
            if (found == std::string_view::npos) break;
            const std::size_t at = from + found;
            from = at + word.size();
            const auto behind = BehindLabel(text, from);
            if (!behind || !isWanted(text.substr(0, at), *behind)) continue;
            std::size_t begin = at;
            while (begin > 0 && !BeginsCell(text[begin - 1])) --begin;
            return StatedLabel{text.substr(begin, from - begin), *behind};
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<EncodingFault> FindEncodingFault(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return EncodingFault{"UTF-16", true};
    const bool hasMark = bytes.starts_with("\xEF\xBB\xBF");
    const std::string_view text = hasMark ? bytes.substr(3) : bytes;
    if (ReadsAsUtf8(text)) return EncodingFault{hasMark ? "UTF-8 with a mark at the start" : "UTF-8", true};
    if (const std::size_t zero = text.find('\0'); zero != std::string_view::npos) {
        constexpr std::size_t kFirstCharacters = 64;
        const bool isWide = zero < kFirstCharacters && text.substr(zero + 2, 1) == std::string_view("\0", 1);
        if (isWide) return EncodingFault{"UTF-16 without a mark", true};
        return EncodingFault{"a zero byte, at which reading ends", false, LineAt(text, zero)};
    }
    if (hasMark) return EncodingFault{"a UTF-8 mark at the start of GBK text", false, 1};
    if (const auto at = FirstStrangeByte(text)) {
        return EncodingFault{"bytes that are no GBK characters", false, LineAt(text, *at)};
    }
    return std::nullopt;
}

std::optional<StatedLabel> FindAccountLabel(std::string_view text) {
    constexpr std::string_view kWords[] = {"客户号"_gbk,   "客户代码"_gbk, "客户账号"_gbk, "客户编号"_gbk,
                                           "资金账号"_gbk, "资金帐号"_gbk, "客户"_gbk};
    return FindLabel(text, kWords, [](std::string_view, std::string_view behind) {
        const std::string_view account = AccountAt(behind);
        const bool isNumber = std::ranges::any_of(account, IsDigit);  // not a name
        return isNumber && account.find('*') == std::string_view::npos;
    });
}

std::optional<StatedLabel> FindDayLabel(std::string_view text) {
    constexpr std::string_view kWords[] = {"日期"_gbk, "日  期"_gbk, "日 期"_gbk, "结算日"_gbk, "交易日"_gbk};
    return FindLabel(text, kWords, [](std::string_view before, std::string_view behind) {
        return !IsOfAnotherDate(before) && BeginsWithDay(behind);
    });
}

std::optional<StatedLabel> FindMakingDayLabel(std::string_view text) {
    constexpr std::string_view kWords[] = {"制表时间"_gbk, "制表日期"_gbk};
    return FindLabel(text, kWords, [](std::string_view, std::string_view behind) { return BeginsWithDay(behind); });
}

std::optional<std::string_view> BehindLabelOf(std::string_view text, std::string_view label) {
    const std::string_view words[] = {label};
    const auto found = FindLabel(text, words, [](std::string_view before, std::string_view) {
        return before.empty() || BeginsCell(before.back());
    });
    return found ? std::optional(found->behind) : std::nullopt;
}

std::string_view AccountAt(std::string_view behind) {
    std::size_t length = 0;
    while (length < behind.size() && IsOfAccount(behind[length])) ++length;
    return behind.substr(0, length);
}

std::optional<std::string> PrintedAccount(std::string_view text) {
    const auto found = FindAccountLabel(Head(text));
    return found ? std::optional<std::string>(AccountAt(found->behind)) : std::nullopt;
}

std::optional<std::string> PrintedDay(std::string_view text) {
    const auto found = FindDayLabel(Head(text));
    return found ? std::optional(PackedDate(found->behind.substr(0, kLongestDate))) : std::nullopt;
}

std::string PackedDate(std::string_view text) {
    constexpr std::size_t kYearDigits = 4;
    constexpr std::size_t kOtherDigits = 2;
    constexpr std::string_view kSeparators[] = {"-", "/", ".", "年"_gbk, "月"_gbk};
    std::string day;
    text = TrimLeft(text);
    for (std::size_t part = 0; part < 3; ++part) {
        const std::size_t most = part == 0 ? kYearDigits : kOtherDigits;
        std::string digits;
        while (!text.empty() && IsDigit(text.front()) && digits.size() < most) {
            digits += text.front();
            text.remove_prefix(1);
        }
        if (digits.empty()) break;
        if (part > 0 && digits.size() < kOtherDigits) digits.insert(0, "0");
        day += digits;
        for (const std::string_view separator : kSeparators) {
            if (text.starts_with(separator)) text.remove_prefix(separator.size());
        }
    }
    return day;
}

std::uint64_t HashOf(std::string_view bytes) {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
    const auto mix = [](std::uint64_t hash, std::uint64_t word) {
        hash = (hash ^ word) * kFactor;
        return hash ^ (hash >> 32);
    };
    std::array<std::uint64_t, 4> lanes = {bytes.size(), 1, 2, 3};  // side by side, since each waits for its own product
    for (; bytes.size() >= lanes.size() * kWordBytes; bytes.remove_prefix(lanes.size() * kWordBytes)) {
        for (std::size_t i = 0; i < lanes.size(); ++i)
            lanes[i] = mix(lanes[i], LoadWord(bytes.data() + i * kWordBytes));
    }
    std::uint64_t hash = 0;
    for (const std::uint64_t lane : lanes) hash = mix(hash, lane);
    for (const char byte : bytes) hash = mix(hash, static_cast<unsigned char>(byte));
    return hash;
}

}  // namespace tradebill
