#include "report/records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

#include "base/number.h"
#include "base/text.h"

namespace tradebill::records_test {
namespace {

struct FieldPlace {
    std::string_view name;
    std::size_t offset;
    std::size_t width;
};

#define PLACE(Record, Field)                                   \
    FieldPlace {                                               \
#Field, offsetof(Record, Field), sizeof(Record::Field) \
    }

struct NamedWidth {
    std::string_view name;
    std::size_t width;
};

/// The fields stand in this order, each directly behind the one before. Returns where the last one ends.
std::size_t ExpectPlaces(std::span<const FieldPlace> places, std::span<const NamedWidth> expected) {
    EXPECT_EQ(places.size(), expected.size());
    std::size_t offset = 0;
    for (std::size_t i = 0; i < std::min(places.size(), expected.size()); ++i) {
        EXPECT_EQ(places[i].name, expected[i].name);
        EXPECT_EQ(places[i].width, expected[i].width) << expected[i].name;
        EXPECT_EQ(places[i].offset, offset) << expected[i].name;
        offset += expected[i].width;
    }
    return offset;
}

// clang-format off
constexpr FieldPlace kMoneyPlaces[] = {
    PLACE(MoneyRecord, BILL_DATE), PLACE(MoneyRecord, QCQY), PLACE(MoneyRecord, SPARE_MONEY_1),
    PLACE(MoneyRecord, SPARE_MONEY_2), PLACE(MoneyRecord, CRJ), PLACE(MoneyRecord, QMJC), PLACE(MoneyRecord, KYZJ),
    PLACE(MoneyRecord, PCYK), PLACE(MoneyRecord, SPARE_MONEY_3), PLACE(MoneyRecord, SPARE_MONEY_4),
    PLACE(MoneyRecord, CCDSYK), PLACE(MoneyRecord, HOST_CURRENT), PLACE(MoneyRecord, KHQY),
    PLACE(MoneyRecord, SPARE_MONEY_5), PLACE(MoneyRecord, SXF), PLACE(MoneyRecord, BZJZY),
    PLACE(MoneyRecord, SPARE_MONEY_6), PLACE(MoneyRecord, SPARE_MONEY_7), PLACE(MoneyRecord, HOST_FROZEN_A),
    PLACE(MoneyRecord, HOST_FROZEN_B), PLACE(MoneyRecord, HOST_POSITION_MARGIN), PLACE(MoneyRecord, HOST_POSITION_PL),
    PLACE(MoneyRecord, XQSXF), PLACE(MoneyRecord, QLJSZ), PLACE(MoneyRecord, CURRENCY),
    PLACE(MoneyRecord, SPARE_MONEY_8),
};
constexpr NamedWidth kMoneyWidths[] = {
    {"BILL_DATE", 9}, {"QCQY", 16}, {"SPARE_MONEY_1", 16}, {"SPARE_MONEY_2", 16}, {"CRJ", 16}, {"QMJC", 16},
    {"KYZJ", 16}, {"PCYK", 16}, {"SPARE_MONEY_3", 16}, {"SPARE_MONEY_4", 16}, {"CCDSYK", 16}, {"HOST_CURRENT", 16},
    {"KHQY", 16}, {"SPARE_MONEY_5", 16}, {"SXF", 16}, {"BZJZY", 16}, {"SPARE_MONEY_6", 16}, {"SPARE_MONEY_7", 16},
    {"HOST_FROZEN_A", 16}, {"HOST_FROZEN_B", 16}, {"HOST_POSITION_MARGIN", 16}, {"HOST_POSITION_PL", 16},
    {"XQSXF", 16}, {"QLJSZ", 16}, {"CURRENCY", 16}, {"SPARE_MONEY_8", 16},
};
constexpr FieldPlace kMatchPlaces[] = {
    PLACE(MatchRecord, BILL_DATE), PLACE(MatchRecord, MATCH_DATE), PLACE(MatchRecord, EXCH_NAME),
    PLACE(MatchRecord, CONTRACT), PLACE(MatchRecord, DELIVERY), PLACE(MatchRecord, HEDGE), PLACE(MatchRecord, BID),
    PLACE(MatchRecord, MATCH_PRICE), PLACE(MatchRecord, MATCH_VOL), PLACE(MatchRecord, TURNOVER),
    PLACE(MatchRecord, OFFSET), PLACE(MatchRecord, POUNDAGE), PLACE(MatchRecord, OFFSETPL),
    PLACE(MatchRecord, MATCHNO), PLACE(MatchRecord, ROYALTY), PLACE(MatchRecord, CURRENCY),
};
constexpr NamedWidth kMatchWidths[] = {
    {"BILL_DATE", 9}, {"MATCH_DATE", 9}, {"EXCH_NAME", 81}, {"CONTRACT", 81}, {"DELIVERY", 9}, {"HEDGE", 9},
    {"BID", 9}, {"MATCH_PRICE", 16}, {"MATCH_VOL", 16}, {"TURNOVER", 16}, {"OFFSET", 9}, {"POUNDAGE", 16},
    {"OFFSETPL", 16}, {"MATCHNO", 16}, {"ROYALTY", 16}, {"CURRENCY", 16},
};
constexpr FieldPlace kPingPlaces[] = {
    PLACE(PingDetail, BILL_DATE), PLACE(PingDetail, MATCH_DATE), PLACE(PingDetail, EXCH_NAME),
    PLACE(PingDetail, CONTRACT), PLACE(PingDetail, DELIVERY), PLACE(PingDetail, BID), PLACE(PingDetail, MATCH_PRICE),
    PLACE(PingDetail, MATCH_VOL), PLACE(PingDetail, OPEN_DATE), PLACE(PingDetail, OPEN_PRICE),
    PLACE(PingDetail, SETTLE_PRICE), PLACE(PingDetail, POUNDAGE), PLACE(PingDetail, HEDGE),
    PLACE(PingDetail, OFFSETPL), PLACE(PingDetail, CURRENCY),
};
constexpr NamedWidth kPingWidths[] = {
    {"BILL_DATE", 9}, {"MATCH_DATE", 9}, {"EXCH_NAME", 81}, {"CONTRACT", 81}, {"DELIVERY", 9}, {"BID", 9},
    {"MATCH_PRICE", 16}, {"MATCH_VOL", 16}, {"OPEN_DATE", 16}, {"OPEN_PRICE", 16}, {"SETTLE_PRICE", 16},
    {"POUNDAGE", 16}, {"HEDGE", 9}, {"OFFSETPL", 16}, {"CURRENCY", 16},
};
constexpr FieldPlace kOpiDetailPlaces[] = {
    PLACE(OpiDetail, BILL_DATE), PLACE(OpiDetail, EXCH_NAME), PLACE(OpiDetail, CONTRACT), PLACE(OpiDetail, DELIVERY),
    PLACE(OpiDetail, OPEN_DATE), PLACE(OpiDetail, HEDGE), PLACE(OpiDetail, BID), PLACE(OpiDetail, POSITION_VOL),
    PLACE(OpiDetail, OPEN_PRICE), PLACE(OpiDetail, YSETTLE_PRICE), PLACE(OpiDetail, SETTLE_PRICE),
    PLACE(OpiDetail, FLOATPL), PLACE(OpiDetail, DSYK), PLACE(OpiDetail, DEPOSIT), PLACE(OpiDetail, CURRENCY),
};
constexpr NamedWidth kOpiDetailWidths[] = {
    {"BILL_DATE", 9}, {"EXCH_NAME", 81}, {"CONTRACT", 81}, {"DELIVERY", 9}, {"OPEN_DATE", 9}, {"HEDGE", 9}, {"BID", 9},
    {"POSITION_VOL", 16}, {"OPEN_PRICE", 16}, {"YSETTLE_PRICE", 16}, {"SETTLE_PRICE", 16}, {"FLOATPL", 16},
    {"DSYK", 16}, {"DEPOSIT", 16}, {"CURRENCY", 16},
};
constexpr FieldPlace kOpiSumPlaces[] = {
    PLACE(OpiSum, BILL_DATE), PLACE(OpiSum, EXCH_NAME), PLACE(OpiSum, CONTRACT), PLACE(OpiSum, DELIVERY),
    PLACE(OpiSum, BID), PLACE(OpiSum, BID_POSITION_VOL), PLACE(OpiSum, SPARE_OPI_1), PLACE(OpiSum, ASK_POSITION_VOL),
    PLACE(OpiSum, SPARE_OPI_2), PLACE(OpiSum, POSITION_VOL), PLACE(OpiSum, POSITION_PRICE),
    PLACE(OpiSum, YSETTLE_PRICE), PLACE(OpiSum, SETTLE_PRICE), PLACE(OpiSum, DSYK), PLACE(OpiSum, DEPOSIT),
    PLACE(OpiSum, HEDGE),
};
constexpr NamedWidth kOpiSumWidths[] = {
    {"BILL_DATE", 9}, {"EXCH_NAME", 81}, {"CONTRACT", 81}, {"DELIVERY", 9}, {"BID", 9}, {"BID_POSITION_VOL", 16},
    {"SPARE_OPI_1", 16}, {"ASK_POSITION_VOL", 16}, {"SPARE_OPI_2", 16}, {"POSITION_VOL", 16}, {"POSITION_PRICE", 16},
    {"YSETTLE_PRICE", 16}, {"SETTLE_PRICE", 16}, {"DSYK", 16}, {"DEPOSIT", 16}, {"HEDGE", 9},
};
// clang-format on

TEST(Records, MoneyIsWhatHostsPassToTheByte) {
    EXPECT_EQ(ExpectPlaces(kMoneyPlaces, kMoneyWidths), 409U);
    EXPECT_EQ(offsetof(MoneyRecord, EXCHANGE_RATE), 416U);
    EXPECT_EQ(sizeof(MoneyRecord), 424U);
    EXPECT_TRUE((std::is_same_v<decltype(MoneyRecord::EXCHANGE_RATE), double>));
}

TEST(Records, RowsAreFlatBlocksOfTexts) {
    EXPECT_EQ(ExpectPlaces(kMatchPlaces, kMatchWidths), sizeof(MatchRecord));
    EXPECT_EQ(ExpectPlaces(kPingPlaces, kPingWidths), sizeof(PingDetail));
    EXPECT_EQ(ExpectPlaces(kOpiDetailPlaces, kOpiDetailWidths), sizeof(OpiDetail));
    EXPECT_EQ(ExpectPlaces(kOpiSumPlaces, kOpiSumWidths), sizeof(OpiSum));
}

TEST(Records, CanBeCopiedAsTheyAre) {
    EXPECT_TRUE(std::is_trivially_copyable_v<MoneyRecord>);
    EXPECT_TRUE(std::is_trivially_copyable_v<MatchRecord>);
    EXPECT_TRUE(std::is_trivially_copyable_v<PingDetail>);
    EXPECT_TRUE(std::is_trivially_copyable_v<OpiDetail>);
    EXPECT_TRUE(std::is_trivially_copyable_v<OpiSum>);
    EXPECT_TRUE(std::is_trivially_copyable_v<ContractOffset>);
}

TEST(Records, TallyKeepsContractDeliveryAndCurrencyAtTheirWidths) {
    EXPECT_EQ(sizeof(ContractOffset::CONTRACT), 81U);
    EXPECT_EQ(sizeof(ContractOffset::DELIVERY), 9U);
    EXPECT_EQ(sizeof(ContractOffset::CURRENCY), 16U);
    EXPECT_TRUE((std::is_same_v<decltype(ContractOffset::LONG_VOL), std::int32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(ContractOffset::SHORT_MAX_LOSS), double>));
}

TEST(Records, ClearedMoneyHasEmptyTextsAndARateOfOne) {
    const MoneyRecord record = ClearedMoneyRecord();
    const auto* const bytes = reinterpret_cast<const char*>(&record);
    for (std::size_t i = 0; i < 409; ++i) EXPECT_EQ(bytes[i], '\0') << i;
    EXPECT_EQ(record.EXCHANGE_RATE, 1.0);
}

TEST(Records, DividingByTheRateOfAClearedMoneyRecordChangesNothing) {
    MoneyRecord record = ClearedMoneyRecord();
    CopyField(record.QMJC, "123456789.01");
    EXPECT_EQ(ParseAmount(FieldText(record.QMJC)) / record.EXCHANGE_RATE, 123456789.01);
}

TEST(Records, FieldsOfSixteenKeepFifteenCharacters) {
    MoneyRecord record = ClearedMoneyRecord();
    CopyField(record.QCQY, "12345678901234567890");
    EXPECT_EQ(FieldText(record.QCQY), "123456789012345");
    EXPECT_EQ(record.QCQY[15], '\0');
    EXPECT_EQ(FieldText(record.SPARE_MONEY_1), "");
}

TEST(Records, AbsentColumnsReadAsZero) {
    const OpiDetail row{};
    EXPECT_EQ(FieldText(row.DEPOSIT), "");
    EXPECT_EQ(ParseAmount(FieldText(row.DEPOSIT)), 0.0);
    EXPECT_EQ(ParseInteger(FieldText(row.POSITION_VOL)), 0);
}

}  // namespace
}  // namespace tradebill::records_test
