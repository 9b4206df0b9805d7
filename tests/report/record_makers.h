// Records for tests, by the names of their fields.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <span>
#include <string_view>

#include "base/text.h"
#include "report/record_fields.h"
#include "report/records.h"

namespace tradebill {

struct NamedText {
    std::string_view name;
    std::string_view text;  ///< cut to the field
};

template <class Record>
void FillFields(Record& record, std::span<const TextField<Record>> fields, std::initializer_list<NamedText> texts) {
    for (const NamedText& named : texts) {
        const auto field = std::ranges::find(fields, named.name, &TextField<Record>::name);
        if (field == fields.end()) {
            ADD_FAILURE() << "no field " << named.name;
            continue;
        }
        const std::span<char> bytes = field->bytes(record);
        std::ranges::fill(bytes, '\0');
        std::ranges::copy(named.text.substr(0, bytes.size() - 1), bytes.begin());
    }
}

/// A cleared money record with these texts.
inline MoneyRecord Money(std::string_view day, std::initializer_list<NamedText> texts, double rate = 1.0) {
    MoneyRecord record = ClearedMoneyRecord();
    FillFields<MoneyRecord>(record, kMoneyFields, texts);
    CopyField(record.BILL_DATE, day);
    record.EXCHANGE_RATE = rate;
    return record;
}

inline PingDetail Closed(std::initializer_list<NamedText> texts) {
    PingDetail row{};
    FillFields<PingDetail>(row, kPingFields, texts);
    return row;
}

inline OpiDetail Open(std::initializer_list<NamedText> texts) {
    OpiDetail row{};
    FillFields<OpiDetail>(row, kOpiDetailFields, texts);
    return row;
}

inline OpiSum OpenSum(std::initializer_list<NamedText> texts) {
    OpiSum row{};
    FillFields<OpiSum>(row, kOpiSumFields, texts);
    return row;
}

/// A copy of its own, as stores take them.
template <class Record>
std::unique_ptr<Record> CopyOf(const Record& record) {
    return std::make_unique<Record>(record);
}

}  // namespace tradebill
