#include "platform/terminal.h"

#include <windows.h>

namespace tradebill {

bool IsErrorOutputTerminal() {
    const HANDLE output = ::GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    if (::GetConsoleMode(output, &mode) == FALSE) return false;
    // Lines are erased by escape sequences, which older consoles would print.
    return ::SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != FALSE;
}

bool WantsColours() {
    constexpr DWORD kRoom = 2;
    wchar_t first[kRoom] = {};
    // The length of a value that is there and isn't empty, or the room that it needs.
    const bool isDeclined = ::GetEnvironmentVariableW(L"NO_COLOR", first, kRoom) > 0;
    return !isDeclined && IsErrorOutputTerminal();
}

CUtf8Terminal::CUtf8Terminal() : former_(::GetConsoleOutputCP()) {
    ::SetConsoleOutputCP(CP_UTF8);
}

CUtf8Terminal::~CUtf8Terminal() {
    ::SetConsoleOutputCP(former_);
}

}  // namespace tradebill
