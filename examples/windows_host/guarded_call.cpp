#include "guarded_call.h"

#include <windows.h>

#include <excpt.h>

// With the compiler of Windows itself this whole file is
//
//     __try { generate(request); } __except (IsReportError(GetExceptionCode())) { return GetExceptionCode(); }
//
// g++ lacks those words, and its catch (...) doesn't see structured exceptions. Its <excpt.h> has macros in their
// place, with three conditions: one guarded call in a source file, since they define labels; a function around it that
// nobody inlines or copies; and no object with a destructor in that function, since it would need a handler of its own.

namespace {

thread_local std::uint32_t Caught = 0;

bool IsReportError(DWORD code) {
    return code == 0x80004005 || code == 0x80070057 || code == 0x8007000E;
}

}  // namespace

/// Named in assembler by the macro: it needs a plain name that is seen outside of this file.
extern "C" LONG CatchReportError(EXCEPTION_POINTERS* raised, void* /*frame*/) {
    const DWORD code = raised->ExceptionRecord->ExceptionCode;
    if (!IsReportError(code)) return EXCEPTION_CONTINUE_SEARCH;
    Caught = code;
    return EXCEPTION_EXECUTE_HANDLER;
}

[[gnu::noinline, gnu::noclone]] std::uint32_t CodeRaisedBy(GenerateBillFunction generate,
                                                           const GenerateBillRequest* request) {
    Caught = 0;
    __try1(CatchReportError);
    generate(request);
    __except1;
    return Caught;
}
