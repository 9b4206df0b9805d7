#include "report/report.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "report/closed_rows.h"
#include "report/record_makers.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill::report_test {
namespace {

TEST(Report, IsForeignForKindTwoAlone) {
    CReport report;
    for (const std::int32_t kind : {0, 1, 3, -2}) {
        report.Request.StatementKind = kind;
        EXPECT_FALSE(report.IsForeign()) << kind;
    }
    report.Request.StatementKind = 2;
    EXPECT_TRUE(report.IsForeign());
}

TEST(Report, HasTheFormatOfItsRequest) {
    CReport report;
    for (const std::int32_t format : {0, 1, 2, 3, 6, 201}) {
        report.Request.StatementFormat = format;
        EXPECT_EQ(report.Format().number, format);
    }
}

TEST(Report, ScalesMeasuresByTheResolutionOfItsRequest) {
    CReport report;
    EXPECT_EQ(report.Scaled(825), 825);
    report.Request.Dpi = 120;
    EXPECT_EQ(report.Scaled(825), 1031);
}

/// Keeps what it is asked.
class CCuriousSource final : public CProductSource {
public:
    std::int32_t UnitOf(std::string_view contract, std::string_view delivery) const override {
        contract_ = contract;
        delivery_ = delivery;
        return -10;
    }
    std::optional<std::string> CodeOf(std::string_view /*name*/) const override { return std::nullopt; }

    mutable std::string contract_;
    mutable std::string delivery_;
};

TEST(Report, AsksItsSourceForAUnit) {
    const CCuriousSource source;
    CReport report;
    report.Products = &source;
    EXPECT_EQ(report.AskContractUnit("cu", "1105"), -10);
    EXPECT_EQ(source.contract_, "cu");
    EXPECT_EQ(source.delivery_, "1105");
}

TEST(Report, CutsTheTextsOfItsQuestionAt63Bytes) {
    const CCuriousSource source;
    CReport report;
    report.Products = &source;
    static_cast<void>(report.AskContractUnit(std::string(63, 'c'), std::string(70, 'd')));
    EXPECT_EQ(source.contract_, std::string(63, 'c'));
    EXPECT_EQ(source.delivery_, std::string(63, 'd'));
    static_cast<void>(report.AskContractUnit(std::string(64, 'c'), ""));
    EXPECT_EQ(source.contract_, std::string(63, 'c'));
    EXPECT_EQ(source.delivery_, "");
}

TEST(Report, TakesOneAsTheUnitWithoutASource) {
    const CReport report;
    EXPECT_EQ(report.AskContractUnit("cu", "1105"), 1);
}

TEST(Report, KeepsNothingOfARunBehindClear) {
    const CTempFolder folder;
    const MoneyRecord money = Money("20240102", {{"QMJC", "500"}});
    CReport report;
    static_cast<void>(report.ChainTable.Load(folder.Write("chain.ini", "[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=a\n")));
    report.MoneyStore.Add(CopyOf(money), MoneySource::Statement);
    report.CurrencyMoneyStore.Add(CopyOf(money), "USD", MoneySource::Statement);
    report.MatchStore.Add();
    report.PingDetailStore.Add();
    report.OpiDetailStore.Add();
    report.OpiSumStore.Add();
    report.TradeStatistics.FeedDayMoney(&money);
    FoldClosedRow(Closed({{"CONTRACT", "cu"}, {"BID", Gbk("买")}, {"MATCH_VOL", "1"}, {"MATCH_PRICE", "5"}}), report);
    report.Clear();
    EXPECT_TRUE(report.ChainTable.Chains.empty());
    EXPECT_EQ(report.MoneyStore.Count(), 0);
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 0);
    EXPECT_TRUE(report.CurrencyMoneyStore.Stores.empty());
    EXPECT_EQ(report.MatchStore.Count(), 0);
    EXPECT_EQ(report.PingDetailStore.Count(), 0);
    EXPECT_EQ(report.OpiDetailStore.Count(), 0);
    EXPECT_EQ(report.OpiSumStore.Count(), 0);
    EXPECT_TRUE(report.ReportDocument.Offsets.empty());
    EXPECT_TRUE(report.TradeStatistics.DayFigures.Days.empty());
    EXPECT_TRUE(report.TradeStatistics.DayUsages.Days.empty());
    EXPECT_EQ(report.AccountStatistics.WinCount, 0);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 0);
}

TEST(Report, KeepsBehindClearWhatItIsAskedAndWhatStoreAndDocumentSayOfThemselves) {
    const CCuriousSource source;
    CReport report;
    report.Request.Dpi = 120;
    report.ReportDays = {1, 2};
    report.RootFolder = "/srv";
    report.TemplatePath = "/srv/t.ini";
    report.ScreenWidth = 2560;
    report.Products = &source;
    report.MoneyStore.TotalPremium = 3;
    report.MoneyStore.StartDateText = "2024-01-02";
    report.MoneyStore.EndDateText = "2024-01-03";
    report.MoneyStore.ChartSizes = {1, 2, 3, 4, 5, 6, 7, 8};
    report.ReportDocument.BillFolder = "/srv/Bill";
    report.ReportDocument.ImageFolderName = "Image_files";
    report.ReportDocument.PageWidth = 825;
    report.Clear();
    EXPECT_EQ(report.Request.Dpi, 120);
    EXPECT_EQ(report.ReportDays.first, 1);
    EXPECT_EQ(report.ReportDays.last, 2);
    EXPECT_EQ(report.RootFolder, "/srv");
    EXPECT_EQ(report.TemplatePath, "/srv/t.ini");
    EXPECT_EQ(report.ScreenWidth, 2560);
    EXPECT_EQ(report.Products, &source);
    EXPECT_EQ(report.MoneyStore.TotalPremium, 3);
    EXPECT_EQ(report.MoneyStore.StartDateText, "2024-01-02");
    EXPECT_EQ(report.MoneyStore.EndDateText, "2024-01-03");
    EXPECT_EQ(report.MoneyStore.ChartSizes, (ChartSizes{1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(report.ReportDocument.BillFolder, "/srv/Bill");
    EXPECT_EQ(report.ReportDocument.ImageFolderName, "Image_files");
    EXPECT_EQ(report.ReportDocument.PageWidth, 825);
}

}  // namespace
}  // namespace tradebill::report_test
