#include "requests/statement_size.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>

#include "readers/statement_limit.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr const char* kOption = "--max-statement";

/// How far a number is shifted for its unit; nothing for a unit that isn't known.
std::optional<unsigned> ShiftOf(const std::string& unit) {
    if (unit.empty()) return 0;
    if (unit == "K") return 10;
    if (unit == "M") return 20;
    if (unit == "G") return 30;
    return std::nullopt;
}

}  // namespace

std::optional<std::uint64_t> ParseSize(const std::string& text) {
    std::uint64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [behind, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{}) return std::nullopt;
    const auto shift = ShiftOf(std::string(behind, end));
    if (!shift || number == 0 || number > std::numeric_limits<std::uint64_t>::max() >> *shift) return std::nullopt;
    return number << *shift;
}

StatementLimit StatementLimitOf(const std::optional<std::string>& given) {
    if (!given) return {kUsualStatementLimit, kOption};
    const auto size = ParseSize(*given);
    if (size) return {*size, kOption};
    throw CUsageError(std::string(kOption) + ": expected a size such as 512M or 1G, found \"" + *given + "\"");
}

void RequireWithin(std::uint64_t bytes, const std::string& name, const StatementLimit& limit) {
    if (const auto reason = WhyTooLarge(bytes, limit)) throw std::runtime_error("can't read " + name + ": " + *reason);
}

void RequireStatementWithin(const std::string& path, const StatementLimit& limit) {
    if (const auto reason = WhyTooLarge(path, limit)) throw std::runtime_error("can't read " + path + ": " + *reason);
}

}  // namespace tradebill
