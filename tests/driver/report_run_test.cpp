#include "driver/report_run.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "driver/run_fixture.h"
#include "report/product_source.h"
#include "report/request_copy.h"

namespace tradebill::report_run_test {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

class ReportRun : public RunFixture {
protected:
    /// The names of the page's anchors, in order.
    [[nodiscard]] Texts Anchors() const {
        constexpr std::string_view kOpening = "<a name = ";
        Texts names;
        const std::string page = Page();
        for (std::size_t at = page.find(kOpening); at != std::string::npos; at = page.find(kOpening, at + 1)) {
            const std::size_t start = at + kOpening.size();
            names.push_back(page.substr(start, page.find("></a>\r\n", start) - start));
        }
        return names;
    }
};

TEST_F(ReportRun, GoesFromDaysOverStatisticsAndPicturesToThePage) {
    PutBothDays();
    bool readBeforeStatistics = false;
    bool figuresBeforePage = false;
    bool pageStood = true;
    bool picturesStood = true;
    const auto banner = [this] {
        return fs::exists(root_.Path("Users/u/Data/Bill/Image/Image_files/AccountSummary.jpg"));
    };
    watcher_.onStage = [&](const std::string& stage) {
        if (stage == "statistics")
            readBeforeStatistics = report.MoneyStore.Count() == 2 && report.AccountStatistics.MaxRisk == 0;
        if (stage == "pictures") picturesStood = banner();
        if (stage == "page") {
            figuresBeforePage = report.AccountStatistics.MaxRisk != 0;
            pageStood = fs::exists(PageFile());
        }
    };
    const RunResult result = Run();
    EXPECT_EQ(watcher_.stages, (Texts{"statistics", "pictures", "page"}));
    EXPECT_TRUE(readBeforeStatistics);
    EXPECT_TRUE(figuresBeforePage);
    EXPECT_FALSE(picturesStood);
    EXPECT_TRUE(banner());
    EXPECT_FALSE(pageStood);
    EXPECT_EQ(result.end, RunEnd::Finished);
    EXPECT_EQ(result.days, 2);
    EXPECT_EQ(result.statementsRead, 2);
    EXPECT_TRUE(result.pageWritten);
    EXPECT_EQ(result.pagePath, PageFile());
}

TEST_F(ReportRun, FillsTheStoresFromEachStatement) {
    PutBothDays();
    Run();
    EXPECT_EQ(DaysWithMoney(report), (Texts{"20240102", "20240103"}));
    EXPECT_EQ(report.MatchStore.Count(), 4);
    EXPECT_EQ(report.PingDetailStore.Count(), 4);
    EXPECT_EQ(report.OpiDetailStore.Count(), 4);
    EXPECT_EQ(report.ReportDocument.Offsets.size(), 2U);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Days.size(), 2U);
    EXPECT_EQ(report.AccountStatistics.WinCount, 4);
    EXPECT_EQ(report.AccountStatistics.InitialEquity, 101500);
}

TEST_F(ReportRun, NeedsNobodyWatching) {
    PutBothDays();
    EXPECT_TRUE(RunReport(report, request_, nullptr).pageWritten);
    EXPECT_EQ(report.MoneyStore.Count(), 2);
}

TEST_F(ReportRun, WritesAllSectionsOfTheDomesticPage) {
    PutBothDays();
    Run();
    EXPECT_EQ(Anchors(), (Texts{"账户统计", "交易统计", "期末持仓", "成交明细", "平仓记录", "报告说明"}));
}

TEST_F(ReportRun, LeavesClosedPositionsOutOfTheForeignPage) {
    request_.StatementKind = 2;
    Run();
    EXPECT_EQ(Anchors(), (Texts{"账户统计", "交易统计", "期末持仓", "成交明细", "报告说明"}));
}

TEST_F(ReportRun, WritesAWholePageOfNothing) {
    const RunResult result = Run();
    EXPECT_TRUE(result.pageWritten);
    EXPECT_EQ(Anchors().size(), 6U);
    EXPECT_TRUE(Page().starts_with("<html>\r\n"));
    EXPECT_TRUE(Page().ends_with("</body>\r\n</html>\r\n"));
}

/// Keeps what it is asked for as units of 10.
class CKeepingSource final : public CProductSource {
public:
    [[nodiscard]] std::int32_t UnitOf(std::string_view contract, std::string_view /*delivery*/) const override {
        used_.push_back({std::string(contract), 10, UnitSource::Table});
        return 10;
    }
    [[nodiscard]] std::optional<std::string> CodeOf(std::string_view /*name*/) const override { return std::nullopt; }
    [[nodiscard]] std::vector<ProductUnit> UsedUnits() const override { return used_; }

private:
    mutable std::vector<ProductUnit> used_;
};

