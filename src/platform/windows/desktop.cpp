#include "platform/desktop.h"

#include <windows.h>

#include <shellapi.h>

#include <cstdint>

#include "platform/paths.h"

namespace tradebill {

bool OpenOnDesktop(const std::string& path) {
    constexpr std::intptr_t kLastFailure = 32;
    const std::string file = AbsolutePath(path);
    const HINSTANCE result = ::ShellExecuteA(nullptr, "open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<std::intptr_t>(result) > kLastFailure;
}

}  // namespace tradebill
