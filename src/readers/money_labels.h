// Money sections that are blocks of labels and values: which label fills which field.
#pragma once

#include <span>
#include <string_view>

#include "readers/columns.h"
#include "report/records.h"

namespace tradebill {

enum class LabelMatch {
    Contains,  ///< the column contains the word
    Equals,    ///< the column is the word
    Spaced,    ///< printed with blanks between its characters: the column contains `word`, the next one is `second`
};

struct MoneyLabel {
    FieldSlot<MoneyRecord> field;
    LabelMatch match;
    std::string_view word;
    std::string_view second = {};

    /// Places from the label to its value.
    [[nodiscard]] constexpr std::size_t ValueOffset() const { return match == LabelMatch::Spaced ? 3 : 1; }
};

/// Tells the listener which labels the section at hand looks for.
void TellLabels(std::span<const MoneyLabel> labels, CScanListener* listener);

/// Tries each column that has a successor as a label against all of `labels`, in their order. A later label overwrites
/// what an earlier one has written.
///
/// REQUIRES: TellLabels has told the listener, if there is one, of `labels`.
void ReadMoneyRow(Row row, std::span<const MoneyLabel> labels, MoneyRecord& record, CScanListener* listener = nullptr);

/// An amount that the money section states under a label of its own: half of the premium.
class CLabelledAmount {
public:
    /// `match` is Contains or Equals.
    CLabelledAmount(LabelMatch match, std::string_view word, CScanListener* listener);

    [[nodiscard]] double Amount() const { return amount_; }

    /// Takes the amount behind the last such label of the row, if it has one.
    void ReadRow(Row row);

private:
    LabelMatch match_;
    std::string_view word_;
    CScanListener* listener_;
    double amount_ = 0;
};

}  // namespace tradebill
