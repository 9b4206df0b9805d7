// Standard input in the place of a file, where an option or an argument says "-".
#pragma once

#include <string>

namespace tradebill {

/// How standard output is named among the outputs, and standard input among the inputs. A file of that name is "./-".
inline constexpr const char* kStandardStream = "-";

/// As messages name it.
inline constexpr const char* kStandardInputName = "standard input";

/// All of it. Throws CUnreadableInput if it can't be read to its end.
[[nodiscard]] std::string StandardInputText();

}  // namespace tradebill
