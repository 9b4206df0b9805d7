// Where a run finds statements and leaves the page.
#pragma once

#include <string>

#include "base/day.h"

namespace tradebill {

/// Makes "Data", "Bill" and "Image" in the user's folder, one in the other, and the pictures' folder in "Image". Sets
/// BillFolder and ImageFolderName of ReportDocument. If a folder can't be made it stops there: BillFolder names that
/// folder.
void PrepareBillFolders();

/// The statement file of `day`. That of a finished day ends in "o".
[[nodiscard]] std::string StatementPath(const CalendarDay& day, bool isToday);

[[nodiscard]] std::string PagePath();

}  // namespace tradebill
