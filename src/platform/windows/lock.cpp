#include "platform/lock.h"

#include <windows.h>

namespace tradebill {

struct CLock::Native {
    CRITICAL_SECTION section;
};

CLock::CLock() : native_(std::make_unique<Native>()) {
    ::InitializeCriticalSection(&native_->section);
}

CLock::~CLock() {
    ::DeleteCriticalSection(&native_->section);
}

void CLock::lock() {
    ::EnterCriticalSection(&native_->section);
}

void CLock::unlock() {
    ::LeaveCriticalSection(&native_->section);
}

}  // namespace tradebill
