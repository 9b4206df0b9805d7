// How large a statement's file may be.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

/// Larger files aren't read. Nobody who doesn't say otherwise has a limit.
struct StatementLimit {
    std::uint64_t mostBytes = std::numeric_limits<std::uint64_t>::max();
    std::string_view setting = {};  ///< of whoever set it, as the one who is told knows it; outlives the limit
};

/// Why `bytes` are too many: "larger than 256 MB (SETTING)". Nothing if they aren't.
[[nodiscard]] std::optional<std::string> WhyTooLarge(std::uint64_t bytes, const StatementLimit& limit);

/// The same of the file at `path`; nothing if there is none.
[[nodiscard]] std::optional<std::string> WhyTooLarge(const std::string& path, const StatementLimit& limit);

}  // namespace tradebill
