// The end of a process that can do nothing else any more.
#pragma once

#include <string_view>

namespace tradebill {

/// Says `text` on standard error and ends the process with `status`. Allocates nothing, and runs nothing of what is
/// usually done at the end.
[[noreturn]] void EndWithWords(std::string_view text, int status) noexcept;

}  // namespace tradebill
