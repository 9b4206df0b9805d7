#include "platform/settings_folder.h"

#include <cstdlib>
#include <optional>
#include <string>

namespace tradebill {
namespace {

/// A relative folder would depend on where the program is started: it counts as none.
std::optional<std::string> AbsoluteFolderIn(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value == '/' ? std::optional<std::string>(value) : std::nullopt;
}

}  // namespace

std::optional<std::string> SettingsFolder() {
    if (auto folder = AbsoluteFolderIn("XDG_CONFIG_HOME")) return folder;
    auto home = HomeFolder();
    return home ? std::optional(home->append("/.config")) : std::nullopt;
}

std::optional<std::string> HomeFolder() {
    return AbsoluteFolderIn("HOME");
}

}  // namespace tradebill
