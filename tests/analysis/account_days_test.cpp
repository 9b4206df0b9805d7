#include "analysis/account_days.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "analysis/account_maker.h"
#include "analysis/stated_amount.h"
#include "base/day_number.h"

namespace tradebill::account_days_test {
namespace {

class AccountDays : public AccountMaker {
protected:
    /// Day and equity of each.
    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const AccountDay& day : AccountDaysOf(report)) {
            texts.push_back(NumberedDay(day.number) + " " + day.record->KHQY);
        }
        return texts;
    }
    using List = std::vector<std::string>;
};

TEST_F(AccountDays, AreInTheirOrderWhateverThatOfTheRecords) {
    AddDay("20240103", "3");
    AddDay("20231229", "1");
    AddDay("20240102", "2");
    EXPECT_EQ(Texts(), (List{"20231229 1", "20240102 2", "20240103 3"}));
}

TEST_F(AccountDays, TakeALiveRecordWithoutADayForTheLastDayOfTheReport) {
    report.MoneyStore.EndDateText = "2024-01-04";
    AddDay("20240103", "3");
    AddDay("", "4.50");
    EXPECT_EQ(Texts(), (List{"20240103 3", "20240104 4.50"}));
}

TEST_F(AccountDays, LeaveOutALiveRecordWhoseEquityIsNoNumber) {
    report.MoneyStore.EndDateText = "2024-01-04";
    for (const std::string_view equity : {"", "--", "1,000.00", "4x"}) {
        report.MoneyStore.Clear();
        AddDay("20240103", "3");
        AddDay("", equity);
        EXPECT_EQ(Texts(), (List{"20240103 3"})) << equity;
    }
}

TEST_F(AccountDays, TakeTheLaterOfTwoRecordsOfADay) {
    report.MoneyStore.EndDateText = "2024-01-03";
    AddDay("20240103", "3");
    AddDay("", "4");
    EXPECT_EQ(Texts(), (List{"20240103 4"}));
}

TEST_F(AccountDays, LeaveOutRecordsOfNoDay) {
    AddDay("20240230", "1");
    AddDay("today", "2");
    AddDay("20240229", "3");
    EXPECT_EQ(Texts(), (List{"20240229 3"}));
}

TEST_F(AccountDays, KnowAHostsRecordByItsLiveMargin) {
    EXPECT_FALSE(IsLive(Money("20240103", {{"KHQY", "1"}})));
    EXPECT_TRUE(IsLive(Money("20240103", {{"HOST_POSITION_MARGIN", "0.00"}})));
}

TEST(RowDay, IsThatOfTheStatementBeforeThatOfTheRow) {
    EXPECT_EQ(RowDayOf("20240103", "20240102"), DayNumberOf("20240103"));
    EXPECT_EQ(RowDayOf("", "20240102"), DayNumberOf("20240102"));
    EXPECT_FALSE(RowDayOf("", ""));
}

TEST(StatedAmount, IsAPlainNumberAlone) {
    const auto stated = [](std::string_view text) { return StatedAmount(Money("", {{"KHQY", text}}).KHQY); };
    EXPECT_EQ(stated("-12.50"), -12.5);
    EXPECT_EQ(stated(" 7 "), 7);
    for (const std::string_view text : {"", " ", "--", "1,234.50", "12元", "1e5", "nan"}) EXPECT_FALSE(stated(text));
}

TEST(StatedAmount, IsDividedByARateAboveNothing) {
    const auto stated = [](double rate) { return StatedAmount(Money("", {{"KHQY", "8"}}).KHQY, rate); };
    EXPECT_EQ(stated(2), 4);
    for (const double rate : {0.0, -1.0, 1e-320, 0.0 / 0.0}) EXPECT_FALSE(stated(rate)) << rate;
}

}  // namespace
}  // namespace tradebill::account_days_test
