// The cells of an older workbook as libfreexl reads them. It trusts what it reads, so it works in a process of its own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "intake/workbook.h"

namespace tradebill {

struct XlsCell {
    CellPlace place = {};
    bool isNumber = false;
    double number = 0;
    std::string_view text = {};  ///< UTF-8, in the bytes of the cells
};

struct XlsSheet {
    std::string name = {};  ///< UTF-8
    std::vector<XlsCell> cells = {};
};

struct XlsCells {
    std::string bytes = {};
    bool countsFrom1904 = false;
    std::vector<XlsSheet> sheets = {};
};

/// What came of reading the cells.
enum class XlsState {
    Read,
    Damaged,
    GivenUp,  ///< it crashed, or took more time or memory than a workbook may
};

/// All cells but those of formulas go into `cells`.
[[nodiscard]] XlsState ReadXlsCells(std::string_view workbook, XlsCells& cells);

}  // namespace tradebill
