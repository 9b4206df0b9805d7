// A host that loads the module as terminals do, asks for one report and says what the module says of it.
//
// library_host MODULE ROOT USER ACCOUNT FROM TO FORMAT [REPORTS]
//
// Exits with 1 and the module's words on the standard error unless everything was there and right. With REPORTS it
// makes this many, of which the last one counts, and looks for a file named "next report" before each but the first,
// for who watches its calls.
#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string_view>

#include "driver/report_request.h"

namespace tradebill {
namespace {

template <std::size_t size>
void Fill(char (&field)[size], std::string_view text) {
    std::copy_n(text.begin(), std::min(text.size(), size - 1), field);
}

template <typename Function>
Function* Exported(void* module, const char* name) {
    return reinterpret_cast<Function*>(::dlsym(module, name));
}

int Report(void* module, char** arguments) {
    auto* const setRootFolder = Exported<decltype(SetRootFolder)>(module, "SetRootFolder");
    auto* const generate = Exported<decltype(TryGenerateBill)>(module, "TryGenerateBill");
    auto* const lastError = Exported<decltype(TradeBillLastError)>(module, "TradeBillLastError");
    if (setRootFolder == nullptr || generate == nullptr || lastError == nullptr) return 2;
    const auto request = std::make_unique<GenerateBillRequest>();
    Fill(request->UserFolder, arguments[1]);
    Fill(request->Account, arguments[2]);
    Fill(request->StartDate, arguments[3]);
    Fill(request->EndDate, arguments[4]);
    request->StatementFormat = std::atoi(arguments[5]);
    request->StatementKind = 1;
    request->BaseMoney.EXCHANGE_RATE = 1.0;
    setRootFolder(arguments[0]);
    const int reports = arguments[6] == nullptr ? 1 : std::atoi(arguments[6]);
    std::uint32_t code = generate(request.get());
    for (int i = 1; i < reports; ++i) {
        static_cast<void>(::access("next report", F_OK));
        code = generate(request.get());
    }
    const std::string_view words = lastError();
    if (code == 0 && words.empty()) return 0;
    std::cerr << "code " << code << ": " << words << '\n';
    return 1;
}

}  // namespace
}  // namespace tradebill

int main(int count, char** arguments) {
    if (count != 8 && count != 9) return 2;
    void* const module = ::dlopen(arguments[1], RTLD_NOW);
    if (module == nullptr) {
        std::cerr << ::dlerror() << '\n';
        return 1;
    }
    return tradebill::Report(module, arguments + 2);
}
