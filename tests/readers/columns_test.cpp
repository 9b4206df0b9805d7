#include "readers/columns.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "readers/reader_fixture.h"

namespace tradebill::columns_test {
namespace {

TEST(Treated, CopiesTheColumnAsItStands) {
    for (const std::string_view text : {"", "1,000.50", "x y", "\xC2"}) {
        EXPECT_EQ(Treated(text, Treatment::Copy), text);
        EXPECT_EQ(Treated(text, Treatment::KeepIfPresent), text);
    }
}

TEST(Treated, TakesTheSideFromTheWordForBuying) {
    const struct {
        const char* column;
        const char* side;
        const char* inverted;
    } cases[] = {
        {"买", "买", "卖"}, {"卖", "卖", "买"},  {"买入", "买", "卖"}, {"(买)", "买", "卖"},  {"卖出", "卖", "买"},
        {"", "卖", "买"},   {"Buy", "卖", "买"}, {"多", "卖", "买"},   {"买/卖", "买", "卖"}, {"卖 买", "买", "卖"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Treated(Gbk(row.column), Treatment::Side), Gbk(row.side)) << row.column;
        EXPECT_EQ(Treated(Gbk(row.column), Treatment::InvertedSide), Gbk(row.inverted)) << row.column;
    }
}

TEST(Slot, IsWhereTheFieldLies) {
    EXPECT_EQ(Slot<&MatchRecord::BILL_DATE>.offset, 0U);
    EXPECT_EQ(Slot<&MatchRecord::MATCH_DATE>.offset, offsetof(MatchRecord, MATCH_DATE));
    EXPECT_EQ(Slot<&MoneyRecord::QLJSZ>.offset, offsetof(MoneyRecord, QLJSZ));
    EXPECT_EQ(Slot<&OpiDetail::CURRENCY>.offset, offsetof(OpiDetail, CURRENCY));
    EXPECT_EQ(Slot<&MatchRecord::CONTRACT>.most, 80U);
    EXPECT_EQ((CutSlot<&MatchRecord::MATCHNO, 8>.most), 8U);
    EXPECT_EQ((CutSlot<&MatchRecord::MATCHNO, 99>.most), 15U);
}

TEST(Slot, SetsItsFieldAndNoOther) {
    MatchRecord record{};
    Slot<&MatchRecord::MATCH_PRICE>.Set(record, "12345678901234567");
    CutSlot<&MatchRecord::MATCHNO, 8>.Set(record, "1234567890");
    EXPECT_EQ(FieldsOf(record), (Fields{{"MATCH_PRICE", "123456789012345"}, {"MATCHNO", "12345678"}}));
    Slot<&MatchRecord::MATCH_PRICE>.Set(record, "");
    EXPECT_STREQ(record.MATCH_PRICE, "");
}

constexpr Column<MatchRecord> kColumns[] = {
    {Slot<&MatchRecord::MATCH_DATE>, 0},
    {Slot<&MatchRecord::CONTRACT>, 2},
    {Slot<&MatchRecord::BID>, 1, Treatment::Side},
    {Slot<&MatchRecord::HEDGE>, 3, Treatment::KeepIfPresent},
};

Fields RecordOf(const std::vector<std::string_view>& row, std::string_view billDate = "20240102") {
    const std::unique_ptr<MatchRecord> record =
        MakeRecord(billDate, Row(row), std::span<const Column<MatchRecord>>(kColumns));
    return FieldsOf(*record);
}

TEST(MakeRecord, FillsTheFieldsOfTheTableAndNoOthers) {
    EXPECT_EQ(
        RecordOf({"c0", "c1", "c2", "c3", "c4"}),
        (Fields{{"BILL_DATE", "20240102"}, {"MATCH_DATE", "c0"}, {"CONTRACT", "c2"}, {"BID", "卖"}, {"HEDGE", "c3"}}));
}

TEST(MakeRecord, LeavesAFieldEmptyIfTheRowLacksItsColumn) {
    EXPECT_EQ(RecordOf({"c0", "c1", "c2"}),
              (Fields{{"BILL_DATE", "20240102"}, {"MATCH_DATE", "c0"}, {"CONTRACT", "c2"}, {"BID", "卖"}}));
    EXPECT_EQ(RecordOf({"c0"}), (Fields{{"BILL_DATE", "20240102"}, {"MATCH_DATE", "c0"}}));
    EXPECT_EQ(RecordOf({}), (Fields{{"BILL_DATE", "20240102"}}));
}

TEST(MakeRecord, CutsEachTextToItsField) {
    const std::string contract = std::string(80, 'c');
    EXPECT_EQ(RecordOf({"123456789", "c1", contract + "d", "12345678"}, " 20240102"),
              (Fields{{"BILL_DATE", " 2024010"},
                      {"MATCH_DATE", "12345678"},
                      {"CONTRACT", contract},
                      {"BID", "卖"},
                      {"HEDGE", "12345678"}}));
}

TEST(MakeRecord, KeepsAnAmountOfFifteenCharacters) {
    constexpr Column<MatchRecord> kPrice[] = {{Slot<&MatchRecord::MATCH_PRICE>, 0}};
    const std::vector<std::string_view> row = {"12345678901234567890"};
    const auto record = MakeRecord({}, Row(row), std::span<const Column<MatchRecord>>(kPrice));
    EXPECT_STREQ(record->MATCH_PRICE, "123456789012345");
}

TEST(LastColumn, IsTheHighestThatEveryRowMustHave) {
    EXPECT_EQ(LastColumn(kColumns), 2U);
    constexpr Column<MatchRecord> kOptional[] = {{Slot<&MatchRecord::HEDGE>, 5, Treatment::KeepIfPresent}};
    EXPECT_EQ(LastColumn(kOptional), 0U);
}

}  // namespace
}  // namespace tradebill::columns_test
