// Where the user keeps what programs are set to.
#pragma once

#include <optional>
#include <string>

namespace tradebill {

/// The folder of all programs' settings, which needn't be there: $XDG_CONFIG_HOME, or .config in the user's folder; on
/// Windows %APPDATA%. Nothing where the user has none.
[[nodiscard]] std::optional<std::string> SettingsFolder();

/// The user's own folder; nothing if there is none.
[[nodiscard]] std::optional<std::string> HomeFolder();

}  // namespace tradebill
