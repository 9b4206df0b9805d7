#include "intake/workbook.h"

#include <string_view>

namespace tradebill {

bool CanReadWorkbooks() {
    return false;
}

Workbook ReadWorkbook(std::string_view) {
    Workbook workbook;
    workbook.refusal = "it is a workbook, and the program for Windows reads none: import it on Linux";
    return workbook;
}

}  // namespace tradebill
