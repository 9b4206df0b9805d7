// Which workbook is the monitoring centre's of one day, and which of its sheets is which.
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

struct Workbook;
struct WorkbookSheet;

/// The sheet of a name, blanks in it aside; null if there is none.
[[nodiscard]] const WorkbookSheet* FindSheet(const Workbook& workbook, std::string_view name);

/// The sheet with the account's figures, by its name or by what stands in it; null if there is none.
[[nodiscard]] const WorkbookSheet* FindMoneySheet(const Workbook& workbook);

/// Why the workbook isn't that of one day in the mark-to-market form, a sentence; empty if it is, and then it has a
/// sheet with the account's figures.
[[nodiscard]] std::string WhyNoDay(const Workbook& workbook);

}  // namespace tradebill
