// Where the parts of a newer workbook are: its sheets, its texts, its macros.
#pragma once

#include <string>
#include <vector>

namespace tradebill {

class CZipArchive;

struct XlsxSheetPart {
    std::string name;  ///< as users see it
    std::string part;  ///< of the archive
};

struct XlsxParts {
    std::vector<XlsxSheetPart> sheets = {};
    std::string texts = {};  ///< empty: there is none
    bool countsFrom1904 = false;
    bool hasMacros = false;
};

/// No sheets, if the archive is no workbook or damaged.
[[nodiscard]] XlsxParts FindXlsxParts(CZipArchive& archive);

}  // namespace tradebill
