#include "findings/record_amounts.h"

#include <gtest/gtest.h>

#include <string>

#include "base/text.h"
#include "platform/text_encoding.h"
#include "readers/scan_listener.h"
#include "report/money_record.h"
#include "report/records.h"
#include "support/gbk_text.h"

namespace tradebill::record_amounts_test {
namespace {

/// "field: text" of the strange amount; empty if there is none.
template <class Record>
std::string StrangeIn(const Record& record) {
    const auto strange = FindStrangeAmount(record);
    return strange ? std::string(strange->field) + ": " + GbkToUtf8(strange->text) : "";
}

std::string StrangePrice(std::string_view text) {
    MatchRecord row{};
    CopyField(row.MATCH_PRICE, Gbk(text));
    return StrangeIn(RecordSeen(&row));
}

TEST(StrangeAmount, IsATextWhereAnAmountBelongs) {
    EXPECT_EQ(StrangePrice("abc"), "MATCH_PRICE: abc");
    EXPECT_EQ(StrangePrice("1,234.50"), "MATCH_PRICE: 1,234.50");
    EXPECT_EQ(StrangePrice("12x"), "MATCH_PRICE: 12x");
    EXPECT_EQ(StrangePrice("1.2.3"), "MATCH_PRICE: 1.2.3");
    EXPECT_EQ(StrangePrice("投"), "MATCH_PRICE: 投");
}

TEST(StrangeAmount, IsNoNumberNoEmptyFieldAndNoDash) {
    for (const char* const text : {"", "0", "12", "-12.50", "+1", ".5", "-", "--"})
        EXPECT_EQ(StrangePrice(text), "") << text;
}

TEST(StrangeAmount, IsNoTextOfAnotherField) {
    MatchRecord row{};
    CopyField(row.CONTRACT, "rb2405");
    CopyField(row.MATCHNO, "A-17");
    CopyField(row.EXCH_NAME, Gbk("上期所"));
    EXPECT_EQ(StrangeIn(RecordSeen(&row)), "");
}

TEST(StrangeAmount, IsFoundInEachKindOfRecord) {
    PingDetail closed{};
    CopyField(closed.OFFSETPL, "x");
    EXPECT_EQ(StrangeIn(RecordSeen(&closed)), "OFFSETPL: x");
    OpiDetail open{};
    CopyField(open.DEPOSIT, "x");
    EXPECT_EQ(StrangeIn(RecordSeen(&open)), "DEPOSIT: x");
    OpiSum sum{};
    CopyField(sum.DSYK, "x");
    EXPECT_EQ(StrangeIn(RecordSeen(&sum)), "DSYK: x");
    MoneyRecord money = ClearedMoneyRecord();
    EXPECT_EQ(StrangeIn(money), "");
    CopyField(money.QMJC, "1,200.00");
    EXPECT_EQ(StrangeIn(money), "QMJC: 1,200.00");
}

}  // namespace
}  // namespace tradebill::record_amounts_test
