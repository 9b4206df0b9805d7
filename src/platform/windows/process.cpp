#include "platform/process.h"

#include <windows.h>

#include <array>
#include <cstdint>
#include <string>

#include "platform/windows/wide_text.h"

namespace tradebill {

std::string OwnProcessName() {
    const std::string name = "process " + std::to_string(OwnProcessNumber());
    std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> machine{};
    DWORD size = machine.size();
    if (::GetComputerNameW(machine.data(), &size) == FALSE || size == 0) return name;
    return name + " on " + Utf8Of(std::wstring_view(machine.data(), size));
}

std::uint32_t OwnProcessNumber() {
    return ::GetCurrentProcessId();
}

std::int64_t SteadyMicroseconds() {
    LARGE_INTEGER count{};
    LARGE_INTEGER perSecond{};
    ::QueryPerformanceCounter(&count);
    ::QueryPerformanceFrequency(&perSecond);
    const std::int64_t seconds = count.QuadPart / perSecond.QuadPart;
    return seconds * 1'000'000 + count.QuadPart % perSecond.QuadPart * 1'000'000 / perSecond.QuadPart;
}

void Pause(int milliseconds) {
    ::Sleep(static_cast<DWORD>(milliseconds));
}

}  // namespace tradebill
