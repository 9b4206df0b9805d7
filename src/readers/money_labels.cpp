#include "readers/money_labels.h"

#include "base/text.h"

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

void ReadMoneyRow(Row row, std::span<const MoneyLabel> labels, MoneyRecord& record) {
    for (std::size_t column = 0; column + 1 < row.size(); ++column) {
        for (const MoneyLabel& label : labels) {
            const std::size_t value = column + label.ValueOffset();
            if (value < row.size() && Matches(label, row, column)) label.field(record, row[value]);
        }
    }
}

}  // namespace tradebill
