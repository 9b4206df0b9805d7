// Workbooks of the newer form, .xlsx.
#pragma once

#include <string_view>

namespace tradebill {

struct Workbook;

/// Fills an empty workbook, or its refusal.
void ReadXlsx(std::string_view bytes, Workbook& workbook);

}  // namespace tradebill
