// What a statement template says that no reader will understand as it was meant.
#pragma once

#include <string>
#include <vector>

#include "base/ini_file.h"

namespace tradebill {

struct TemplateFinding {
    int line;      ///< counted from 1; 0 for what is missing altogether
    bool isError;  ///< a statement will be read wrongly or not at all; the others only deserve a look
    std::string text;
};

/// Findings in the order of their lines.
[[nodiscard]] std::vector<TemplateFinding> CheckTemplate(const CIniFile& file);

}  // namespace tradebill
