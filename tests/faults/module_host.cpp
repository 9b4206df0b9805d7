// A host that runs the module twice: once while something is short, and once more when all is there again. What the
// first run painted and wrote is kept beside it as Image.first.
//
//     module_host LIBRARY ROOT ACCOUNT FROM TO FORMAT KIND [DESCRIPTORS]
//
// With DESCRIPTORS the first run has no more than that many; without them the shortage is the allocation shim's. Prints
// a line for each run: its code, the pictures that it saved, and two repainted charts as sums of their pixels; then
// what it says that it lacks. Exits with 0 if no run says that something went wrong, with 1 if one does.
#include <dlfcn.h>
#include <sys/resource.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <numeric>

#include "driver/report_request.h"

namespace tradebill {
namespace {

constexpr std::int32_t kWidth = 640;
constexpr std::int32_t kHeight = 300;
constexpr rlim_t kEnoughDescriptors = 1024;

using StretchFunction = void(ChartTarget* target, const ChartRect* rect, std::int32_t width, std::int32_t height);

/// The module's functions; null where they can't be found.
struct Module {
    explicit Module(void* library)
        : run(Find<decltype(run)>(library, "TryGenerateBill")),
          lastError(Find<decltype(lastError)>(library, "TradeBillLastError")),
          lastCounts(Find<decltype(lastCounts)>(library, "TradeBillLastCounts")),
          setRoot(Find<decltype(setRoot)>(library, "SetRootFolder")),
          stretchEquity(Find<StretchFunction*>(library, "StretchZjGraph")),
          stretchRealised(Find<StretchFunction*>(library, "StretchOffsetGraph")) {}

    template <class Function>
    static Function Find(void* library, const char* name) {
        return reinterpret_cast<Function>(::dlsym(library, name));
    }

    [[nodiscard]] bool IsWhole() const {
        return run != nullptr && lastError != nullptr && lastCounts != nullptr && setRoot != nullptr &&
               stretchEquity != nullptr && stretchRealised != nullptr;
    }

    std::uint32_t (*run)(const GenerateBillRequest* request);
    const char* (*lastError)();
    void (*lastCounts)(TradeBillCounts* counts);
    void (*setRoot)(const char* path);
    StretchFunction* stretchEquity;
    StretchFunction* stretchRealised;
};

/// A sum over the pixels of a chart, or its status, negative.
long long Repainted(StretchFunction* stretch) {
    static std::array<std::uint32_t, std::size_t{kWidth} * kHeight> pixels;
    pixels.fill(0);
    ChartTarget target{pixels.data(), kWidth, kHeight, kWidth * std::int32_t{sizeof(std::uint32_t)}, kChartDone};
    const ChartRect rect{0, 0, kWidth, kHeight};
    stretch(&target, &rect, kWidth, kHeight);
    if (target.LastStatus != kChartDone) return -target.LastStatus;
    const std::uint64_t sum = std::accumulate(pixels.begin(), pixels.end(), std::uint64_t{0},
                                              [](std::uint64_t so, std::uint32_t pixel) { return so * 31 + pixel; });
    return static_cast<long long>(sum >> 2);
}

/// Whether nothing went wrong.
bool RunAndTell(const Module& module, const GenerateBillRequest& request, const char* name) {
    const std::uint32_t code = module.run(&request);
    TradeBillCounts counts{};
    counts.Size = sizeof counts;
    module.lastCounts(&counts);
    const long long equity = Repainted(module.stretchEquity);
    const long long realised = Repainted(module.stretchRealised);
    std::printf("%s: code 0x%08X, %u statements, %u pictures, charts %lld %lld\n%s\n", name, code, counts.Statements,
                counts.Pictures, equity, realised, module.lastError());
    return code == 0 && module.lastError()[0] == '\0' && equity >= 0 && realised >= 0;
}

void LimitDescriptors(rlim_t most) {
    rlimit limit{};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = most < limit.rlim_max ? most : limit.rlim_max;
    ::setrlimit(RLIMIT_NOFILE, &limit);
}

void SetImageAside(const char* root) {
    std::array<char, 4096> from{};
    std::array<char, 4200> to{};
    std::snprintf(from.data(), from.size(), "%s/Users/demo/Data/Bill/Image", root);
    std::snprintf(to.data(), to.size(), "%s.first", from.data());
    std::rename(from.data(), to.data());
}

template <std::size_t N>
void SetField(char (&field)[N], const char* text) {
    std::snprintf(field, N, "%s", text);
}

int RunBoth(int argc, char** argv) {
    void* const library = ::dlopen(argv[1], RTLD_NOW);
    if (library == nullptr || !Module(library).IsWhole()) {
        std::printf("the module can't be loaded\n");
        return 1;
    }
    const Module module(library);
    const char* const root = argv[2];
    static GenerateBillRequest request;
    SetField(request.UserFolder, "demo");
    SetField(request.Account, argv[3]);
    SetField(request.StartDate, argv[4]);
    SetField(request.EndDate, argv[5]);
    request.StatementFormat = std::atoi(argv[6]);
    request.StatementKind = std::atoi(argv[7]);
    module.setRoot(root);
    if (argc > 8) LimitDescriptors(static_cast<rlim_t>(std::atoi(argv[8])));
    const bool isFirstWell = RunAndTell(module, request, "first");
    LimitDescriptors(kEnoughDescriptors);
    if (auto* const end = Module::Find<void (*)()>(RTLD_DEFAULT, "EndAllocationFaults"); end != nullptr) end();
    SetImageAside(root);
    module.setRoot(root);
    const bool isSecondWell = RunAndTell(module, request, "second");
    return isFirstWell && isSecondWell ? 0 : 1;
}

}  // namespace
}  // namespace tradebill

int main(int argc, char** argv) {
    constexpr int kLeastArguments = 8;
    static std::array<char, 1 << 16> output;  // so that printing asks for no memory
    if (argc < kLeastArguments) return 2;
    std::setvbuf(stdout, output.data(), _IOFBF, output.size());
    const int exit = tradebill::RunBoth(argc, argv);
    std::fflush(stdout);
    return exit;
}
