// Which fonts fontconfig finds, in a process that a test begins: where settings are read once.
#pragma once

#include <cstdlib>
#include <string>
#include <string_view>

#include "support/temp_folder.h"

namespace tradebill {

inline constexpr const char* kFontSettingsVariable = "FONTCONFIG_FILE";

/// What keeps fontconfig from every font, wherever it lies.
inline constexpr std::string_view kNoFontAtAll = "<selectfont><rejectfont><glob>*</glob></rejectfont></selectfont>";

/// The element for a folder of fonts.
inline std::string FontFolder(std::string_view folder) {
    return "<dir>" + std::string(folder) + "</dir>";
}

/// Writes settings of these elements, and of nothing else, into `folder`. Returns their file.
inline std::string WriteFontSettings(const CTempFolder& folder, std::string_view elements) {
    return folder.Write("fonts.conf", "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig>" +
                                          std::string(elements) + "</fontconfig>");
}

inline void UseFontSettings(const std::string& file) {
    ::setenv(kFontSettingsVariable, file.c_str(), 1);
}

}  // namespace tradebill
