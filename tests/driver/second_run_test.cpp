// What one run leaves to the next in the same process, and what it doesn't.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "base/report_error.h"
#include "base/text.h"
#include "driver/run_fixture.h"

namespace tradebill::second_run_test {
namespace {

using Texts = std::vector<std::string>;

class SecondRun : public RunFixture {
protected:
    SecondRun() {
        root_.Write("sys/chain.ini", "[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=domestic\n");
        root_.Write("sys/wpchain.ini", "[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=foreign\n");
    }

    /// The chain file that a run of this kind works with.
    std::string ChainFileOf(std::int32_t kind) {
        request_.StatementKind = kind;
        Run();
        return report.ChainTable.Chains.size() == 1 ? report.ChainTable.Chains[0]->ItemBase : "none";
    }
};

TEST_F(SecondRun, StartsFromEmptyStores) {
    PutBothDays();
    Run();
    const std::string page = ReadFile(PageFile());
    Run();
    EXPECT_EQ(report.MoneyStore.Count(), 2);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 3000);
    EXPECT_EQ(report.MatchStore.Count(), 4);
    EXPECT_EQ(report.PingDetailStore.Count(), 4);
    EXPECT_EQ(report.OpiDetailStore.Count(), 4);
    EXPECT_EQ(report.ReportDocument.Offsets.size(), 2U);
    EXPECT_EQ(report.ReportDocument.Offsets[0]->LONG_VOL, 2);
    EXPECT_EQ(report.AccountStatistics.WinCount, 4);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Days.size(), 2U);
    EXPECT_EQ(report.TradeStatistics.DayUsages.Find("20240102")->Positions.size(), 2U);
    EXPECT_EQ(ReadFile(PageFile()), page);
}

TEST_F(SecondRun, ReplacesThePage) {
    PutBothDays();
    Run();
    ASSERT_NE(Page().find("rb2405"), std::string::npos);
    SetDates("2023-1-1", "2023-1-1");
    Run();
    EXPECT_EQ(Page().find("rb2405"), std::string::npos);
    EXPECT_TRUE(Page().ends_with("</html>\r\n"));
}

TEST_F(SecondRun, ClearsTheCurrenciesOfAForeignRun) {
    SetDates("", "");
    request_.StatementKind = 2;
    CopyField(request_.BaseMoney.CURRENCY, "HKD");
    Run();
    ASSERT_EQ(report.CurrencyMoneyStore.Names, (Texts{"HKD"}));
    request_.StatementKind = 1;
    Run();
    EXPECT_TRUE(report.CurrencyMoneyStore.Names.empty());
    EXPECT_TRUE(report.CurrencyMoneyStore.Stores.empty());
}

TEST_F(SecondRun, TakesTheChainFileOfTheKindBefore) {
    EXPECT_EQ(ChainFileOf(2), "domestic");  // the first run of all
    EXPECT_EQ(ChainFileOf(1), "foreign");
    EXPECT_EQ(ChainFileOf(2), "domestic");
    EXPECT_EQ(ChainFileOf(2), "foreign");
    EXPECT_EQ(ChainFileOf(3), "foreign");
    EXPECT_EQ(ChainFileOf(1), "domestic");
}

TEST_F(SecondRun, TakesTheChainFileOfARefusedRunsKind) {
    request_.StatementKind = 2;
    SetDates("no date", "2024-1-3");
    EXPECT_THROW(Run(), CReportError);
    SetDates("2024-1-2", "2024-1-3");
    EXPECT_EQ(ChainFileOf(1), "foreign");
}

TEST_F(SecondRun, ReportsTheOldPremiumIfItHasNoRecord) {
    CopyField(request_.BaseMoney.QLJSZ, "250.00");
    SetDates("", "");
    Run();
    ASSERT_EQ(report.MoneyStore.TotalPremium, 250);
    SetDates("2024-1-2", "2024-1-3");
    Run();
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_EQ(report.MoneyStore.TotalPremium, 250);

    Put("D10086.20240102o.txt", FundsOf("20240102", "5.00"));
    Run();
    EXPECT_EQ(report.MoneyStore.TotalPremium, 0);  // the first record sets it anew
}

TEST_F(SecondRun, KeepsTheChartSizes) {
    report.MoneyStore.ChartSizes = {1, 2, 3, 4, 5, 6, 7, 8};
    SetDates("no date", "no date");
    EXPECT_THROW(Run(), CReportError);
    EXPECT_EQ(report.MoneyStore.ChartSizes, (std::array<int, 8>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(SecondRun, LeavesItsResultsToBeRead) {
    PutBothDays();
    Run();
    EXPECT_EQ(DaysWithMoney(report), (Texts{"20240102", "20240103"}));
    EXPECT_EQ(FieldText(report.Request.Account), "10086");
    EXPECT_EQ(report.ReportDocument.BillFolder, root_.Path("Users/u/Data/Bill/Image"));
    EXPECT_EQ(report.ReportDocument.ImageFolderName, "Image_files");
}

TEST_F(SecondRun, KeepsThePicturesFolderNameIfItsFoldersFail) {
    Run();
    CopyField(request_.UserFolder, "nobody");
    Run();
    EXPECT_EQ(report.ReportDocument.BillFolder, root_.Path("Users/nobody/Data"));
    EXPECT_EQ(report.ReportDocument.ImageFolderName, "Image_files");
}

}  // namespace
}  // namespace tradebill::second_run_test