TEST_F(ReportRun, TellsTheUnitsThatItsSourceWasAskedFor) {
    PutBothDays();
    const CKeepingSource products;
    report.Products = &products;
    EXPECT_EQ(ReadAccount(report, request_, nullptr).units.size(), 4U);
    const RunResult result = Run();
    EXPECT_EQ(result.units.size(), 4U + 4U + 4U);  // those before, and the page's too
    EXPECT_TRUE(result.units == products.UsedUnits());
    report.Products = &products_;  // a host keeps nothing
    EXPECT_TRUE(Run().units.empty());
    report.Products = nullptr;
    EXPECT_TRUE(Run().units.empty());
}

TEST_F(ReportRun, WorksOnItsOwnCopyOfTheRequest) {
    PutBothDays();
    request_.ContractUnitCallback = CountUnit;
    watcher_.onDay = [this](int day) {
        if (day == 1) request_ = ClearedRequest();
    };
    const RunResult result = Run();
    EXPECT_EQ(result.days, 2);
    EXPECT_EQ(result.pagePath, PageFile());
    EXPECT_EQ(report.MatchStore.Count(), 4);
    EXPECT_EQ(unitCalls, 4 + 4);  // pairing, and the section of closed positions
    EXPECT_EQ(Anchors().size(), 6U);
}

TEST_F(ReportRun, AsksTheHostForUnits) {
    PutBothDays();
    request_.ContractUnitCallback = CountUnit;
    Run();
    EXPECT_EQ(report.AccountStatistics.TotalPL, 2 * (10 * 10 + 50 * 10));
    request_.ContractUnitCallback = nullptr;
    Run();
    EXPECT_EQ(report.AccountStatistics.TotalPL, 2 * (10 + 50));  // without a callback each unit is 1
}

/// A chain of i and rb, which both days hold on opposite sides, with margins of 9000 and 2500.
void PutChain(const CTempFolder& root, const std::string& file) {
    root.Write("sys/" + file, "[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=i\nNum=1\nItem01=rb\n");
}

TEST_F(ReportRun, OffsetsMarginsForFlagOneAlone) {
    PutBothDays();
    PutChain(root_, "chain.ini");
    struct Case {
        std::int32_t flag;
        double margin;
    };
    for (const Case& tried : {Case{1, 9000 - 2500}, Case{0, 11500}, Case{2, 11500}, Case{-1, 11500}}) {
        request_.MarginOffsetFlag = tried.flag;
        Run();
        EXPECT_EQ(report.TradeStatistics.DayUsages.Find("20240103")->Margin, tried.margin) << tried.flag;
    }
}

TEST_F(ReportRun, OffsetsMarginsBeforeTheAccountFigures) {
    PutBothDays();
    PutChain(root_, "chain.ini");
    request_.MarginOffsetFlag = 1;
    Run();
    EXPECT_EQ(report.AccountStatistics.MaxRisk, 6500.0 / 101500 * 100);
}

TEST_F(ReportRun, OffsetsNoMarginsOfTheForeignFamily) {
    PutChain(root_, "chain.ini");
    PutChain(root_, "wpchain.ini");
    request_.StatementKind = 2;
    request_.MarginOffsetFlag = 1;
    CopyField(request_.BaseMoney.BILL_DATE, "20240103");
    CopyField(request_.BaseMoney.QMJC, "1000.00");
    CopyField(request_.BaseMoney.BZJZY, "500.00");
    SetDates("", "");
    watcher_.onStage = [this](const std::string& stage) {
        if (stage != "statistics") return;
        const char* const sides[][3] = {{"i2405", "i", "买"}, {"rb2405", "rb", "卖"}};
        for (const auto& [contract, product, side] : sides) {
            OpiSum row{};
            CopyField(row.BILL_DATE, "20240103");
            CopyField(row.CONTRACT, contract);
            CopyField(row.BID, Gbk(side));
            CopyField(row.POSITION_VOL, "1");
            CopyField(row.DEPOSIT, "100.00");
            report.TradeStatistics.FeedOpiSum(row, product);
        }
    };
    Run();
    EXPECT_EQ(report.TradeStatistics.DayUsages.Find("20240103")->Margin, 500);
    request_.StatementKind = 1;
    Run();
    EXPECT_EQ(report.TradeStatistics.DayUsages.Find("20240103")->Margin, 0);  // 100 taken off 100
}

