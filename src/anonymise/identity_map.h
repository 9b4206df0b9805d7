// Numbers of accounts, clients and trades, and what stands for them in the copy.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace tradebill {

/// Numbers that look random and are told by what they start from alone, on every system.
class CDice {
public:
    explicit CDice(std::uint64_t seed) : state_(seed) {}
    /// The dice of a thing with a name of its own.
    CDice(std::uint64_t seed, std::string_view name);

    [[nodiscard]] std::uint64_t Next();
    /// From 0 to `count` - 1.
    ///
    /// REQUIRES: `count` isn't 0.
    [[nodiscard]] std::uint64_t Below(std::uint64_t count) { return Next() % count; }

private:
    std::uint64_t state_;
};

/// Whether a text holds digits or Latin letters, which can be changed.
[[nodiscard]] bool HasLettersOrDigits(std::string_view text);

/// What stands for each number: as long, with digits for digits and letters for letters, leading zeros kept. The same
/// number has the same one everywhere, no two have the same, and none is one that was there, as far as there are enough
/// of its length.
class CIdentityMap {
public:
    explicit CIdentityMap(std::uint64_t seed) : seed_(seed) {}

    /// Makes a number known that is there, so that it stands for no other.
    void Know(std::string_view number) { known_.emplace(number); }

    /// Fixes what stands for a number.
    void Fix(std::string_view number, std::string_view instead);

    [[nodiscard]] const std::string& Of(std::string_view number);

private:
    [[nodiscard]] std::string Draw(CDice& dice, std::string_view number) const;

    std::uint64_t seed_;
    std::set<std::string, std::less<>> known_;
    std::set<std::string, std::less<>> taken_;
    std::map<std::string, std::string, std::less<>> map_;
};

/// As many bytes of nothing: characters for characters, letters for letters, digits for digits; all else stays.
[[nodiscard]] std::string MaskedText(std::string_view text);

}  // namespace tradebill
