#include "cli/standard_input.h"

#include <string>
#include <utility>

#include "cli/usage_error.h"
#include "platform/standard_streams.h"

namespace tradebill {

std::string StandardInputText(const std::string& expected) {
    auto text = ReadStandardInput();
    if (!text) throw CUsageError(std::string("can't read ") + kStandardInputName + ": expected " + expected);
    return *std::move(text);
}

}  // namespace tradebill
