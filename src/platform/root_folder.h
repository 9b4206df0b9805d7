// The folder that holds "Users", "sys" and "BillTemplate".
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

/// The folder of the executable, until SetRootFolderPath has named another. No separator at the end.
[[nodiscard]] const std::string& RootFolder();

/// Takes another root folder, cut to 259 bytes; separators at its end are dropped.
void SetRootFolderPath(std::string_view path);

}  // namespace tradebill
