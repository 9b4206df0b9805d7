// One small account, two days, worked out by hand from its statements to every byte of its page. The texts lie in
// whole_page/ as UTF-8 with plain line ends; the numbers that come from the title's font are marked, since fonts
// differ.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

#include "base/text.h"
#include "driver/host_products.h"
#include "driver/report_run.h"
#include "paint/font.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "support/gbk_text.h"
#include "support/store_fixture.h"
#include "support/temp_folder.h"

namespace tradebill::whole_page_test {
namespace {

std::string WithLineEnds(const std::string& text) {
    std::string result;
    for (const char byte : text) {
        if (byte == '\n') result += '\r';
        result += byte;
    }
    return result;
}

/// A text of whole_page/ as brokers and the page spell it.
std::string Expected(const std::string& name) {
    return WithLineEnds(Gbk(ReadFile(std::string(TRADEBILL_TESTS) + "/driver/whole_page/" + name)));
}

void ReplaceAll(std::string& text, std::string_view mark, int number) {
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark)) {
        text.replace(at, mark.size(), std::to_string(number));
    }
}

std::int32_t UnitOf(const char* /*account*/, const char* contract, const char* /*delivery*/) {
    return std::string_view(contract) == "i" ? 100 : 10;
}

GenerateBillRequest RequestForBothDays() {
    GenerateBillRequest request = ClearedRequest();
    request.StatementFormat = 1;
    request.StatementKind = 1;
    request.ContractUnitCallback = UnitOf;
    CopyField(request.StartDate, "2024-1-2");
    CopyField(request.EndDate, "2024-1-3");
    CopyField(request.Account, "10086");
    CopyField(request.UserFolder, "u");
    return request;
}

class WholePage : public StoreFixture {
protected:
    WholePage() {
        for (const std::string day : {"20240102", "20240103"}) {
            root_.Write("Users/u/Data/Bill/D10086." + day + "o.txt", Expected(day + ".txt"));
        }
        report.RootFolder = root_.Path();
        report.Products = &products_;
    }

    CTempFolder root_;
    CHostProducts products_{report.Request};
};

TEST_F(WholePage, IsTheOneWorkedOutByHand) {
    const RunResult result = RunReport(report, RequestForBothDays(), nullptr);

    std::string expected = Expected("expected.html");
    const TextExtent title = MeasureText({.face = "Arial", .cellHeight = 16, .weight = 600}, Gbk("交易统计"));
    ReplaceAll(expected, "@TITLE_WIDTH@", title.width + 10);
    ReplaceAll(expected, "@BUTTON_TOP@", 10 + (title.height - 8) / 2);
    ReplaceAll(expected, "@SUMMARY_BUTTON_TOP@", 108 + (title.height - 8) / 2);
    ReplaceAll(expected, "@BUTTON_LEFT@", 730 + title.width);
    EXPECT_TRUE(result.pageWritten);
    EXPECT_EQ(result.pagePath, root_.Path("Users/u/Data/Bill/Image/TradeBill.html"));
    EXPECT_EQ(GbkToUtf8(ReadFile(result.pagePath)), GbkToUtf8(expected));  // UTF-8, so that a difference can be read
    EXPECT_EQ(ReadFile(result.pagePath), expected);
}

TEST_F(WholePage, HasTheFiguresWorkedOutByHand) {
    RunReport(report, RequestForBothDays(), nullptr);

    EXPECT_EQ(report.MoneyStore.OpeningEquity, 100000);
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 102225.50);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 1000 + 1300);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, -1000);
    EXPECT_EQ(report.MoneyStore.TotalCashFlow, 1000);
    EXPECT_EQ(report.MoneyStore.TotalFees, 20 + 54.5);
    EXPECT_EQ(report.MoneyStore.MinEquity, 100980);
    EXPECT_EQ(report.MoneyStore.MaxEquity, 102225.50);
    EXPECT_EQ(report.MoneyStore.PositionMargin, 102225.50 - 98215.50);
    EXPECT_EQ(report.AccountStatistics.WinCount, 2);
    EXPECT_EQ(report.AccountStatistics.LoseCount, 1);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 1000 - 200 + 500);
    EXPECT_EQ(report.AccountStatistics.MaxProfit, 1000);
    EXPECT_EQ(report.AccountStatistics.MaxLoss, -200);
    EXPECT_EQ(report.AccountStatistics.MaxDrawdown, 0);
    EXPECT_DOUBLE_EQ(report.AccountStatistics.WinRate, 200.0 / 3);
    EXPECT_DOUBLE_EQ(report.AccountStatistics.ProfitRate, 1300.0 / 100980 * 100);
    EXPECT_DOUBLE_EQ(report.AccountStatistics.MaxRisk, 9000.0 / 100980 * 100);
    EXPECT_DOUBLE_EQ(report.AccountStatistics.MaxYield, (102225.50 - 1000 - 100000) / 100000 * 100);
}

}  // namespace
}  // namespace tradebill::whole_page_test
