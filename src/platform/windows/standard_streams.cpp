#include "platform/standard_streams.h"

#include <windows.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string>

namespace tradebill {

// A handle isn't a small number that the next file gets, and no signal ends who writes to a broken pipe.
void HoldStandardStreams() {}

std::optional<std::string> ReadStandardInput() {
    constexpr std::size_t kStep = std::size_t{64} << 10;
    const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
    std::string content;
    std::array<char, kStep> buffer;
    for (;;) {
        DWORD got = 0;
        if (::ReadFile(input, buffer.data(), static_cast<DWORD>(buffer.size()), &got, nullptr) == FALSE) {
            const DWORD error = ::GetLastError();  // that of a pipe whose writer has ended is its end
            return error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF ? std::optional(content) : std::nullopt;
        }
        if (got == 0) return content;
        content.append(buffer.data(), got);
    }
}

// A handle's end is told by no system that it leads to.
bool CloseStandardOutput() {
    return true;
}

// Only a write would tell.
bool HasReaderLeft() {
    return false;
}

}  // namespace tradebill
