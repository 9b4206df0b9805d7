#include "readers/money_labels.h"

#include <cstddef>
#include <span>

#include "base/number.h"
#include "base/text.h"
#include "readers/columns.h"
#include "readers/scan_listener.h"
#include "readers/seen_columns.h"
#include "report/money_record.h"

namespace tradebill {
namespace {

/// `column` has a successor in `row`.
bool Matches(const MoneyLabel& label, Row row, std::size_t column) {
    switch (label.match) {
        case LabelMatch::Contains:
            return Contains(row[column], label.word);
        case LabelMatch::Equals:
            return row[column] == label.word;
        case LabelMatch::Spaced:
            return Contains(row[column], label.word) && row[column + 1] == label.second;
    }
    return false;
}

}  // namespace

void TellLabels(std::span<const MoneyLabel> labels, CScanListener* listener) {
    if (listener == nullptr) return;
    for (const MoneyLabel& label : labels) listener->OnLabelWanted(label.word);
}

void ReadMoneyRow(Row row, std::span<const MoneyLabel> labels, MoneyRecord& record, CScanListener* listener) {
    for (std::size_t column = 0; column + 1 < row.size(); ++column) {
        for (const MoneyLabel& label : labels) {
            const std::size_t value = column + label.ValueOffset();
            if (value >= row.size() || !Matches(label, row, column)) continue;
            label.field.Set(record, row[value]);
            if (listener == nullptr) continue;
            listener->OnLabelMet(label.word);
            listener->OnLabelledValue({FieldAt(label.field).name, row[value], row[value]});
        }
    }
}

CLabelledAmount::CLabelledAmount(LabelMatch match, std::string_view word, CScanListener* listener)
    : match_(match), word_(word), listener_(listener) {
    if (listener_ != nullptr) listener_->OnLabelWanted(word_);
}

void CLabelledAmount::ReadRow(Row row) {
    for (std::size_t column = 0; column + 1 < row.size(); ++column) {
        const bool matches = match_ == LabelMatch::Equals ? row[column] == word_ : Contains(row[column], word_);
        if (!matches) continue;
        amount_ = ParseAmount(row[column + 1]);
        if (listener_ == nullptr) continue;
        listener_->OnLabelMet(word_);
        listener_->OnLabelledValue({FieldAt(Slot<&MoneyRecord::QLJSZ>).name, row[column + 1], row[column + 1]});
    }
}

}  // namespace tradebill
