// The whole page: its sections in order, each as it comes out alone, under their anchors.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/day.h"
#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/page_scripts.h"
#include "page/page_sections.h"
#include "page/statement_rows.h"
#include "support/host_objects.h"

namespace tradebill::page_shape_test {
namespace {

using SectionWriter = bool (*)(CHtmlBuilder&, const CReport&);

bool AddNotes(CHtmlBuilder& page, const CReport& /*report*/) {
    AddNotesSection(page);
    return true;
}

int CountOf(std::string_view text, std::string_view word) {
    int count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) ++count;
    return count;
}

class PageShape : public PageFixture {
protected:
    PageShape() {
        report.Request.StatementKind = 1;
        report.Request.StatementFormat = 1;
        report.ReportDays.first = report.ReportDays.last = MidnightOf({2024, 1, 2});
    }

    void AddOneRecordEverywhere() {
        AddTally(report, "cu", "2405").LONG_COUNT = 1;
        AddLot(report, {{"BILL_DATE", "20240102"}, {"CONTRACT", "cu"}});
        AddTrade(report, {{"BILL_DATE", "20240102"}, {"CONTRACT", "cu"}});
        AddClosed(report, {{"BILL_DATE", "20240102"}, {"CONTRACT", "cu"}});
    }

    /// What a section alone leaves on its page, its last line ended. A section that saw the stop leaves it open.
    std::string Alone(SectionWriter add) {
        CHtmlBuilder page(path_);
        add(page, report);
        page.ClosePage();
        const std::string text = Page();
        const std::string before = "<html>\r\n" + kHead + "<body>\r\n";
        const std::string after = "</body>\r\n</html>\r\n";
        EXPECT_TRUE(text.starts_with(before) && text.ends_with(after));
        return text.substr(before.size(), text.size() - before.size() - after.size());
    }

    /// A closed page of scripts, styles and `sections`.
    std::string WithScripts(const std::string& sections) {
        CHtmlBuilder page(path_);
        AddPageScripts(page, report);
        page.ClosePage();
        const std::string text = Page();
        const std::string after = "</body>\r\n</html>\r\n";
        EXPECT_TRUE(text.ends_with("</script>\r\n" + after));
        return text.substr(0, text.size() - after.size()) + sections + after;
    }

    std::string DomesticPage() {
        return WithScripts("<a name = 账户统计></a>\r\n" + Alone(AddAccountSection) + "<a name = 交易统计></a>\r\n" +
                           Alone(AddTradeSection) + "<a name = 期末持仓></a>\r\n" + Alone(AddPositionSection) +
                           "<a name = 成交明细></a>\r\n" + Alone(AddMatchSection) + "<a name = 平仓记录></a>\r\n" +
                           Alone(AddOffsetSection) + "<a name = 报告说明></a>\r\n" + Alone(AddNotes));
    }

    std::string ForeignPage() {
        return WithScripts("<a name = 账户统计></a>\r\n" + Alone(AddForeignAccountSection) +
                           "<a name = 交易统计></a>\r\n" + Alone(AddForeignTradeSection) +
                           "<a name = 期末持仓></a>\r\n" + Alone(AddForeignPositionSection) +
                           "<a name = 成交明细></a>\r\n" + Alone(AddForeignMatchSection) +
                           "<a name = 报告说明></a>\r\n" + Alone(AddNotes));
    }

