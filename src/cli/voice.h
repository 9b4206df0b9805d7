// What the program says on standard error: a line at a time behind its name, warnings and failures in colour where
// somebody sees colours. Texts may hold what files and users say: they are shown as ShownText shows them.
#pragma once

#include <string_view>

namespace tradebill {

/// What the user may like to know.
void Say(std::string_view text);

/// What may be wrong.
void Warn(std::string_view text);

/// What failed. Returns kExitFailed.
int Fail(std::string_view text);

}  // namespace tradebill
