#include "cli/voice.h"

#include <iostream>
#include <string_view>

#include "cli/shown_text.h"
#include "requests/usage_error.h"

namespace tradebill {

void Say(std::string_view text) {
    std::cerr << "tradebill: " << ShownText(text) << "\n";
}

void Warn(std::string_view text) {
    std::cerr << "tradebill: ";
    SendColoured(std::cerr, Colour::Yellow, "warning:");
    std::cerr << " " << ShownText(text) << "\n";
}

int Fail(std::string_view text) {
    SendColoured(std::cerr, Colour::Red, "tradebill:");
    std::cerr << " " << ShownText(text) << "\n";
    return kExitFailed;
}

}  // namespace tradebill
