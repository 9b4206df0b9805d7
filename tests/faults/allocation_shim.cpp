// Preloaded into a program, it makes one allocation fail, or all from one on. Those of the libraries that stand in
// kLeftAlone are neither counted nor touched.
//
//     TRADEBILL_FAIL_ALLOCATION=N         the Nth fails
//     TRADEBILL_FAIL_ALLOCATION=N,on      and all behind it
//     TRADEBILL_LIST_ALLOCATIONS=FILE     none fails; FILE gets the number of each that is asked for by a way through
//     the
//                                         program that none before it came, and the number of all behind them
//
// A program that wants to go on unharmed calls EndAllocationFaults, which it finds with dlsym.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>
#include <unwind.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

// Whose own way with a shortage isn't ours to mend.
constexpr std::string_view kLeftAlone[] = {
    "ld-linux",       // the loader can't start a program without memory
    "libfontconfig",  // takes what it can't hold as what isn't there; font_faces.cpp looks at it before and behind
    "libexpat",       // reads fontconfig's files
    "allocation_shim",
};

/// Plain static data: this runs before any constructor.
std::atomic<std::uint64_t> asked;
std::uint64_t failsAt = 0;  // 0: none
bool failsOn = false;
std::atomic<bool> isOver;
std::atomic<int> list{-1};

enum class Kind { Counted, LeftAlone, SystemLibrary };

/// What lies at an address, as far as it is known.
struct KnownCaller {
    std::atomic<std::uintptr_t> address;
    std::atomic<Kind> kind;
};
constexpr std::size_t kCallers = 4096;
std::array<KnownCaller, kCallers> callers;

/// Of the library that an address lies in.
std::string_view NameAt(const void* address) {
    Dl_info where{};
    if (dladdr(address, &where) == 0 || where.dli_fname == nullptr) return kLeftAlone[0];
    const std::string_view path(where.dli_fname);
    return path.substr(path.rfind('/') + 1);
}

Kind LookUp(const void* address) {
    const std::string_view name = NameAt(address);
    if (name.find("libc.so") != std::string_view::npos) return Kind::SystemLibrary;
    for (const std::string_view left : kLeftAlone) {
        if (name.find(left) != std::string_view::npos) return Kind::LeftAlone;
    }
    return Kind::Counted;
}

Kind KindOf(const void* address) {
    const auto number = reinterpret_cast<std::uintptr_t>(address);
    KnownCaller& known = callers[(number ^ number >> 12) % kCallers];
    if (known.address.load() == number) return known.kind.load();
    const Kind kind = LookUp(address);
    known.address.store(0);
    known.kind.store(kind);
    known.address.store(number);
    return kind;
}

_Unwind_Reason_Code LookBehindSystem(_Unwind_Context* context, void* found) {
    const auto* const address = reinterpret_cast<const void*>(_Unwind_GetIP(context));
    const std::string_view name = NameAt(address);
    if (name.find("allocation_shim") != std::string_view::npos) return _URC_NO_REASON;
    const Kind kind = KindOf(address);
    if (kind == Kind::SystemLibrary) return _URC_NO_REASON;
    *static_cast<Kind*>(found) = kind;
    return _URC_END_OF_STACK;
}

/// The system's library asks for memory on behalf of whoever called it.
bool IsLeftAlone(const void* caller) {
    Kind kind = KindOf(caller);
    if (kind == Kind::SystemLibrary) _Unwind_Backtrace(LookBehindSystem, &kind);
    return kind == Kind::LeftAlone;
}

/// The first allocation that libstdc++ itself makes is its reserve for exceptions that find no memory: without it there
/// is no way to tell of a shortage.
bool IsReserveForExceptions(std::size_t size) {
    constexpr std::size_t kLeast = std::size_t{60} << 10;
    static std::atomic<bool> isMade;
    return size >= kLeast && !isMade.exchange(true);
}

/// The way that leads to an allocation, as a number.
struct Way {
    std::uint64_t hash = 14695981039346656037U;
    int frames = 0;
};

_Unwind_Reason_Code AddFrame(_Unwind_Context* context, void* way) {
    constexpr int kMostFrames = 20;
    auto& found = *static_cast<Way*>(way);
    found.hash = (found.hash ^ static_cast<std::uint64_t>(_Unwind_GetIP(context))) * 1099511628211U;
    return ++found.frames < kMostFrames ? _URC_NO_REASON : _URC_END_OF_STACK;
}

/// Whether no allocation was asked for in this way before.
bool IsNewWay() {
    constexpr std::size_t kWays = std::size_t{1} << 18;
    static std::array<std::atomic<std::uint64_t>, kWays> ways;
    Way way;
    _Unwind_Backtrace(AddFrame, &way);
    for (std::size_t i = 0; i < kWays; ++i) {
        std::uint64_t none = 0;
        auto& known = ways[(way.hash + i) % kWays];
        if (known.compare_exchange_strong(none, way.hash)) return true;
        if (none == way.hash) return false;
    }
    return false;
}

void ListAsked(std::uint64_t number) {
    thread_local bool isListing = false;
    if (isListing) return;
    isListing = true;
    if (IsNewWay()) {
        std::array<char, 32> text{};
        const int size = std::snprintf(text.data(), text.size(), "%llu\n", static_cast<unsigned long long>(number));
        static_cast<void>(!::write(list.load(), text.data(), static_cast<std::size_t>(size)));
    }
    isListing = false;
}

/// Whether the allocation that `caller` asks for is to fail.
bool Fails(void* caller) {
    if (IsLeftAlone(caller)) return false;
    const std::uint64_t number = ++asked;
    if (list.load() >= 0) ListAsked(number);
    if (failsAt == 0 || isOver.load() || number < failsAt || (number > failsAt && !failsOn)) return false;
    errno = ENOMEM;
    return true;
}

}  // namespace

#define CALLER __builtin_extract_return_addr(__builtin_return_address(0))

extern "C" {

__attribute__((visibility("default"))) void EndAllocationFaults() {
    isOver.store(true);
}

__attribute__((visibility("default"))) void* malloc(std::size_t size) {
    if (!IsReserveForExceptions(size) && Fails(CALLER)) return nullptr;
    return __libc_malloc(size);
}

__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t size) {
    return Fails(CALLER) ? nullptr : __libc_calloc(count, size);
}

__attribute__((visibility("default"))) void* realloc(void* memory, std::size_t size) {
    return Fails(CALLER) ? nullptr : __libc_realloc(memory, size);
}

__attribute__((visibility("default"))) void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return Fails(CALLER) ? nullptr : __libc_memalign(alignment, size);
}

__attribute__((visibility("default"))) int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    if (Fails(CALLER)) return ENOMEM;
    *memory = __libc_memalign(alignment, size);
    return *memory == nullptr ? ENOMEM : 0;
}

__attribute__((constructor)) static void ReadOrders() {
    if (const char* const order = std::getenv("TRADEBILL_FAIL_ALLOCATION"); order != nullptr) {
        char* end = nullptr;
        failsAt = std::strtoull(order, &end, 10);
        failsOn = std::strcmp(end, ",on") == 0;
    }
    if (const char* const path = std::getenv("TRADEBILL_LIST_ALLOCATIONS"); path != nullptr) {
        list.store(::open(path, O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0666));
    }
}

__attribute__((destructor)) static void TellAll() {
    if (list.load() < 0) return;
    std::array<char, 32> text{};
    const int size = std::snprintf(text.data(), text.size(), "%llu\n", static_cast<unsigned long long>(asked.load()));
    static_cast<void>(!::write(list.load(), text.data(), static_cast<std::size_t>(size)));
}

}  // extern "C"
