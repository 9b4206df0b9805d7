// The little that the compiler's runtime wants of threads: a lock around first uses and a value for each thread (the
// exception that is being handled). The thread library that comes with it is made for programs, which never lose it: at
// each unloading of a DLL it leaves four handles and a slot for values of threads behind, and a process has few slots.
//
// So this stands in its place, whole: if the runtime wants more, the linker fetches the library and meets every name
// twice. Only the DLL is linked with it.
#include <windows.h>
// After it comes what shares names with it.
#include <pthread.h>

#include <array>
#include <cstddef>

namespace __gnu_cxx {
void __freeres();  // gives back the memory that is kept for exceptions when there is no more memory
}

namespace {

/// For all of the runtime, and for the mutexes of the module: who holds one does so for a few instructions only, and
/// never takes a second one within it.
constinit SRWLOCK RuntimeLock = SRWLOCK_INIT;
constinit CONDITION_VARIABLE FirstUseDone = CONDITION_VARIABLE_INIT;

constinit std::array<pthread_key_t, 4> Keys{};  ///< of values of threads; the runtime needs one
constinit std::size_t KeyCount = 0;

enum OnceState : LONG { kNotYet = PTHREAD_ONCE_INIT, kAtWork, kDone };

/// Constructed before and so destroyed after everything that might throw.
class CRuntimeEnd {
public:
    ~CRuntimeEnd() {
        while (KeyCount > 0) ::FlsFree(Keys[--KeyCount]);  // which clears the values of all threads
        __gnu_cxx::__freeres();
    }
};
[[gnu::init_priority(101)]] CRuntimeEnd RuntimeEnd;

}  // namespace

int pthread_once(pthread_once_t* once, void (*function)()) {
    LONG state = kNotYet;
    while ((state = ::InterlockedCompareExchange(once, kAtWork, kNotYet)) == kAtWork) ::Sleep(0);
    if (state == kDone) return 0;
    function();
    ::InterlockedExchange(once, kDone);
    return 0;
}

int pthread_mutex_init(pthread_mutex_t* /*mutex*/, const pthread_mutexattr_t* /*attributes*/) {
    return 0;
}

int pthread_mutex_destroy(pthread_mutex_t* /*mutex*/) {
    return 0;
}

int pthread_mutex_lock(pthread_mutex_t* /*mutex*/) {
    ::AcquireSRWLockExclusive(&RuntimeLock);
    return 0;
}

int pthread_mutex_unlock(pthread_mutex_t* /*mutex*/) {
    ::ReleaseSRWLockExclusive(&RuntimeLock);
    return 0;
}

int pthread_cond_wait(pthread_cond_t* /*condition*/, pthread_mutex_t* /*mutex*/) {
    ::SleepConditionVariableSRW(&FirstUseDone, &RuntimeLock, INFINITE, 0);
    return 0;
}

int pthread_cond_broadcast(pthread_cond_t* /*condition*/) {
    ::WakeAllConditionVariable(&FirstUseDone);
    return 0;
}

/// Called once by whoever needs it, so that nobody else is at the table.
int pthread_key_create(pthread_key_t* key, void (*destroy)(void*)) {
    if (KeyCount == Keys.size()) return EAGAIN;
    *key = ::FlsAlloc(destroy);
    if (*key == FLS_OUT_OF_INDEXES) return EAGAIN;
    Keys[KeyCount++] = *key;
    return 0;
}

void* pthread_getspecific(pthread_key_t key) {
    const DWORD lastError = ::GetLastError();  // asking for a value clears it
    void* const value = ::FlsGetValue(key);
    ::SetLastError(lastError);
    return value;
}

int pthread_setspecific(pthread_key_t key, const void* value) {
    return ::FlsSetValue(key, const_cast<void*>(value)) != FALSE ? 0 : ENOMEM;
}
