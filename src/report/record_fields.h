// The named text fields of each record, as tables: for whoever shows or fills a record field by field (the program's
// JSON, its live figures and its `explain`, the tests), and which of them hold amounts. Spare fields are left out.
#pragma once

#include <string.h>
#include <span>
#include <string_view>

#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {

/// One text field of `Record`.
template <class Record>
struct TextField {
    std::string_view name;
    std::span<char> (*bytes)(Record&);  ///< the whole field, terminator included
    bool isAmount = false;              ///< a price, lots or money: what stands in it is read as a number

    [[nodiscard]] std::string_view Text(const Record& record) const {
        const std::span<char> field = bytes(const_cast<Record&>(record));  // only read here
        return {field.data(), ::strnlen(field.data(), field.size())};
    }
};

#define TRADEBILL_FIELD(Record, Field, isAmount)                                        \
    TextField<Record> {                                                                 \
#Field, [](Record & record) { return std::span<char>(record.Field); }, isAmount \
    }
#define TRADEBILL_TEXT_FIELD(Record, Field) TRADEBILL_FIELD(Record, Field, false)
#define TRADEBILL_AMOUNT_FIELD(Record, Field) TRADEBILL_FIELD(Record, Field, true)

// clang-format off
inline constexpr TextField<MoneyRecord> kMoneyFields[] = {
    TRADEBILL_TEXT_FIELD(MoneyRecord, BILL_DATE),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, QCQY),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, CRJ),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, QMJC),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, KYZJ),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, PCYK),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, CCDSYK),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, HOST_CURRENT),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, KHQY),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, SXF),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, BZJZY),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, HOST_FROZEN_A),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, HOST_FROZEN_B),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, HOST_POSITION_MARGIN),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, HOST_POSITION_PL),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, XQSXF),
    TRADEBILL_AMOUNT_FIELD(MoneyRecord, QLJSZ),
    TRADEBILL_TEXT_FIELD(MoneyRecord, CURRENCY),
};

inline constexpr TextField<MatchRecord> kMatchFields[] = {
    TRADEBILL_TEXT_FIELD(MatchRecord, BILL_DATE),
    TRADEBILL_TEXT_FIELD(MatchRecord, MATCH_DATE),
    TRADEBILL_TEXT_FIELD(MatchRecord, EXCH_NAME),
    TRADEBILL_TEXT_FIELD(MatchRecord, CONTRACT),
    TRADEBILL_TEXT_FIELD(MatchRecord, DELIVERY),
    TRADEBILL_TEXT_FIELD(MatchRecord, HEDGE),
    TRADEBILL_TEXT_FIELD(MatchRecord, BID),
    TRADEBILL_AMOUNT_FIELD(MatchRecord, MATCH_PRICE),
    TRADEBILL_AMOUNT_FIELD(MatchRecord, MATCH_VOL),
    TRADEBILL_AMOUNT_FIELD(MatchRecord, TURNOVER),
    TRADEBILL_TEXT_FIELD(MatchRecord, OFFSET),
    TRADEBILL_AMOUNT_FIELD(MatchRecord, POUNDAGE),
    TRADEBILL_AMOUNT_FIELD(MatchRecord, OFFSETPL),
    TRADEBILL_TEXT_FIELD(MatchRecord, MATCHNO),
    TRADEBILL_AMOUNT_FIELD(MatchRecord, ROYALTY),
    TRADEBILL_TEXT_FIELD(MatchRecord, CURRENCY),
};

inline constexpr TextField<PingDetail> kPingFields[] = {
    TRADEBILL_TEXT_FIELD(PingDetail, BILL_DATE),
    TRADEBILL_TEXT_FIELD(PingDetail, MATCH_DATE),
    TRADEBILL_TEXT_FIELD(PingDetail, EXCH_NAME),
    TRADEBILL_TEXT_FIELD(PingDetail, CONTRACT),
    TRADEBILL_TEXT_FIELD(PingDetail, DELIVERY),
    TRADEBILL_TEXT_FIELD(PingDetail, BID),
    TRADEBILL_AMOUNT_FIELD(PingDetail, MATCH_PRICE),
    TRADEBILL_AMOUNT_FIELD(PingDetail, MATCH_VOL),
    TRADEBILL_TEXT_FIELD(PingDetail, OPEN_DATE),
    TRADEBILL_AMOUNT_FIELD(PingDetail, OPEN_PRICE),
    TRADEBILL_AMOUNT_FIELD(PingDetail, SETTLE_PRICE),
    TRADEBILL_AMOUNT_FIELD(PingDetail, POUNDAGE),
    TRADEBILL_TEXT_FIELD(PingDetail, HEDGE),
    TRADEBILL_AMOUNT_FIELD(PingDetail, OFFSETPL),
    TRADEBILL_TEXT_FIELD(PingDetail, CURRENCY),
};

