#include "platform/last_words.h"

#include <string_view>

#include <windows.h>

namespace tradebill {

void EndWithWords(std::string_view text, int status) noexcept {
    DWORD written = 0;
    ::WriteFile(::GetStdHandle(STD_ERROR_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(status));
    ::ExitProcess(static_cast<UINT>(status));
}

}  // namespace tradebill
