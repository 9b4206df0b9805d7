// The folder that holds "Users", "sys" and "BillTemplate".
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

/// The folder of the executable, where the root is until somebody names another. Cut to 259 bytes, no separator at the
/// end; empty if the system doesn't tell it.
[[nodiscard]] std::string ProgramFolder();

/// A root folder as somebody names it: cut to 259 bytes, separators at its end dropped.
[[nodiscard]] std::string RootFolderAt(std::string_view path);

}  // namespace tradebill
