#include "report/closed_rows.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "report/closed_rows_fixture.h"

namespace tradebill::closed_rows_test {
namespace {

/// One closed position of cu1105, P/L in points.
PingDetail Trade(std::string_view side, std::string_view lots, std::string_view open, std::string_view close) {
    return Closed({{"CONTRACT", "cu1105"},
                   {"BID", Gbk(side)},
                   {"MATCH_VOL", lots},
                   {"OPEN_PRICE", open},
                   {"MATCH_PRICE", close}});
}

/// Lots, P/L and counts that the tally of one contract holds for one side.
struct SideTally {
    std::int32_t lots = 0, count = 0, winCount = 0, winLots = 0, loseCount = 0, loseLots = 0;
    double pl = 0, winPL = 0, losePL = 0, maxWin = 0, maxLoss = 0;
};

void ExpectLong(const ContractOffset& offset, const SideTally& side) {
    EXPECT_EQ(offset.LONG_VOL, side.lots);
    EXPECT_EQ(offset.LONG_COUNT, side.count);
    EXPECT_EQ(offset.LONG_WIN_COUNT, side.winCount);
    EXPECT_EQ(offset.LONG_WIN_VOL, side.winLots);
    EXPECT_EQ(offset.LONG_LOSE_COUNT, side.loseCount);
    EXPECT_EQ(offset.LONG_LOSE_VOL, side.loseLots);
    EXPECT_EQ(offset.LONG_PL, side.pl);
    EXPECT_EQ(offset.LONG_WIN_PL, side.winPL);
    EXPECT_EQ(offset.LONG_LOSE_PL, side.losePL);
    EXPECT_EQ(offset.LONG_MAX_WIN, side.maxWin);
    EXPECT_EQ(offset.LONG_MAX_LOSS, side.maxLoss);
}

void ExpectShort(const ContractOffset& offset, const SideTally& side) {
    EXPECT_EQ(offset.SHORT_VOL, side.lots);
    EXPECT_EQ(offset.SHORT_COUNT, side.count);
    EXPECT_EQ(offset.SHORT_WIN_COUNT, side.winCount);
    EXPECT_EQ(offset.SHORT_WIN_VOL, side.winLots);
    EXPECT_EQ(offset.SHORT_LOSE_COUNT, side.loseCount);
    EXPECT_EQ(offset.SHORT_LOSE_VOL, side.loseLots);
    EXPECT_EQ(offset.SHORT_PL, side.pl);
    EXPECT_EQ(offset.SHORT_WIN_PL, side.winPL);
    EXPECT_EQ(offset.SHORT_LOSE_PL, side.losePL);
    EXPECT_EQ(offset.SHORT_MAX_WIN, side.maxWin);
    EXPECT_EQ(offset.SHORT_MAX_LOSS, side.maxLoss);
}

TEST_F(ClosedRows, LongGainIsAWinInMoney) {
    report.Request.ContractUnitCallback = UnitOfTen;
    Fold(Trade("买", "2", "100", "105"));
    ExpectLong(First(), {.lots = 2, .count = 1, .winCount = 1, .winLots = 2, .pl = 100, .winPL = 100, .maxWin = 100});
    ExpectShort(First(), {});
    ExpectCounters(1, 0, 0);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 100);
    EXPECT_EQ(report.AccountStatistics.MaxProfit, 100);
    EXPECT_EQ(report.AccountStatistics.MaxLoss, 0);
}

TEST_F(ClosedRows, ShortRiseIsALossInMoney) {
    report.Request.ContractUnitCallback = UnitOfTen;
    Fold(Trade("卖", "2", "100", "105"));
    ExpectShort(First(),
                {.lots = 2, .count = 1, .loseCount = 1, .loseLots = 2, .pl = -100, .losePL = -100, .maxLoss = -100});
    ExpectLong(First(), {});
    ExpectCounters(0, 1, 0);
    EXPECT_EQ(report.AccountStatistics.TotalPL, -100);
    EXPECT_EQ(report.AccountStatistics.MaxProfit, 0);
    EXPECT_EQ(report.AccountStatistics.MaxLoss, -100);
}

TEST_F(ClosedRows, AreInPricePointsWithoutAHostsUnit) {
    Fold(Trade("买", "2", "100", "105"));
    EXPECT_EQ(report.AccountStatistics.TotalPL, 10);
    EXPECT_EQ(First().LONG_WIN_PL, 10);
}

TEST_F(ClosedRows, DontTrustTheStatementsFigure) {
    PingDetail row = Trade("买", "2", "100", "105");
    CopyField(row.OFFSETPL, "-777");
    Fold(row);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 10);
}

