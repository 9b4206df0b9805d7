// The small INI files that the program takes: UTF-8, and checked line by line.
#pragma once

#include <string>
#include <string_view>

#include "base/ini_file.h"
#include "export/file_digest.h"

namespace tradebill {

/// An INI file with its name, so that messages can point into it.
struct InputIni {
    std::string path;
    CIniFile file;
    FileDigest digest = {};  ///< of its bytes

    /// "FILE, line N"
    [[nodiscard]] std::string Place(int line) const { return path + ", line " + std::to_string(line); }
};

/// Reads a UTF-8 INI file. Throws as InputFileText, and CUsageError with the line of what is neither section, key nor
/// comment.
[[nodiscard]] InputIni LoadInputIni(const std::string& path);

/// The same; "-" is standard input, which throws as StandardInputText.
[[nodiscard]] InputIni LoadInputIniOrStream(const std::string& path);

/// The section that the file must have. Throws CUsageError if it is missing.
[[nodiscard]] const CIniFile::Section& RequiredSection(const InputIni& ini, std::string_view name);

/// A key or value as GBK. Throws CUsageError for a character that GBK lacks.
[[nodiscard]] std::string GbkTextOf(const InputIni& ini, const CIniFile::Entry& entry, std::string_view text);

}  // namespace tradebill
