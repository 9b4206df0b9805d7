// Any bytes as the program's small files: its request, live figures, units and products. All that they come to is a
// request within its bounds, or a word to the user.
#include <array>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>

#include "base/text.h"
#include "driver/report_days.h"
#include "driver/report_request.h"
#include "fuzz_target.h"
#include "report/request_copy.h"
#include "requests/report_options.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr const char* kUser = "u";

/// A root folder with one user, made once.
const std::string& Root() {
    static const std::string root = [] {
        std::filesystem::create_directories(FuzzFolder() + "/root/Users/" + kUser + "/Data/Bill");
        return FuzzFolder() + "/root";
    }();
    return root;
}

ReportOptions OptionsOf(CFuzzInput& input) {
    const std::size_t files = input.Choice(8);
    ReportOptions options;
    options.root = Root();
    options.requestFile = WriteFuzzFile("request.ini", input.Text());
    if ((files & 1) != 0) options.liveFile = WriteFuzzFile("live.ini", input.Text());
    if ((files & 2) != 0) options.unitFile = WriteFuzzFile("units.ini", input.Text());
    if ((files & 4) != 0) options.productFile = WriteFuzzFile("products.ini", input.Text());
    options.user = kUser;
    return options;
}

void RequireBounds(const GenerateBillRequest& request) {
    Require(request.CurrencyCount >= 0 && request.CurrencyCount <= kCurrencyMoneyCapacity, "currencies are 0 to 100");
    Require(request.Dpi >= 0 && request.Dpi <= 1200, "the resolution is 0 to 1200");
    Require(request.MarginOffsetFlag == 0 || request.MarginOffsetFlag == 1, "the margin is offset or it isn't");
    Require(!FieldText(request.Account).empty(), "an account is named");
    for (const std::string_view name : {FieldText(request.Account), FieldText(request.TemplateName)}) {
        Require(name.find_first_of("/\\") == std::string_view::npos && name != "..", "names lead nowhere else");
    }
    const ReportRange days = ReportDaysOf(request);  // doesn't throw
    Require(days.first <= days.last, "the first day isn't behind the last");
}

void RequireWords(const std::exception& error) {
    Require(!std::string_view(error.what()).empty(), "wrong use is told");
}

}  // namespace

void FuzzRequest(std::string_view bytes) {
    CFuzzInput input(bytes);
    const ReportOptions options = OptionsOf(input);
    try {
        const PreparedRequest prepared = PrepareRequest(options);
        RequireBounds(prepared.request);
        const std::string_view contract = input.Text();
        Require(prepared.products->UnitOf(contract, "") == prepared.products->UnitOf(contract, ""),
                "a unit stays what it is");
        static_cast<void>(prepared.products->CodeOf(contract));
    } catch (const CUsageError& error) {
        RequireWords(error);
    }
}

}  // namespace tradebill
