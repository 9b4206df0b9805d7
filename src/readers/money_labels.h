// Money sections that are blocks of labels and values: which label fills which field.
#pragma once

#include <span>
#include <string_view>

#include "readers/columns.h"
#include "statement/records.h"

namespace tradebill {

enum class LabelMatch {
    Contains,  ///< the column contains the word
    Equals,    ///< the column is the word
    Spaced,    ///< printed with blanks between its characters: the column contains `word`, the next one is `second`
};

struct MoneyLabel {
    FieldSetter<MoneyRecord> field;
    LabelMatch match;
    std::string_view word;
    std::string_view second = {};

    /// Places from the label to its value.
    [[nodiscard]] constexpr std::size_t ValueOffset() const { return match == LabelMatch::Spaced ? 3 : 1; }
};

/// Tries each column that has a successor as a label against all of `labels`, in their order. A later label overwrites
/// what an earlier one has written.
void ReadMoneyRow(Row row, std::span<const MoneyLabel> labels, MoneyRecord& record);

}  // namespace tradebill
