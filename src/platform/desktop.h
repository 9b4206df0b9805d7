// The desktop that the program runs on.
#pragma once

#include <string>

namespace tradebill {

/// Shows a file with the program that the desktop has for it, and doesn't wait. False if there is no opener.
[[nodiscard]] bool OpenOnDesktop(const std::string& path);

}  // namespace tradebill