inline constexpr TextField<OpiDetail> kOpiDetailFields[] = {
    TRADEBILL_TEXT_FIELD(OpiDetail, BILL_DATE),
    TRADEBILL_TEXT_FIELD(OpiDetail, EXCH_NAME),
    TRADEBILL_TEXT_FIELD(OpiDetail, CONTRACT),
    TRADEBILL_TEXT_FIELD(OpiDetail, DELIVERY),
    TRADEBILL_TEXT_FIELD(OpiDetail, OPEN_DATE),
    TRADEBILL_TEXT_FIELD(OpiDetail, HEDGE),
    TRADEBILL_TEXT_FIELD(OpiDetail, BID),
    TRADEBILL_AMOUNT_FIELD(OpiDetail, POSITION_VOL),
    TRADEBILL_AMOUNT_FIELD(OpiDetail, OPEN_PRICE),
    TRADEBILL_AMOUNT_FIELD(OpiDetail, YSETTLE_PRICE),
    TRADEBILL_AMOUNT_FIELD(OpiDetail, SETTLE_PRICE),
    TRADEBILL_AMOUNT_FIELD(OpiDetail, FLOATPL),
    TRADEBILL_AMOUNT_FIELD(OpiDetail, DSYK),
    TRADEBILL_AMOUNT_FIELD(OpiDetail, DEPOSIT),
    TRADEBILL_TEXT_FIELD(OpiDetail, CURRENCY),
};

inline constexpr TextField<OpiSum> kOpiSumFields[] = {
    TRADEBILL_TEXT_FIELD(OpiSum, BILL_DATE),
    TRADEBILL_TEXT_FIELD(OpiSum, EXCH_NAME),
    TRADEBILL_TEXT_FIELD(OpiSum, CONTRACT),
    TRADEBILL_TEXT_FIELD(OpiSum, DELIVERY),
    TRADEBILL_TEXT_FIELD(OpiSum, BID),
    TRADEBILL_AMOUNT_FIELD(OpiSum, BID_POSITION_VOL),
    TRADEBILL_AMOUNT_FIELD(OpiSum, ASK_POSITION_VOL),
    TRADEBILL_AMOUNT_FIELD(OpiSum, POSITION_VOL),
    TRADEBILL_AMOUNT_FIELD(OpiSum, POSITION_PRICE),
    TRADEBILL_AMOUNT_FIELD(OpiSum, YSETTLE_PRICE),
    TRADEBILL_AMOUNT_FIELD(OpiSum, SETTLE_PRICE),
    TRADEBILL_AMOUNT_FIELD(OpiSum, DSYK),
    TRADEBILL_AMOUNT_FIELD(OpiSum, DEPOSIT),
    TRADEBILL_TEXT_FIELD(OpiSum, HEDGE),
};

inline constexpr TextField<ContractOffset> kOffsetFields[] = {
    TRADEBILL_TEXT_FIELD(ContractOffset, CONTRACT),
    TRADEBILL_TEXT_FIELD(ContractOffset, DELIVERY),
    TRADEBILL_TEXT_FIELD(ContractOffset, CURRENCY),
};
// clang-format on

#undef TRADEBILL_AMOUNT_FIELD
#undef TRADEBILL_TEXT_FIELD
#undef TRADEBILL_FIELD

/// All fields of a record of a statement: FieldsOf<MatchRecord>().
template <class Record>
[[nodiscard]] constexpr std::span<const TextField<Record>> FieldsOf();
template <>
[[nodiscard]] constexpr std::span<const TextField<MoneyRecord>> FieldsOf() {
    return kMoneyFields;
}
template <>
[[nodiscard]] constexpr std::span<const TextField<MatchRecord>> FieldsOf() {
    return kMatchFields;
}
template <>
[[nodiscard]] constexpr std::span<const TextField<PingDetail>> FieldsOf() {
    return kPingFields;
}
template <>
[[nodiscard]] constexpr std::span<const TextField<OpiDetail>> FieldsOf() {
    return kOpiDetailFields;
}
template <>
[[nodiscard]] constexpr std::span<const TextField<OpiSum>> FieldsOf() {
    return kOpiSumFields;
}

}  // namespace tradebill
