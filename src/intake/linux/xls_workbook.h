// Workbooks of the older form, .xls.
#pragma once

#include <string_view>

namespace tradebill {

struct Workbook;

/// Fills an empty workbook, or its refusal.
void ReadXls(std::string_view bytes, Workbook& workbook);

}  // namespace tradebill
