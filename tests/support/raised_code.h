// The error that leaves the module, as its host meets it.
#pragma once

#include <cstdint>

#if defined(_WIN32)
#include "support/windows_header.h"
#else
#include "base/report_error.h"
#endif

namespace tradebill {

#if defined(_WIN32)
/// One structured exception is waited for at a time.
struct AwaitedException {
    void* place[5];  ///< where to go on, as the compiler keeps it
    std::uint32_t code;
};
inline AwaitedException Awaited;

inline LONG CALLBACK LeaveForAwaitedException(EXCEPTION_POINTERS* exception) {
    const DWORD code = exception->ExceptionRecord->ExceptionCode;
    if ((code & 0xFFFF0000) != 0x80000000 && (code & 0xFFFF0000) != 0x80070000) return EXCEPTION_CONTINUE_SEARCH;
    Awaited.code = code;
    __builtin_longjmp(Awaited.place, 1);
}

/// The code with which `action` ends; 0 if it ends by itself.
template <class Action>
[[gnu::noinline]] std::uint32_t CodeRaisedBy(Action action) {
    Awaited.code = 0;
    void* const handler = ::AddVectoredExceptionHandler(1, LeaveForAwaitedException);
    if (__builtin_setjmp(Awaited.place) == 0) action();
    ::RemoveVectoredExceptionHandler(handler);
    return Awaited.code;
}
#else
/// The code with which `action` ends; 0 if it ends by itself.
template <class Action>
std::uint32_t CodeRaisedBy(Action action) {
    try {
        action();
    } catch (const CReportError& error) {
        return error.Code();
    }
    return 0;
}
#endif

}  // namespace tradebill
