// Rows for the stores that the page reads, from UTF-8 texts.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "report/record_fields.h"
#include "report/records.h"
#include "report/report_document.h"
#include "report/stores.h"
#include "support/gbk_text.h"

namespace tradebill {

struct FieldValue {
    std::string_view name;
    std::string_view text;  ///< UTF-8
};
using FieldValues = std::initializer_list<FieldValue>;

template <class Record>
void SetFields(Record& record, std::span<const TextField<Record>> fields, FieldValues values) {
    for (const FieldValue& value : values) {
        const auto field = std::ranges::find(fields, value.name, &TextField<Record>::name);
        ASSERT_NE(field, fields.end()) << "no field " << value.name;
        const std::span<char> bytes = field->bytes(record);
        const std::string text = Gbk(value.text);
        ASSERT_LT(text.size(), bytes.size()) << value.name;
        std::ranges::copy(text, bytes.begin());
    }
}

inline MatchRecord& AddTrade(FieldValues values) {
    MatchStore.Add(std::make_unique<MatchRecord>());
    SetFields<MatchRecord>(*MatchStore.Rows.back(), kMatchFields, values);
    return *MatchStore.Rows.back();
}

inline PingDetail& AddClosed(FieldValues values) {
    PingDetailStore.Add(std::make_unique<PingDetail>());
    SetFields<PingDetail>(*PingDetailStore.Rows.back(), kPingFields, values);
    return *PingDetailStore.Rows.back();
}

inline OpiDetail& AddLot(FieldValues values) {
    OpiDetailStore.Add(std::make_unique<OpiDetail>());
    SetFields<OpiDetail>(*OpiDetailStore.Rows.back(), kOpiDetailFields, values);
    return *OpiDetailStore.Rows.back();
}

inline OpiSum& AddPosition(FieldValues values) {
    OpiSumStore.Add(std::make_unique<OpiSum>());
    SetFields<OpiSum>(*OpiSumStore.Rows.back(), kOpiSumFields, values);
    return *OpiSumStore.Rows.back();
}

/// A tally of zeros.
inline ContractOffset& AddTally(std::string_view contract, std::string_view delivery = {},
                                std::string_view currency = {}) {
    ReportDocument.Offsets.push_back(std::make_unique<ContractOffset>());
    ContractOffset& tally = *ReportDocument.Offsets.back();
    CopyField(tally.CONTRACT, Gbk(contract));
    CopyField(tally.DELIVERY, Gbk(delivery));
    CopyField(tally.CURRENCY, Gbk(currency));
    return tally;
}

}  // namespace tradebill
