#include "requests/standard_input.h"

#include <string>
#include <utility>

#include "platform/standard_streams.h"
#include "platform/system_error.h"
#include "requests/input_file.h"

namespace tradebill {

std::string StandardInputText() {
    ForgetSystemError();
    auto text = ReadStandardInput();
    if (!text) throw CUnreadableInput(kStandardInputName, SystemErrorText(LastSystemError()));
    return *std::move(text);
}

}  // namespace tradebill
