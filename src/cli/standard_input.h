// Standard input in the place of a file, where an option or an argument says "-".
#pragma once

#include <string>

namespace tradebill {

/// As messages name it.
inline constexpr const char* kStandardInputName = "standard input";

/// All of it. Throws CUsageError if it can't be read; `expected` says what should stand there.
[[nodiscard]] std::string StandardInputText(const std::string& expected);

}  // namespace tradebill
