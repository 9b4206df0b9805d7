// The first day of a foreign account, whose opening balance leaves out the floating P/L of its positions.
#include <gtest/gtest.h>

#include <optional>
#include <string_view>

#include "analysis/analysed_account.h"
#include "analysis/analysis.h"
#include "report/request_copy.h"

namespace tradebill::foreign_days_test {
namespace {

class ForeignDays : public AnalysedAccount {
protected:
    ForeignDays() {
        report.Request.StatementKind = kForeignKind;
        AddDay("20240102", "1100", "100", "900");
        AddDay("20240131", "1100");
        AddDay("20250101", "1210");
    }
    void AddOpenLots(std::string_view side, std::string_view lots, std::string_view openDay = "20240102") {
        report.OpiDetailStore.Add() = Open({{"BILL_DATE", "20240102"},
                                            {"CONTRACT", "S2403"},
                                            {"BID", Gbk(side)},
                                            {"POSITION_VOL", lots},
                                            {"OPEN_DATE", openDay}});
    }
    void AddTraded(std::string_view side, std::string_view lots) {
        MatchRecord& row = report.MatchStore.Add();
        FillFields<MatchRecord>(
            row, kMatchFields,
            {{"BILL_DATE", "20240102"}, {"CONTRACT", "S2403"}, {"BID", Gbk(side)}, {"MATCH_VOL", lots}});
    }
    void AddClosedOf(std::string_view openDay) {
        report.ForeignClosedStore.Add() =
            Closed({{"BILL_DATE", "20240102"}, {"CONTRACT", "S2403"}, {"OPEN_DATE", openDay}});
    }
    /// Whether the first day counts.
    bool CountsFirst() const { return Analysed().days[0].pl.has_value(); }
};

TEST_F(ForeignDays, CountTheFirstWhereNothingWasOpenBefore) {
    const Analysis analysis = Analysed();
    EXPECT_EQ(analysis.days[0].pl, 100);         // 1100 - 900 - 100
    EXPECT_EQ(analysis.days[0].dayReturn, 0.1);  // 100 / (900 + 100)
    EXPECT_EQ(analysis.days[0].turnover, std::nullopt);
    AddTraded("买", "3");
    AddTraded("卖", "1");
    AddOpenLots("买", "2");
    AddClosedOf("20240102");
    EXPECT_TRUE(CountsFirst());  // 3 bought, 1 sold, 2 left
}

TEST_F(ForeignDays, DontCountTheFirstWhereAPositionSaysThatItWasOpenBefore) {
    AddTraded("买", "2");
    AddOpenLots("买", "2", "20231229");
    EXPECT_FALSE(CountsFirst());
}

TEST_F(ForeignDays, DontCountTheFirstWhereAPositionSaysNothingOfItsOpening) {
    AddTraded("买", "2");
    AddOpenLots("买", "2", "--");
    EXPECT_FALSE(CountsFirst());
}

TEST_F(ForeignDays, DontCountTheFirstWhereAClosedRowSaysThatItWasOpenBefore) {
    AddClosedOf("20231229");
    EXPECT_FALSE(CountsFirst());
}

TEST_F(ForeignDays, DontCountTheFirstWhereTradesDontAccountForWhatIsOpen) {
    AddTraded("买", "1");
    AddOpenLots("买", "2");
    EXPECT_FALSE(CountsFirst());
}

TEST_F(ForeignDays, DontCountTheFirstWhereTradesCloseMoreThanTheyOpen) {
    AddTraded("卖", "1");
    EXPECT_FALSE(CountsFirst());
}

TEST_F(ForeignDays, DontCountTheFirstWhereRowsDontTellTheirSide) {
    AddTraded("", "1");
    EXPECT_FALSE(CountsFirst());
}

TEST_F(ForeignDays, DontCountTheFirstOfAHost) {
    report.MoneyStore.Clear();
    AddRecord(Money("20240102", {{"KHQY", "1"}, {"QCQY", "1"}, {"CRJ", "0"}, {"HOST_POSITION_MARGIN", "0"}}));
    EXPECT_FALSE(CountsFirst());
}

TEST_F(ForeignDays, BeginWithAnIndexOfOneWhereTheFirstDoesntCount) {
    AddOpenLots("买", "2", "20231229");
    const Analysis analysis = Analysed();
    EXPECT_EQ(analysis.days[0].pl, std::nullopt);
    EXPECT_EQ(analysis.days[0].dayReturn, std::nullopt);
    EXPECT_EQ(ReasonOf(analysis, "days[0].pl"),
              "the opening balance leaves out the floating P/L of positions that were open before");
    EXPECT_EQ(ReasonOf(analysis, "days[0].return"), ReasonOf(analysis, "days[0].pl"));
    EXPECT_EQ(analysis.days[0].index, 1);
    EXPECT_EQ(analysis.days[2].index, 1.1);
    // in with 1100 on 2 January, out with 1210 365 days later
    EXPECT_NEAR(*analysis.ratios.moneyWeightedReturn, 0.1, 1e-14);
}

TEST_F(ForeignDays, TakeTheFirstDayForThePeakWhereItDoesntCount) {
    AddOpenLots("买", "2", "20231229");
    AddDay("20250102", "605");
    AddDay("20240103", "550");  // half of the first
    const Analysis analysis = Analysed();
    ASSERT_EQ(analysis.drawdowns.size(), 2U);
    EXPECT_EQ(analysis.drawdowns[0].peak, "20240102");
    EXPECT_EQ(analysis.drawdowns[0].money, 550);
}

}  // namespace
}  // namespace tradebill::foreign_days_test
