// The cells of a row as files have them: texts in UTF-8, days as yyyy-mm-dd.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "export/table.h"

namespace tradebill {

/// Nothing, a text, a finite number that isn't -0, or a whole one. A text is never empty.
using CellValue = std::variant<std::monostate, std::string_view, double, std::int64_t>;

/// Works row by row in memory that it keeps: once it has grown, a cell costs no allocation, unless its text is a long
/// one that isn't ASCII.
class CRowValues {
public:
    /// Valid until the next call, and as long as the texts of `cells`.
    [[nodiscard]] std::span<const CellValue> Of(std::span<const ExportCell> cells);

private:
    /// A text met before, in both encodings.
    struct Known {
        std::string gbk;
        std::string utf8;
    };
    static constexpr std::size_t kKnown = 256;  ///< a power of two
    static constexpr std::size_t kLongestKnown = 32;

    void MakeRoom(std::span<const ExportCell> cells);
    [[nodiscard]] std::string_view Keep(std::string_view text);
    [[nodiscard]] std::string_view Decoded(std::string_view gbk);

    CellValue ValueOf(std::monostate) { return {}; }
    CellValue ValueOf(GbkCell gbk);
    CellValue ValueOf(Utf8Cell utf8);
    CellValue ValueOf(DayCell day);
    CellValue ValueOf(double number);
    CellValue ValueOf(std::int64_t count) { return count; }

    std::vector<CellValue> values_;
    std::string bytes_;                  // of texts that are made here; never grows within a row
    std::array<Known, kKnown> known_{};  // names of exchanges and products come again and again; by their hash
};

}  // namespace tradebill
