// One target for the fuzzer: "--target=NAME" among its arguments says which.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "fuzz_target.h"

namespace {

const tradebill::FuzzTarget* chosen = nullptr;

constexpr std::string_view kOption = "--target=";

}  // namespace

extern "C" int LLVMFuzzerInitialize(const int* count, char*** arguments) {
    for (int i = 1; i < *count; ++i) {
        const std::string_view argument = (*arguments)[i];
        if (argument.starts_with(kOption)) chosen = tradebill::FindFuzzTarget(argument.substr(kOption.size()));
    }
    if (chosen == nullptr) {
        std::fprintf(stderr, "--target=NAME is missing, or there is none of this name\n");
        std::exit(2);
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    chosen->run({reinterpret_cast<const char*>(data), size});
    return 0;
}
