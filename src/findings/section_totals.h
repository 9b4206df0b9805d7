// The sums of a section's columns, and whether its row of totals says the same.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/number.h"
#include "findings/section_facts.h"
#include "readers/scan_listener.h"

namespace tradebill {

class CSectionTotals {
public:
    /// Forgets the section before.
    void Begin(std::string_view delimiter);

    /// Adds the columns of a row up. `line` is the row with the blanks in front of it. Returns false if one isn't a
    /// number, as a reader takes it, that was one in the first row.
    bool AddRow(std::string_view line, Row columns);

    /// The columns that are numbers in the first row, as bits.
    [[nodiscard]] unsigned Numbers() const { return numbers_; }

    /// Compares `line`, a row of totals or a count likewise, with the rows that were added. Nothing if it agrees.
    [[nodiscard]] std::optional<TotalFault> Compare(std::string_view line) const;

    /// The same for a subtotal: only the number of lots, of the rows since the last one.
    [[nodiscard]] std::optional<TotalFault> CompareLots(std::string_view row);

    /// Amounts in a row of totals that belong to a column.
    [[nodiscard]] int CountAmounts(std::string_view line) const;

    /// Lots of a row, for its subtotal.
    void AddLots(std::int32_t lots) { lots_ = WrapAdd(lots_, lots); }

private:
    struct Column {
        std::int64_t sum = 0;
        bool isNumber = false;  ///< in the first row
        std::size_t end = 0;    ///< bytes from the line's start to the column's end, in the last row
    };
    struct Amount {
        std::string_view text;
        std::int64_t steps;
        int places;
        std::size_t place;  ///< its column, where bars tell, or the bytes from the line's start to its end
    };

    [[nodiscard]] std::vector<Amount> AmountsOf(std::string_view line) const;
    [[nodiscard]] std::optional<TotalFault> CompareWithNothing(std::string_view line) const;
    [[nodiscard]] const Column* ColumnOf(const Amount& amount) const;
    [[nodiscard]] bool IsSumOfAny(const Amount& amount) const;

    static constexpr std::size_t kMostColumns = 32;
    std::array<Column, kMostColumns> columns_{};
    unsigned numbers_ = 0;
    std::size_t width_ = 0;  ///< columns in use
    bool hasBars_ = false;
    int rows_ = 0;
    std::int32_t lots_ = 0;
};

}  // namespace tradebill
