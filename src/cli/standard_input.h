// Standard input in the place of a file, where an option or an argument says "-".
#pragma once

#include <string>

namespace tradebill {

/// As messages name it.
inline constexpr const char* kStandardInputName = "standard input";

/// All of it. Throws CUnreadableInput if it can't be read to its end.
[[nodiscard]] std::string StandardInputText();

}  // namespace tradebill
