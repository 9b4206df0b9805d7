// The option --max-statement, which keeps one damaged or hostile file from taking all of a machine's memory.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "readers/statement_limit.h"

namespace tradebill {

/// A year's statements of a busy account are smaller, all in one file.
inline constexpr std::uint64_t kUsualStatementLimit = std::uint64_t{256} << 20;

/// A size in bytes, or with one of the units K, M and G of 1024 each. Nothing for any other text, and for 0.
[[nodiscard]] std::optional<std::uint64_t> ParseSize(const std::string& text);

/// The limit that was given, as ParseSize takes it; the usual one for nothing.
/// Throws CUsageError.
[[nodiscard]] StatementLimit StatementLimitOf(const std::optional<std::string>& given);

/// Throws std::runtime_error if a statement of `bytes`, which messages call `name`, is beyond `limit`.
void RequireWithin(std::uint64_t bytes, const std::string& name, const StatementLimit& limit);

/// The same for the file at `path`, if there is one.
void RequireStatementWithin(const std::string& path, const StatementLimit& limit);

}  // namespace tradebill
