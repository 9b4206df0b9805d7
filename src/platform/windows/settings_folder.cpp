#include "platform/settings_folder.h"

#include <windows.h>

#include <optional>
#include <string>
#include <utility>

namespace tradebill {
namespace {

std::optional<std::string> FolderIn(const char* variable) {
    const DWORD room = ::GetEnvironmentVariableA(variable, nullptr, 0);
    if (room == 0) return std::nullopt;
    std::string folder(room, '\0');
    folder.resize(::GetEnvironmentVariableA(variable, folder.data(), room));
    return folder.empty() ? std::nullopt : std::optional(std::move(folder));
}

}  // namespace

std::optional<std::string> SettingsFolder() {
    return FolderIn("APPDATA");
}

std::optional<std::string> HomeFolder() {
    return FolderIn("USERPROFILE");
}

}  // namespace tradebill
