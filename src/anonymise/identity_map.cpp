#include "anonymise/identity_map.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "base/gbk.h"
#include "base/text.h"

namespace tradebill {
namespace {

bool IsUpper(char byte) {
    return byte >= 'A' && byte <= 'Z';
}

bool IsLower(char byte) {
    return byte >= 'a' && byte <= 'z';
}

/// Leading zeros stay if a digit is left behind them to change.
std::size_t LeadingZeros(std::string_view number) {
    const std::size_t zeros = std::min(number.find_first_not_of('0'), number.size());
    return zeros < number.size() ? zeros : 0;
}

}  // namespace

CDice::CDice(std::uint64_t seed, std::string_view name) : state_(seed) {
    for (const char byte : name) state_ = (Next() ^ static_cast<unsigned char>(byte));
}

std::uint64_t CDice::Next() {
    constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15;
    constexpr std::uint64_t kFirst = 0xBF58476D1CE4E5B9;
    constexpr std::uint64_t kSecond = 0x94D049BB133111EB;
    state_ += kStep;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * kFirst;
    mixed = (mixed ^ (mixed >> 27)) * kSecond;
    return mixed ^ (mixed >> 31);
}

bool HasLettersOrDigits(std::string_view text) {
    for (; !text.empty(); text.remove_prefix(GbkCharacterLength(text))) {
        const char byte = text.front();
        if (GbkCharacterLength(text) == 1 && (IsDigit(byte) || IsUpper(byte) || IsLower(byte))) return true;
    }
    return false;
}

void CIdentityMap::Fix(std::string_view number, std::string_view instead) {
    map_.insert_or_assign(std::string(number), std::string(instead));
    taken_.emplace(instead);
}

std::string CIdentityMap::Draw(CDice& dice, std::string_view number) const {
    std::string drawn;
    const std::size_t zeros = LeadingZeros(number);
    while (drawn.size() < number.size()) {
        const std::string_view character = number.substr(drawn.size(), GbkCharacterLength(number.substr(drawn.size())));
        const char byte = character.front();
        if (character.size() > 1 || drawn.size() < zeros) {
            drawn += character;
        } else if (IsDigit(byte)) {
            const bool isFirst = drawn.size() == zeros;
            drawn += static_cast<char>(isFirst ? '1' + static_cast<char>(dice.Below(9))
                                               : '0' + static_cast<char>(dice.Below(10)));
        } else if (IsUpper(byte) || IsLower(byte)) {
            drawn += static_cast<char>((IsUpper(byte) ? 'A' : 'a') + static_cast<char>(dice.Below(26)));
        } else {
            drawn += byte;
        }
    }
    return drawn;
}

const std::string& CIdentityMap::Of(std::string_view number) {
    if (const auto found = map_.find(number); found != map_.end()) return found->second;
    constexpr int kTries = 256;
    CDice dice(seed_, number);
    std::string drawn = Draw(dice, number);
    // Short numbers run out: rather one that another has than its own.
    for (int i = 0; i < kTries && (drawn == number || taken_.contains(drawn) || known_.contains(drawn)); ++i) {
        std::string other = Draw(dice, number);
        const bool isWorse = other == number || (drawn != number && taken_.contains(other) && !taken_.contains(drawn));
        if (!isWorse) drawn = std::move(other);
    }
    taken_.insert(drawn);
    return map_.emplace(std::string(number), std::move(drawn)).first->second;
}

std::string MaskedText(std::string_view text) {
    constexpr std::string_view kMask = "某"_gbk;
    constexpr std::string_view kOther = "甲"_gbk;
    constexpr unsigned char kFirstSign = 0xA1;
    constexpr unsigned char kLastSign = 0xA9;
    std::string masked;
    while (!text.empty()) {
        const std::string_view character = text.substr(0, GbkCharacterLength(text));
        const char byte = character.front();
        const auto lead = static_cast<unsigned char>(byte);
        if (character.size() > 1) {
            const bool isSign = lead >= kFirstSign && lead <= kLastSign;
            masked += isSign ? character : character == kMask ? kOther : kMask;
        } else {
            masked += IsDigit(byte) ? '0' : IsUpper(byte) ? 'X' : IsLower(byte) ? 'x' : byte;
        }
        text.remove_prefix(character.size());
    }
    return masked;
}

}  // namespace tradebill
