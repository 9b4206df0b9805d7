// Any statements of some days, chains and live figures as a whole run without pictures, in memory but for the page:
// reading, statistics, page, its one-file form and JSON.
#include <cstddef>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>

#include "analysis/analysis.h"
#include "base/line_counter.h"
#include "base/report_error.h"
#include "base/text.h"
#include "base/utf8.h"
#include "export/json_writer.h"
#include "export/run_json.h"
#include "findings/side_table_watch.h"
#include "fuzz_statement.h"
#include "fuzz_target.h"
#include "page/html_builder.h"
#include "page/page_sections.h"
#include "page/standalone_page.h"
#include "readers/side_table_reader.h"
#include "report/money_record.h"
#include "report/record_fields.h"
#include "report/records.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr int kFirstDay = 20240102;
constexpr int kMostDays = 4;
constexpr int kPageWidth = 1000;

void TakeLiveFigures(CReport& report, CFuzzInput& input) {
    auto money = std::make_unique<MoneyRecord>(ClearedMoneyRecord());
    for (const auto& field : kMoneyFields) {
        const auto bytes = field.bytes(*money);
        CopyText(bytes.data(), input.Text().substr(0, bytes.size() - 1));
    }
    money->EXCHANGE_RATE = input.Amount();
    report.TradeStatistics.FeedDayMoney(money.get());
    if (report.IsForeign()) {
        report.CurrencyMoneyStore.Add(std::make_unique<MoneyRecord>(*money), FieldText(money->CURRENCY),
                                      MoneySource::Live, report.Format().equity);
    }
    report.MoneyStore.Add(std::move(money), MoneySource::Live, report.Format().equity);
}

void ReadChains(CReport& report, std::string_view ini) {
    Require(!report.ChainTable.Load(WriteFuzzFile("chain.ini", ini)), "any bytes can be read as chains");
}

void ReadDays(CReport& report, CFuzzInput& input) {
    for (int i = 0; i < kMostDays && !input.IsEmpty(); ++i) {
        const std::string day = std::to_string(kFirstDay + i);
        if (!ReadStatement(report, day, input.Text(), nullptr, nullptr)) return;
    }
}

/// Returns whether no error ended the page.
/// The tables beside the page's own, whatever their days: out of all texts at once.
void ReadSideRows(CReport& report, std::string_view text) {
    CLineCounter lines;
    lines.Begin(text);
    const std::string day = std::to_string(kFirstDay);
    CSideTableWatch watch(day, lines, report.SideRecords);
    ReadSideTables(text, watch);
}

bool MakePage(const CReport& report, const std::string& path, std::ostream& oneFile) {
    CStandalonePage copy(oneFile);
    CHtmlBuilder page(path, &copy);
    bool isWhole = true;
    try {
        AddPageSections(page, report);
    } catch (const CReportError&) {
        isWhole = false;
    }
    copy.Finish();
    Require(!page.HasFailed(), "the page is written");
    return isWhole;
}

std::size_t CountOf(std::string_view text, std::string_view word) {
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) ++count;
    return count;
}

/// REQUIRES: no text of a statement has a tag in it.
void RequireBalance(std::string_view page) {
    for (const std::string_view element : {"table", "tr", "td", "span"}) {
        const std::string opening = "<" + std::string(element);
        const std::string end = "</" + std::string(element) + ">";
        Require(CountOf(page, opening + " ") + CountOf(page, opening + ">") == CountOf(page, end),
                "every element of a whole page ends");
    }
}

void RequirePage(const CReport& report, bool hasTags, bool isMadeTwice) {
    const std::string path = FuzzFolder() + "/TradeBill.html";
    std::ostringstream oneFile;
    const bool isWhole = MakePage(report, path, oneFile);
    const std::string page = BytesOfFile(path);
    Require(page.starts_with("<html>"), "a page begins");
    // Where a text has tags of its own that stand around a page, closing it makes it shorter, and the file isn't cut.
    Require(!isWhole || (hasTags ? Contains(page, "</html>\r\n") : page.ends_with("</html>\r\n")), "a page is whole");
    Require(IsUtf8(oneFile.view()), "the page in one file is UTF-8");
    if (isWhole && !hasTags) RequireBalance(page);
    if (!isMadeTwice) return;
    std::ostringstream again;
    Require(MakePage(report, path, again) == isWhole && BytesOfFile(path) == page && again.view() == oneFile.view(),
            "a page that is made twice is the same");
}

}  // namespace

void FuzzRun(std::string_view bytes) {
    CFuzzInput input(bytes);
    const StatementChoice choice = TakeStatementChoice(input);
    const std::size_t settings = input.Byte();
    CFuzzReport made(choice, (settings & 1) != 0);
    CReport& report = made.Get();
    report.Request.MarginOffsetFlag = (settings & 2) != 0 ? 1 : 0;
    if ((settings & 32) != 0) report.Request.Dpi = input.Integer();
    report.ReportDocument.PageWidth = kPageWidth;
    if ((settings & 8) != 0) ReadChains(report, input.Text());
    if ((settings & 4) != 0) TakeLiveFigures(report, input);
    ReadDays(report, input);
    ReadSideRows(report, bytes);
    FinishFuzzReport(report);
    RequirePage(report, bytes.find('<') != std::string_view::npos, (settings & 16) != 0);
    std::ostringstream json;
    WriteJson(report, {.run = RunFacts{}, .analysis = Analyse(report)}, json);
    RequireJson(json.view());
}

}  // namespace tradebill
