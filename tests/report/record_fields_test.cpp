#include "report/record_fields.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <span>
#include <string>

namespace tradebill::record_fields_test {
namespace {

template <class Record>
std::string NamesOf(std::span<const TextField<Record>> fields) {
    std::string names;
    for (const auto& field : fields) names += std::string(names.empty() ? "" : " ") + std::string(field.name);
    return names;
}

/// Each field is the record's own, apart from all others, and its text is what stands in it.
template <class Record>
void ExpectFieldsApart(std::span<const TextField<Record>> fields) {
    Record record{};
    const char* end = reinterpret_cast<const char*>(&record);
    for (const auto& field : fields) {
        const std::span<char> bytes = field.bytes(record);
        EXPECT_GE(bytes.data(), end) << field.name;
        end = bytes.data() + bytes.size();
        EXPECT_EQ(field.Text(record), "") << field.name;
        std::ranges::fill(bytes, 'x');
        EXPECT_EQ(field.Text(record), std::string(bytes.size(), 'x')) << field.name;
        bytes[1] = '\0';
        EXPECT_EQ(field.Text(record), "x") << field.name;
    }
    EXPECT_LE(end, reinterpret_cast<const char*>(&record + 1));
}

TEST(RecordFields, NameAllTextsButTheSpareOnes) {
    EXPECT_EQ(NamesOf<MoneyRecord>(kMoneyFields),
              "BILL_DATE QCQY CRJ QMJC KYZJ PCYK CCDSYK HOST_CURRENT KHQY SXF BZJZY HOST_FROZEN_A HOST_FROZEN_B "
              "HOST_POSITION_MARGIN HOST_POSITION_PL XQSXF QLJSZ CURRENCY");
    EXPECT_EQ(NamesOf<MatchRecord>(kMatchFields),
              "BILL_DATE MATCH_DATE EXCH_NAME CONTRACT DELIVERY HEDGE BID MATCH_PRICE MATCH_VOL TURNOVER OFFSET "
              "POUNDAGE OFFSETPL MATCHNO ROYALTY CURRENCY");
    EXPECT_EQ(NamesOf<PingDetail>(kPingFields),
              "BILL_DATE MATCH_DATE EXCH_NAME CONTRACT DELIVERY BID MATCH_PRICE MATCH_VOL OPEN_DATE OPEN_PRICE "
              "SETTLE_PRICE POUNDAGE HEDGE OFFSETPL CURRENCY");
    EXPECT_EQ(NamesOf<OpiDetail>(kOpiDetailFields),
              "BILL_DATE EXCH_NAME CONTRACT DELIVERY OPEN_DATE HEDGE BID POSITION_VOL OPEN_PRICE YSETTLE_PRICE "
              "SETTLE_PRICE FLOATPL DSYK DEPOSIT CURRENCY");
    EXPECT_EQ(NamesOf<OpiSum>(kOpiSumFields),
              "BILL_DATE EXCH_NAME CONTRACT DELIVERY BID BID_POSITION_VOL ASK_POSITION_VOL POSITION_VOL "
              "POSITION_PRICE YSETTLE_PRICE SETTLE_PRICE DSYK DEPOSIT HEDGE");
}

TEST(RecordFields, StandApart) {
    ExpectFieldsApart(FieldsOf<MoneyRecord>());
    ExpectFieldsApart(FieldsOf<MatchRecord>());
    ExpectFieldsApart(FieldsOf<PingDetail>());
    ExpectFieldsApart(FieldsOf<OpiDetail>());
    ExpectFieldsApart(FieldsOf<OpiSum>());
}

template <class Record>
std::string TextsIn() {
    std::string names;
    for (const auto& field : FieldsOf<Record>()) {
        if (!field.isAmount) names += (names.empty() ? "" : " ") + std::string(field.name);
    }
    return names;
}

TEST(RecordFields, AreAmountsButForDatesNamesMarksAndNumbers) {
    EXPECT_EQ(TextsIn<MoneyRecord>(), "BILL_DATE CURRENCY");
    EXPECT_EQ(TextsIn<MatchRecord>(),
              "BILL_DATE MATCH_DATE EXCH_NAME CONTRACT DELIVERY HEDGE BID OFFSET MATCHNO CURRENCY");
    EXPECT_EQ(TextsIn<PingDetail>(), "BILL_DATE MATCH_DATE EXCH_NAME CONTRACT DELIVERY BID OPEN_DATE HEDGE CURRENCY");
    EXPECT_EQ(TextsIn<OpiDetail>(), "BILL_DATE EXCH_NAME CONTRACT DELIVERY OPEN_DATE HEDGE BID CURRENCY");
    EXPECT_EQ(TextsIn<OpiSum>(), "BILL_DATE EXCH_NAME CONTRACT DELIVERY BID HEDGE");
}

}  // namespace
}  // namespace tradebill::record_fields_test
