#include "cli/standard_input.h"

#include <string>
#include <utility>

#include "cli/input_file.h"
#include "platform/standard_streams.h"
#include "platform/system_error.h"

namespace tradebill {

std::string StandardInputText() {
    ForgetSystemError();
    auto text = ReadStandardInput();
    if (!text) throw CUnreadableInput(kStandardInputName, SystemErrorText(LastSystemError()));
    return *std::move(text);
}

}  // namespace tradebill
