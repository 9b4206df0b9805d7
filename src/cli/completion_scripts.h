// What shells are told so that they complete the program's command lines: they ask the program itself (`.complete`).
#pragma once

#include <span>
#include <string_view>

namespace tradebill {

struct CompletionScript {
    std::string_view shell;  ///< "bash"
    std::string_view text;
};

[[nodiscard]] std::span<const CompletionScript> CompletionScripts();

}  // namespace tradebill
