// A workbook as cells, whichever of its two forms it is saved in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

struct CellPlace {
    std::uint32_t row = 0;     ///< from 0
    std::uint32_t column = 0;  ///< from 0

    auto operator<=>(const CellPlace&) const = default;
};

/// "B7"
[[nodiscard]] std::string CellName(CellPlace place);

struct WorkbookCell {
    CellPlace place = {};
    std::string_view text =
        {};                 ///< UTF-8, with the blanks around it; a number as the shortest decimal without an exponent
    bool isNumber = false;  ///< a day may be one too: days since that of the number 0
};

struct WorkbookSheet {
    std::string name;                 ///< UTF-8
    std::vector<WorkbookCell> cells;  ///< that hold something, by row and column, each place once
};

/// Hidden sheets, rows and columns count like all others, and of merged cells the first holds the text.
struct Workbook {
    std::string_view form = {};  ///< "xls" or "xlsx"
    std::vector<WorkbookSheet> sheets = {};
    std::int64_t dayOfZero = 0;      ///< what the number 0 is as a day, by DayNumberOf
    bool hasMacros = false;          ///< which are left alone
    std::string refusal = {};        ///< why there are no sheets, a sentence in UTF-8; empty: there are
    std::list<std::string> texts{};  ///< that cells point into

    Workbook() = default;
    Workbook(Workbook&&) = default;
    Workbook& operator=(Workbook&&) = default;
    ~Workbook() = default;
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;
};

/// Whether a file with these bytes is a workbook of either form, or another document in the same wrapping.
[[nodiscard]] bool BeginsLikeWorkbook(std::string_view bytes);

/// Whether this program reads workbooks at all.
[[nodiscard]] bool CanReadWorkbooks();

/// Reads all sheets of a workbook. A formula counts by the value beside it; one without refuses the workbook.
///
/// REQUIRES: BeginsLikeWorkbook(bytes).
[[nodiscard]] Workbook ReadWorkbook(std::string_view bytes);

/// Fills a workbook, sheet by sheet, with cells in any order.
class CWorkbookFiller {
public:
    static constexpr std::size_t kMostCells = 1'000'000;  ///< of all sheets; a busy day has a hundredth
    static constexpr std::size_t kMostSheets = 256;
    static constexpr std::size_t kLongestText = 256;  ///< bytes, of which no column and no label has so many

    /// REQUIRES: `workbook` outlives this.
    explicit CWorkbookFiller(Workbook& workbook) : workbook_(workbook) {}

    /// Begins a sheet; its predecessor is put in order.
    void BeginSheet(std::string name);

    /// A place for a text that lasts as long as the workbook.
    [[nodiscard]] std::string_view Keep(std::string_view text);

    /// Adds a cell with a text that lasts; one of blanks is passed over, and a long one is cut. Of two cells in one
    /// place the later one counts.
    ///
    /// REQUIRES: a sheet was begun.
    void AddText(CellPlace place, std::string_view lasting);
    void AddNumber(CellPlace place, double number);

    /// Puts the last sheet in order.
    void End();

    /// Whether there are more cells or sheets than a workbook may have; the refusal says so then.
    [[nodiscard]] bool IsTooLarge() const { return isTooLarge_; }

private:
    void Add(const WorkbookCell& cell);
    void TellTooLarge(const std::string& text);

    Workbook& workbook_;
    std::size_t cells_ = 0;
    bool isTooLarge_ = false;
};

}  // namespace tradebill
