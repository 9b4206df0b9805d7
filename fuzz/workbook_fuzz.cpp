// Any bytes as a workbook that is imported: as a file, as the parts of a zip file, and as cells. What comes out is a
// statement in the bilingual layout, or nothing.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz_target.h"
#include "intake/decoded_text.h"
#include "intake/file_plan.h"
#include "intake/name_facts.h"
#include "intake/opening_trades.h"
#include "intake/text_split.h"
#include "intake/workbook.h"
#include "intake/workbook_day.h"
#include "intake/workbook_text.h"
#include "readers/layout_table.h"
#include "support/zip_file.h"

namespace tradebill {
namespace {

constexpr std::string_view kUnits = "[UNITS]\nlc=1\ni=100\nSR=10\n";

void CheckCells(const Workbook& workbook) {
    const auto isOutOfOrder = [](const WorkbookCell& left, const WorkbookCell& right) {
        return left.place >= right.place;
    };
    for (const WorkbookSheet& sheet : workbook.sheets) {
        Require(std::ranges::adjacent_find(sheet.cells, isOutOfOrder) == sheet.cells.end(), "each place is there once");
    }
}

/// All of a day's texts can be put into a statement of that day.
void CheckDay(const Workbook& workbook) {
    const WorkbookDay day = ReadWorkbookDay(workbook);
    if (!day.refusal.empty()) return;
    Require(!day.day || IsCalendarDay(*day.day), "days are days");
    const WorkbookText printed = PrintWorkbookDay(day, {.account = "9001", .day = "20240102", .units = kUnits});
    const DecodedText decoded = DecodeText(printed.text);
    if (!decoded.refusal.empty()) return;
    COpeningTrades trades;
    trades.SetDay("20240102", decoded.text);
    static_cast<void>(SplitStatements(decoded.text));
}

void CheckFile(std::string_view bytes) {
    if (!BeginsLikeWorkbook(bytes)) return;
    const Workbook workbook = ReadWorkbook(bytes);
    Require(workbook.refusal.empty() || workbook.sheets.empty(), "a refused workbook has no sheets");
    CheckCells(workbook);
    CheckDay(workbook);
    const FilePlan plan = PlanFile(bytes, "9001_2024-01-02.xls", std::nullopt, {.units = kUnits});
    if (!plan.refusal.empty()) return;
    Require(IsAccountName(plan.account), "the account can be part of a name");
    Require(plan.statements.size() == 1, "a workbook is of one day");
    Require(IsCalendarDay(plan.statements.front().day), "its day is one");
}

/// Texts that cells share, and sheets, in a sound frame.
std::string FramedZip(CFuzzInput& input) {
    constexpr std::string_view kKind = "http://x/";
    const auto relation = [&](const std::string& id, const std::string& kind, const std::string& target) {
        return "<Relationship Id=\"" + id + "\" Type=\"" + std::string(kKind) + kind + "\" Target=\"" + target + "\"/>";
    };
    std::vector<ZipPart> parts = {
        {.name = "_rels/.rels", .bytes = "<R>" + relation("a", "officeDocument", "xl/workbook.xml") + "</R>"},
        {.name = "xl/workbook.xml",
         .bytes = "<workbook><sheets><sheet name=\"客户交易结算日报\" r:id=\"a\"/><sheet name=\"持仓明细\" "
                  "r:id=\"b\"/></sheets></workbook>"},
        {.name = "xl/_rels/workbook.xml.rels",
         .bytes = "<R>" + relation("a", "worksheet", "1.xml") + relation("b", "worksheet", "2.xml") +
                  relation("c", "sharedStrings", "s.xml") + "</R>"}};
    for (const char* const name : {"xl/s.xml", "xl/1.xml", "xl/2.xml"}) {
        parts.push_back({.name = name, .bytes = std::string(input.Text())});
    }
    return ZipFile(parts);
}

/// A byte for a row, or for a sheet that begins; one for a column, and a text, or a number behind "#".
void CheckMadeCells(CFuzzInput& input) {
    constexpr std::uint8_t kBeginsSheet = 0xFF;
    Workbook workbook;
    CWorkbookFiller filler(workbook);
    filler.BeginSheet("客户交易结算日报");
    while (!input.IsEmpty()) {
        const std::uint8_t row = input.Byte();
        if (row == kBeginsSheet) {
            filler.BeginSheet(std::string(input.Text()));
            continue;
        }
        const CellPlace place{row, input.Byte()};
        const std::string_view text = input.Text();
        if (text.starts_with('#')) {
            filler.AddNumber(place, std::strtod(std::string(text.substr(1)).c_str(), nullptr));
        } else {
            filler.AddText(place, filler.Keep(text));
        }
    }
    filler.End();
    CheckCells(workbook);
    CheckDay(workbook);
}

}  // namespace

void FuzzWorkbook(std::string_view bytes) {
    CFuzzInput input(bytes);
    switch (input.Choice(3)) {
        case 0:
            return CheckFile(input.Rest());
        case 1:
            return CheckFile(FramedZip(input));
        default:
            return CheckMadeCells(input);
    }
}

}  // namespace tradebill