TEST_F(ClosedRows, LaterLongRowsAddUpButForTheirPoints) {
    report.Request.ContractUnitCallback = UnitOfTen;
    Fold(Trade("买", "2", "100", "105"));  // 100
    Fold(Trade("买", "1", "100", "108"));  // 80
    EXPECT_EQ(First().LONG_PL, 8);         // the last row's points, without the unit
    Fold(Trade("买", "3", "100", "104"));  // 120
    Fold(Trade("买", "1", "100", "90"));   // -100
    Fold(Trade("买", "1", "100", "95"));   // -50
    Fold(Trade("买", "4", "100", "100"));  // 0
    ExpectLong(First(), {.lots = 12,
                         .count = 6,
                         .winCount = 4,
                         .winLots = 10,
                         .loseCount = 2,
                         .loseLots = 2,
                         .pl = 0,
                         .winPL = 300,
                         .losePL = -150,
                         .maxWin = 120,
                         .maxLoss = -100});
    ExpectCounters(3, 2, 1);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 150);
    EXPECT_EQ(report.AccountStatistics.MaxProfit, 120);
    EXPECT_EQ(report.AccountStatistics.MaxLoss, -100);
}

TEST_F(ClosedRows, LaterShortRowsAddUp) {
    report.Request.ContractUnitCallback = UnitOfTen;
    Fold(Trade("卖", "1", "100", "110"));  // -100
    Fold(Trade("卖", "2", "100", "103"));  // -60
    Fold(Trade("卖", "1", "100", "95"));   // 50
    Fold(Trade("卖", "1", "100", "93"));   // 70
    Fold(Trade("卖", "4", "100", "100"));  // 0
    ExpectShort(First(), {.lots = 9,
                          .count = 5,
                          .winCount = 3,
                          .winLots = 6,
                          .loseCount = 2,
                          .loseLots = 3,
                          .pl = -40,
                          .winPL = 120,
                          .losePL = -160,
                          .maxWin = 70,
                          .maxLoss = -100});
    ExpectCounters(2, 2, 1);
}

TEST_F(ClosedRows, FirstShortRowWithoutGainCountsAsNothing) {
    Fold(Trade("卖", "3", "100", "100"));
    ExpectShort(First(), {.lots = 3, .count = 1});
    ExpectCounters(0, 0, 0);
    Fold(Trade("卖", "2", "100", "100"));
    ExpectShort(First(), {.lots = 5, .count = 2, .winCount = 1, .winLots = 2});
    ExpectCounters(0, 0, 1);
}

TEST_F(ClosedRows, FirstShortRowWithoutGainIsFlatBehindALongOne) {
    Fold(Trade("买", "1", "100", "101"));
    Fold(Trade("卖", "3", "100", "100"));
    ExpectShort(First(), {.lots = 3, .count = 1, .winCount = 1, .winLots = 3});
    ExpectCounters(1, 0, 1);
}

TEST_F(ClosedRows, FirstLongRowWithoutGainIsFlat) {
    Fold(Trade("买", "3", "100", "100"));
    ExpectLong(First(), {.lots = 3, .count = 1, .winCount = 1, .winLots = 3});
    ExpectCounters(0, 0, 1);
}

TEST_F(ClosedRows, LargestWinAndLossAreRaisedFromZeroBehindARowOfTheOtherSide) {
    Fold(Trade("卖", "1", "100", "90"));  // opens the tally
    Fold(Trade("买", "1", "100", "105"));
    Fold(Trade("买", "1", "100", "97"));
    EXPECT_EQ(First().LONG_MAX_WIN, 5);
    EXPECT_EQ(First().LONG_MAX_LOSS, -3);
    EXPECT_EQ(First().SHORT_MAX_WIN, 10);
    EXPECT_EQ(First().LONG_PL, -3);
}

TEST_F(ClosedRows, WithoutASideListANewContractOfZerosAndNothingElse) {
    Fold(Trade("", "2", "100", "105"));
    ASSERT_EQ(report.ReportDocument.Offsets.size(), 1U);
    EXPECT_EQ(FieldText(First().CONTRACT), "cu1105");
    ExpectLong(First(), {});
    ExpectShort(First(), {});
    ExpectCounters(0, 0, 0);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 0);
    EXPECT_EQ(report.AccountStatistics.MaxProfit, 0);
}

TEST_F(ClosedRows, WithoutASideChangeNothingOfAKnownContract) {
    Fold(Trade("买", "2", "100", "105"));
    Fold(Trade("平", "2", "100", "1000"));
    ASSERT_EQ(report.ReportDocument.Offsets.size(), 1U);
    ExpectLong(First(), {.lots = 2, .count = 1, .winCount = 1, .winLots = 2, .pl = 10, .winPL = 10, .maxWin = 10});
    ExpectCounters(1, 0, 0);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 10);
}

TEST_F(ClosedRows, BehindOneWithoutASideAreNoFirstRow) {
    Fold(Trade("", "1", "100", "100"));
    Fold(Trade("卖", "1", "100", "100"));
    ExpectShort(First(), {.lots = 1, .count = 1, .winCount = 1, .winLots = 1});
    ExpectCounters(0, 0, 1);
}