    std::string WrittenPage() {
        CHtmlBuilder page(path_);
        AddPageSections(page, report);
        EXPECT_FALSE(page.HasFailed());
        return Page();
    }
};

TEST_F(PageShape, HasAllDomesticSectionsInOrder) {
    for (const int format : {0, 1, 2, 3, 6}) {
        report.Request.StatementFormat = format;
        EXPECT_EQ(WrittenPage(), DomesticPage()) << format;
    }
    AddOneRecordEverywhere();
    for (const int kind : {0, 1, 3}) {
        report.Request.StatementKind = kind;
        EXPECT_EQ(WrittenPage(), DomesticPage()) << kind;
    }
}

TEST_F(PageShape, HasNoOffsetSectionInForeignPages) {
    report.Request.StatementKind = 2;
    EXPECT_EQ(WrittenPage(), ForeignPage());
    AddOneRecordEverywhere();
    const std::string page = WrittenPage();
    EXPECT_EQ(page, ForeignPage());
    EXPECT_EQ(page.find("id= \"tabOffset\""), std::string::npos);
    EXPECT_EQ(CountOf(page, "function clickOfferset()"), 1);
}

TEST_F(PageShape, OfEmptyStoresHasAllHeadersAndDashRows) {
    const std::string page = WrittenPage();
    for (const char* const id : {"tabTrade", "tabPositions", "tabMatch", "tabOffset"}) {
        EXPECT_EQ(CountOf(page, "id= \"" + std::string(id) + "\""), 1) << id;
    }
    EXPECT_EQ(CountOf(page, "<table "), 4);
    EXPECT_EQ(CountOf(page, "</table>\r\n<h1></h1>"), 4);
    EXPECT_EQ(CountOf(page, "<tr>\r\n"), 10);  // four headers, four dash rows, two totals
}

TEST_F(PageShape, NamesTheButtonsOfItsSections) {
    const std::string page = WrittenPage();
    for (const char* const id : {"Statisticsbtn", "Positionsbtn", "Matchbtn", "Offersetbtn", "offsetFigure"}) {
        EXPECT_EQ(CountOf(page, "id = \"" + std::string(id) + "\""), 1) << id;
    }
}

TEST_F(PageShape, HasItsWrappersOnce) {
    AddOneRecordEverywhere();
    for (const int kind : {1, 2}) {
        report.Request.StatementKind = kind;
        const std::string page = WrittenPage();
        EXPECT_TRUE(page.starts_with("<html>\r\n<head>\r\n"));
        EXPECT_TRUE(page.ends_with("</p>\r\n</body>\r\n</html>\r\n"));
        for (const char* const tag : {"<html>", "<head>", "</head>", "<body>", "</body>", "</html>"}) {
            EXPECT_EQ(CountOf(page, std::string(tag) + "\r\n"), 1) << tag;
        }
        EXPECT_EQ(CountOf(page, "\r\r"), 0);
        EXPECT_EQ(CountOf(page, "\n"), CountOf(page, "\r\n"));
    }
}

TEST_F(PageShape, GoesOnWithTheNextSectionAfterAStop) {
    AddOneRecordEverywhere();
    const UniqueEvent stop(CreateHostEvent(1));
    const UniqueEvent acknowledge(CreateHostEvent(1));
    report.Request.StopEvent = stop.get();
    report.Request.AckEvent = acknowledge.get();
    SignalHostEvent(stop.get());
    const std::string page = WrittenPage();
    EXPECT_EQ(WaitForHostEvent(acknowledge.get(), 0), 1);
    // each section stops at its first row: open tables, no chart, but the notes and one page end
    EXPECT_EQ(page, DomesticPage());
    EXPECT_EQ(CountOf(page, "<table "), 4);
    EXPECT_EQ(CountOf(page, "</table>"), 0);
    EXPECT_EQ(CountOf(page, "billclr1'>"), 0);
    EXPECT_EQ(CountOf(page, "id = \"offsetFigure\""), 0);
    EXPECT_EQ(CountOf(page, "<p class=\"reporteptext\">"), 2);
    EXPECT_TRUE(page.ends_with("</p>\r\n</body>\r\n</html>\r\n"));
}

TEST_F(PageShape, StopsOneSectionForAnAutoResetEvent) {
    AddOneRecordEverywhere();
    const UniqueEvent stop(CreateHostEvent(0));
    report.Request.StopEvent = stop.get();
    SignalHostEvent(stop.get());
    const std::string page = WrittenPage();
    EXPECT_EQ(CountOf(page, "<table "), 4);
    EXPECT_EQ(CountOf(page, "</table>"), 3);
    EXPECT_LT(page.find("<a name = 期末持仓></a>"), page.find("</table>"));
    report.Request.StopEvent = nullptr;
    EXPECT_TRUE(page.ends_with("<a name = 期末持仓></a>\r\n" + Alone(AddPositionSection) +
                               "<a name = 成交明细></a>\r\n" + Alone(AddMatchSection) + "<a name = 平仓记录></a>\r\n" +
                               Alone(AddOffsetSection) + "<a name = 报告说明></a>\r\n" + Alone(AddNotes) +
                               "</body>\r\n</html>\r\n"));
}

TEST_F(PageShape, IsNothingIfThePageCantBeMade) {
    CHtmlBuilder page(folder_.Path("none/TradeBill.html"));
    AddOneRecordEverywhere();
    AddPageSections(page, report);
    EXPECT_TRUE(page.HasFailed());
    EXPECT_EQ(ReadFile(folder_.Path("none/TradeBill.html")), "");
}

}  // namespace
}  // namespace tradebill::page_shape_test
