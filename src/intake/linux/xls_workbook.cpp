#include "intake/linux/xls_workbook.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/day_number.h"
#include "intake/linux/compound_file.h"
#include "intake/linux/xls_cells.h"
#include "intake/linux/xls_records.h"
#include "intake/workbook.h"

namespace tradebill {
namespace {

constexpr const char* kDamaged = "it is a workbook that is damaged or cut off";

void AddFormulas(const XlsRecords& records, const std::string& sheet, CWorkbookFiller& filler) {
    const auto found = records.formulas.find(sheet);
    if (found == records.formulas.end()) return;
    for (const XlsFormula& formula : found->second) {
        if (formula.text) {
            filler.AddText(formula.place, filler.Keep(*formula.text));
        } else {
            filler.AddNumber(formula.place, formula.number);
        }
    }
}

void Fill(const XlsCells& cells, const XlsRecords& records, Workbook& workbook) {
    workbook.dayOfZero = DayNumberOf(cells.countsFrom1904 ? "19040101" : "18991230").value_or(0);
    CWorkbookFiller filler(workbook);
    for (const XlsSheet& sheet : cells.sheets) {
        filler.BeginSheet(sheet.name);
        for (const XlsCell& cell : sheet.cells) {
            if (filler.IsTooLarge()) return;
            if (cell.isNumber) {
                filler.AddNumber(cell.place, cell.number);
            } else {
                filler.AddText(cell.place, filler.Keep(cell.text));
            }
        }
        AddFormulas(records, sheet.name, filler);
    }
    filler.End();
}

/// The stream with the cells; the records say why if it can't be read.
std::optional<std::string> StreamOf(const CCompoundFile& file) {
    auto stream = file.Stream("Workbook");
    return stream ? std::move(stream) : file.Stream("Book");
}

std::string WhyNoStream(const CCompoundFile& file) {
    if (file.Has("EncryptedPackage")) return "it is encrypted: save it without a password";
    if (!file.IsSound() || file.Has("Workbook") || file.Has("Book")) return kDamaged;
    return "it is a document of Office, and no workbook";
}

}  // namespace

void ReadXls(std::string_view bytes, Workbook& workbook) {
    workbook.form = "xls";
    const CCompoundFile wrapping(bytes);
    const auto stream = wrapping.IsSound() ? StreamOf(wrapping) : std::nullopt;
    if (!stream) {
        workbook.refusal = WhyNoStream(wrapping);
        return;
    }
    workbook.hasMacros = wrapping.Has("_VBA_PROJECT_CUR") || wrapping.Has("_VBA_PROJECT");
    const XlsRecords records = ReadXlsRecords(*stream);
    workbook.refusal = records.refusal;
    if (!workbook.refusal.empty()) return;
    XlsCells cells;
    switch (ReadXlsCells(bytes, cells)) {
        case XlsState::Read:
            return Fill(cells, records, workbook);
        case XlsState::Damaged:
            workbook.refusal = kDamaged;
            return;
        case XlsState::GivenUp:
            workbook.refusal = "it is a workbook that is damaged, or takes too much time or memory to read";
    }
}

}  // namespace tradebill