TEST_F(ClosedRows, FindTheSideAnywhereInItsField) {
    Fold(Trade("平买", "1", "0", "1"));
    Fold(Trade(" 卖出", "1", "0", "1"));
    EXPECT_EQ(First().LONG_COUNT, 1);
    EXPECT_EQ(First().SHORT_COUNT, 1);
    Fold(Trade("卖买", "1", "0", "1"));  // long is looked for first
    EXPECT_EQ(First().LONG_COUNT, 2);
}

TEST_F(ClosedRows, ReadBadNumbersAsZero) {
    Fold(Trade("买", "two", "", "105"));
    ExpectLong(First(), {.count = 1, .winCount = 1});
    ExpectCounters(0, 0, 1);
    Fold(Trade("买", "2.9", "", "5x"));
    EXPECT_EQ(First().LONG_VOL, 2);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 10);
}

TEST_F(ClosedRows, MultiplyFromLeftToRight) {
    report.Request.ContractUnitCallback = UnitOfTen;
    Fold(Trade("买", "3", "0.1", "0.3"));
    EXPECT_EQ(report.AccountStatistics.TotalPL, (3 * (0.3 - 0.1)) * 10);
}

TEST_F(ClosedRows, WrapTheirLotsAtThirtyTwoBits) {
    Fold(Trade("买", "99999999999", "0", "1"));
    Fold(Trade("买", "99999999999", "0", "1"));
    EXPECT_EQ(First().LONG_VOL, -2);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 2 * 2147483647.0);
}

TEST_F(ClosedRows, AreGoneAfterClearing) {
    Fold(Trade("买", "2", "100", "105"));
    report.ReportDocument.ClearOffsets();
    EXPECT_TRUE(report.ReportDocument.Offsets.empty());
    Fold(Trade("卖", "2", "100", "100"));
    ASSERT_EQ(report.ReportDocument.Offsets.size(), 1U);
    ExpectShort(First(), {.lots = 2, .count = 1});  // a first row again
}

class ForeignRows : public ClosedRows {
protected:
    void Fold(std::string_view contract, std::string_view lots, std::string_view amount) {
        FoldForeignClosedRow(Closed({{"CONTRACT", contract},
                                     {"DELIVERY", "1105"},
                                     {"CURRENCY", "USD"},
                                     {"BID", Gbk("卖")},
                                     {"MATCH_VOL", lots},
                                     {"OPEN_PRICE", "1"},
                                     {"MATCH_PRICE", "2"},
                                     {"OFFSETPL", amount}}),
                             report);
    }
};

TEST_F(ForeignRows, TakeTheStatementsFigureIntoTheLongFields) {
    report.Request.ContractUnitCallback = UnitOfTen;
    Fold("CL", "2", "-12.5");
    Fold("CL", "3", "40");
    Fold("CL", "1", "30");
    Fold("CL", "1", "-2.5");
    Fold("CL", "4", "0");
    ExpectLong(First(), {.lots = 11,
                         .count = 5,
                         .winCount = 3,
                         .winLots = 8,
                         .loseCount = 2,
                         .loseLots = 3,
                         .winPL = 70,
                         .losePL = -15,
                         .maxWin = 40,
                         .maxLoss = -12.5});
    ExpectShort(First(), {});
    ExpectCounters(2, 2, 1);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 55);
    EXPECT_EQ(report.AccountStatistics.MaxProfit, 40);
    EXPECT_EQ(report.AccountStatistics.MaxLoss, -12.5);
    EXPECT_TRUE(questions.empty());
}

TEST_F(ForeignRows, FirstRowWithoutGainIsFlat) {
    Fold("CL", "2", "0");
    ExpectLong(First(), {.lots = 2, .count = 1, .winCount = 1, .winLots = 2});
    ExpectCounters(0, 0, 1);
}

TEST_F(ForeignRows, AreKeyedByContractAloneInEveryFormat) {
    for (const std::int32_t format : {0, 1, 2, 3}) {
        report.Clear();
        report.Request.StatementFormat = format;
        Fold("CL", "1", "1");
        FoldForeignClosedRow(Closed({{"CONTRACT", "CL"}, {"DELIVERY", "1106"}, {"CURRENCY", "HKD"}}), report);
        Fold("GC", "1", "1");
        EXPECT_EQ(Contracts(), (std::vector<std::string>{"CL/1105", "GC/1105"})) << format;
        EXPECT_EQ(FieldText(First().CURRENCY), "USD") << format;
    }
}

TEST_F(ForeignRows, KeepNothingOfTheRowItself) {
    {
        const auto row = CopyOf(Closed({{"CONTRACT", "CL"}, {"OFFSETPL", "5"}}));
        FoldForeignClosedRow(*row, report);
    }
    FoldForeignClosedRow(Closed({{"CONTRACT", "CL"}, {"OFFSETPL", "6"}}), report);
    ASSERT_EQ(report.ReportDocument.Offsets.size(), 1U);
    EXPECT_EQ(First().LONG_WIN_PL, 11);
}

}  // namespace
}  // namespace tradebill::closed_rows_test
