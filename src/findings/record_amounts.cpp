#include "findings/record_amounts.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/number.h"
#include "base/text.h"
#include "readers/scan_listener.h"
#include "report/money_record.h"
#include "report/record_fields.h"

namespace tradebill {
namespace {

/// Dashes stand for an amount that there isn't.
bool IsNothing(std::string_view text) {
    return TrimByte(text, '-').empty();
}

template <class Record>
std::optional<StrangeAmount> StrangeAmountOf(const Record& record) {
    for (const TextField<Record>& field : FieldsOf<Record>()) {
        if (!field.isAmount) continue;
        const std::string_view text = field.Text(record);
        if (IsNothing(text) || IsAmount(text)) continue;
        return StrangeAmount{field.name, std::string(text)};
    }
    return std::nullopt;
}

}  // namespace

std::optional<StrangeAmount> FindStrangeAmount(const RecordSeen& record) {
    return std::visit([](const auto* row) { return StrangeAmountOf(*row); }, record);
}

std::optional<StrangeAmount> FindStrangeAmount(const MoneyRecord& record) {
    return StrangeAmountOf(record);
}

}  // namespace tradebill
