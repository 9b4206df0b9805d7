// Rows for the stores that the page reads, from UTF-8 texts.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "base/text.h"
#include "report/record_fields.h"
#include "report/records.h"
#include "report/report.h"
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

inline MatchRecord& AddTrade(CReport& report, FieldValues values) {
    MatchRecord& row = report.MatchStore.Add();
    SetFields<MatchRecord>(row, kMatchFields, values);
    return row;
}

inline PingDetail& AddClosed(CReport& report, FieldValues values) {
    PingDetail& row = report.PingDetailStore.Add();
    SetFields<PingDetail>(row, kPingFields, values);
    return row;
}

inline OpiDetail& AddLot(CReport& report, FieldValues values) {
    OpiDetail& row = report.OpiDetailStore.Add();
    SetFields<OpiDetail>(row, kOpiDetailFields, values);
    return row;
}

inline OpiSum& AddPosition(CReport& report, FieldValues values) {
    OpiSum& row = report.OpiSumStore.Add();
    SetFields<OpiSum>(row, kOpiSumFields, values);
    return row;
}

/// A tally of zeros.
inline ContractOffset& AddTally(CReport& report, std::string_view contract, std::string_view delivery = {},
                                std::string_view currency = {}) {
    report.ReportDocument.Offsets.push_back(std::make_unique<ContractOffset>());
    ContractOffset& tally = *report.ReportDocument.Offsets.back();
    CopyField(tally.CONTRACT, Gbk(contract));
    CopyField(tally.DELIVERY, Gbk(delivery));
    CopyField(tally.CURRENCY, Gbk(currency));
    return tally;
}

}  // namespace tradebill