TEST_F(ReportRun, WritesNothingOutsideTheUsersData) {
    PutBothDays();
    PutChain(root_, "chain.ini");
    root_.Write("BillTemplate/broker.ini", "[A]\n");
    root_.Write("Users/u/other.txt", "text");
    root_.Write("Users/v/Data/Bill/D10086.20240102o.txt", FullStatement("20240102"));
    CopyField(request_.TemplateName, "broker");
    const auto before = ContentOf(root_.Path());
    Run();

    auto after = ContentOf(root_.Path());
    EXPECT_EQ(after.erase("Users/u/Data/Bill/Image/"), 1U);
    EXPECT_EQ(after.erase("Users/u/Data/Bill/Image/Image_files/"), 1U);
    EXPECT_EQ(after.erase("Users/u/Data/Bill/Image/TradeBill.html"), 1U);
    for (const std::string picture :
         {"AccountSummary.jpg", "AccountDetail.jpg", "AccountFigure.jpg", "BillStatistics.jpg", "AccountStatics.jpg",
          "HealthFigure.jpg", "RiskFigure.jpg", "TradeStatistics.jpg", "LastPositions.jpg", "MatchDetails.jpg",
          "OffsetRecords.jpg", "OffsetFigure.jpg", "BillShrink.png", "BillExpand.png"}) {
        EXPECT_EQ(after.erase("Users/u/Data/Bill/Image/Image_files/" + picture), 1U) << picture;
    }
    EXPECT_EQ(after, before);  // statements included
}

TEST_F(ReportRun, KeepsContentAndLengthOfBrokenStatements) {
    using namespace std::string_literals;
    const std::string file = root_.Path("Users/u/Data/Bill/D10086.20240102o.txt");
    for (const std::string& text : {""s, "\0"s, FullStatement("20240102") + "\0behind"s, "\xFF\xFE\r\r\n"s,
                                    std::string(4096, 'x'), std::string(8192, '\n')}) {
        Put("D10086.20240102o.txt", text);
        EXPECT_EQ(Run().statementsRead, 1);
        EXPECT_EQ(ReadFile(file), text);
        EXPECT_EQ(fs::file_size(file), text.size());
    }
}

TEST_F(ReportRun, TakesAFolderInPlaceOfAStatementForNoStatement) {
    fs::create_directories(root_.Path("Users/u/Data/Bill/D10086.20240102o.txt"));
    EXPECT_EQ(Run().statementsRead, 0);
    EXPECT_TRUE(StoresAreEmpty(report));
}

TEST_F(ReportRun, CutsUnterminatedTexts) {
    const std::string user(127, 'u');
    const std::string account(16, 'a');
    const std::string name = "Users/" + user + "/Data/Bill/D" + account + ".20240102o.txt";
    root_.Write(name, FundsOf("20240102", "5.00"));
    std::ranges::fill(request_.UserFolder, 'u');
    std::ranges::fill(request_.Account, 'a');
    std::ranges::fill(request_.TemplateName, 't');
    const std::string date = "2024-1-2" + std::string(56, '-');
    std::ranges::copy(date, request_.StartDate);  // 64 bytes, no zero
    std::ranges::copy(date, request_.EndDate);
    const RunResult result = Run();
    EXPECT_EQ(result.statementsRead, 1);
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 5);
    EXPECT_EQ(result.pagePath, root_.Path("Users/" + user + "/Data/Bill/Image/TradeBill.html"));
    EXPECT_TRUE(result.pageWritten);
}

TEST_F(ReportRun, TakesAnyNumbersInTheRequest) {
    PutBothDays();
    for (const std::int32_t number : {INT32_MIN, -1, 0, 1, 97, INT32_MAX}) {
        request_.Dpi = number;
        request_.StatementFormat = number;
        request_.MarginOffsetFlag = number;
        request_.CurrencyCount = number;
        EXPECT_EQ(Run().end, RunEnd::Finished) << number;
        EXPECT_TRUE(Page().ends_with("</html>\r\n")) << number;
    }
}

TEST_F(ReportRun, ClearsAllResultsAtItsStart) {
    PutBothDays();
    PutChain(root_, "chain.ini");
    Run();
    report.Clear();
    EXPECT_TRUE(StoresAreEmpty(report));
    EXPECT_EQ(report.AccountStatistics.WinCount, 0);
    EXPECT_TRUE(report.ChainTable.Chains.empty());
    EXPECT_EQ(report.MoneyStore.EndDateText, "2024-01-03");  // these stay
    EXPECT_EQ(report.ReportDocument.ImageFolderName, "Image_files");
}

}  // namespace
}  // namespace tradebill::report_run_test
