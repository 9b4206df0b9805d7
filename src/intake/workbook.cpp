#include "intake/workbook.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "base/text.h"
#include "intake/workbook_start.h"

namespace tradebill {
namespace {

/// The shortest decimal that is `number`; empty of what is none, or has more digits than any figure.
std::string DecimalOf(double number) {
    std::array<char, 64> digits{};  // NOLINT: room for 17 digits at either side of the point
    if (!std::isfinite(number)) return {};
    const auto [end, fault] =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, std::chars_format::fixed);
    return fault == std::errc() ? std::string(digits.data(), end) : std::string();
}

/// By place; of several cells in one place the last.
void PutInOrder(std::vector<WorkbookCell>& cells) {
    std::ranges::stable_sort(cells, {}, &WorkbookCell::place);
    std::size_t kept = 0;
    for (const WorkbookCell& cell : cells) {
        if (kept > 0 && cells[kept - 1].place == cell.place) --kept;
        cells[kept++] = cell;
    }
    cells.resize(kept);
}

}  // namespace

std::string CellName(CellPlace place) {
    constexpr std::uint32_t kLetters = 26;
    std::string letters;
    for (std::uint32_t rest = place.column + 1; rest > 0; rest = (rest - 1) / kLetters) {
        letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % kLetters));
    }
    return letters + std::to_string(place.row + 1);
}

bool BeginsLikeWorkbook(std::string_view bytes) {
    return bytes.starts_with(kZipStart) || bytes.starts_with(kCompoundStart);
}

void CWorkbookFiller::BeginSheet(std::string name) {
    End();
    if (workbook_.sheets.size() == kMostSheets) {
        return TellTooLarge("it has more than " + std::to_string(kMostSheets) + " sheets");
    }
    workbook_.sheets.push_back({.name = std::move(name), .cells = {}});
}

std::string_view CWorkbookFiller::Keep(std::string_view text) {
    return workbook_.texts.emplace_back(text);
}

void CWorkbookFiller::AddText(CellPlace place, std::string_view lasting) {
    lasting = lasting.substr(0, kLongestText);
    if (!Trim(lasting).empty()) Add({.place = place, .text = lasting});
}

void CWorkbookFiller::AddNumber(CellPlace place, double number) {
    const std::string text = DecimalOf(number);
    if (!text.empty() && !isTooLarge_) Add({.place = place, .text = Keep(text), .isNumber = true});
}

void CWorkbookFiller::End() {
    if (!workbook_.sheets.empty()) PutInOrder(workbook_.sheets.back().cells);
}

void CWorkbookFiller::Add(const WorkbookCell& cell) {
    if (isTooLarge_) return;
    if (++cells_ > kMostCells) return TellTooLarge("it has more than " + std::to_string(kMostCells) + " cells");
    workbook_.sheets.back().cells.push_back(cell);
}

void CWorkbookFiller::TellTooLarge(const std::string& text) {
    isTooLarge_ = true;
    workbook_.refusal = text;
}

}  // namespace tradebill
