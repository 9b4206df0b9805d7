#include "intake/workbook.h"

#include <string_view>

#include "intake/linux/xls_workbook.h"
#include "intake/linux/xlsx_workbook.h"
#include "intake/workbook_start.h"

namespace tradebill {

bool CanReadWorkbooks() {
    return true;
}

Workbook ReadWorkbook(std::string_view bytes) {
    Workbook workbook;
    if (bytes.starts_with(kZipStart)) {
        ReadXlsx(bytes, workbook);
    } else {
        ReadXls(bytes, workbook);
    }
    if (!workbook.refusal.empty()) workbook.sheets.clear();
    return workbook;
}

}  // namespace tradebill
