// INI files from disk.
#pragma once

#include <optional>
#include <string>

#include "base/ini_file.h"

namespace tradebill {

/// Reads and parses a file; nothing if it can't be read.
[[nodiscard]] std::optional<CIniFile> LoadIniFile(const std::string& path);

}  // namespace tradebill
