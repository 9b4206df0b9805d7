// What the records of an older workbook say beside the cells that libfreexl reads: whether they can be read at all, and
// the values beside formulas, which it leaves out.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "intake/workbook.h"

namespace tradebill {

/// What a formula came to.
struct XlsFormula {
    CellPlace place = {};
    double number = 0;
    std::optional<std::string> text = {};  ///< UTF-8; nothing: it is the number
};

struct XlsRecords {
    std::map<std::string, std::vector<XlsFormula>> formulas = {};  ///< by the name of their sheet
    std::string refusal = {};                                      ///< why the workbook can't be read; empty: it can
};

/// Walks through the stream of a workbook, all of it.
[[nodiscard]] XlsRecords ReadXlsRecords(std::string_view stream);

}  // namespace tradebill
