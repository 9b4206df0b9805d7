// The command `.manual`: writes the manual pages, for the build of the program. Nobody calls it by hand.
#pragma once

#include <optional>
#include <string>

#include "cli/command_table.h"

namespace tradebill {

inline constexpr const char* kManualCommand = ".manual";

[[nodiscard]] CommandRun DeclareManual(CLI::App& app);

/// The day of `seconds` since 1970 in Greenwich, as SOURCE_DATE_EPOCH tells them: "2024-01-31". Nothing for what is no
/// such number.
[[nodiscard]] std::optional<std::string> DateOfEpoch(const std::string& seconds);

/// Writes all pages into `folder`, which is made if it is missing. Returns the program's exit code. Their date is that
/// of SOURCE_DATE_EPOCH, or else of the version. Throws CUsageError for one that is no number.
[[nodiscard]] int RunManual(const std::string& folder);

}  // namespace tradebill
