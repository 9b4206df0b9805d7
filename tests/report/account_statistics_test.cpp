#include "report/report.h"

#include <gtest/gtest.h>

namespace tradebill::account_statistics_test {
namespace {

TEST(AccountStatisticsOf, RowsGrowWithEach) {
    CAccountStatistics figures;
    figures.AddPL(5);
    figures.AddPL(-3);
    figures.AddPL(4);
    figures.AddPL(-8);
    EXPECT_EQ(figures.TotalPL, -2);
    EXPECT_EQ(figures.MaxProfit, 5);
    EXPECT_EQ(figures.MaxLoss, -8);
}

TEST(AccountStatisticsOf, LossesAloneHaveNoLargestProfit) {
    CAccountStatistics figures;
    figures.AddPL(-3);
    EXPECT_EQ(figures.MaxProfit, 0);
    EXPECT_EQ(figures.MaxLoss, -3);
}

TEST(AccountStatisticsOf, GainsAloneHaveNoLargestLoss) {
    CAccountStatistics figures;
    figures.AddPL(3);
    EXPECT_EQ(figures.MaxProfit, 3);
    EXPECT_EQ(figures.MaxLoss, 0);
}

TEST(AccountStatisticsOf, NothingAreZero) {
    CAccountStatistics figures;
    figures.WinCount = figures.LoseCount = figures.FlatCount = 1;
    figures.InitialEquity = figures.MaxEquity = figures.MinEquity = figures.TotalPL = figures.MaxDrawdown = 1;
    figures.WinRate = figures.ProfitRate = figures.MaxProfit = figures.MaxLoss = figures.MaxYield = 1;
    figures.MaxRisk = 1;
    figures.Clear();
    for (const int count : {figures.WinCount, figures.LoseCount, figures.FlatCount}) EXPECT_EQ(count, 0);
    for (const double figure :
         {figures.InitialEquity, figures.MaxEquity, figures.MinEquity, figures.TotalPL, figures.MaxDrawdown,
          figures.WinRate, figures.ProfitRate, figures.MaxProfit, figures.MaxLoss, figures.MaxYield, figures.MaxRisk}) {
        EXPECT_EQ(figure, 0);
    }
}

}  // namespace
}  // namespace tradebill::account_statistics_test
