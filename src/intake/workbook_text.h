// A day's workbook as the text of a statement in the bilingual layout, which the module reads as any other.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "findings/finding.h"

namespace tradebill {

class COpeningSource;
struct WorkbookDay;

struct WorkbookTextSettings {
    std::string account;                 ///< whose statement it is
    std::string day;                     ///< yyyymmdd
    COpeningSource* openings = nullptr;  ///< nothing is known of other days without it
    std::string_view units = {};         ///< an INI file with [UNITS], for products whose trades don't tell
};

struct WorkbookText {
    std::string text;                       ///< UTF-8, lines end in a line feed
    std::vector<Finding> findings = {};     ///< what the workbook leaves open or contradicts; without a file
    std::vector<std::string> unknown = {};  ///< contracts without a known exchange and name, each once
};

/// REQUIRES: the workbook wasn't refused.
[[nodiscard]] WorkbookText PrintWorkbookDay(const WorkbookDay& day, const WorkbookTextSettings& settings);

}  // namespace tradebill
