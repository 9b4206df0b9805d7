#include "page/table_section.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "page/page_fixture.h"
#include "platform/host_link.h"
#include "support/host_objects.h"

namespace tradebill::table_section_test {
namespace {

constexpr CellClasses kClasses{.normal = "plain", .bid = "red", .ask = "green"};
constexpr Heading kHeadings[] = {{"ab", "60%"}, {"cde", "40%"}};
constexpr TableSection kTable{
    .title = {.title = "t", .handler = "h", .buttonId = "b", .picture = "p.jpg", .titleTail = "", .heightTail = ""},
    .tableId = "tab",
    .classes = kClasses,
    .sums = {.normal = "sum", .bid = "sumred", .ask = "sumgreen"},
};
const std::string kPlain = CellOpening("plain");
const std::string kRed = CellOpening("red");
const std::string kSum = CellOpening("sum");
const std::string kTop = TableTop("tab", "plain", {{"ab", "60%"}, {"cde", "40%"}});

// A function, because measuring asks for fonts and must not happen before main().
std::string Title() {
    return TitleBlock({"t", "h", "b", "p.jpg", "", ""});
}

TEST(SignClass, IsRedAboveTheLeastAmountAndGreenBelow) {
    constexpr double kLeast = 1.1920928955078125e-07;
    EXPECT_EQ(SignClass(std::nextafter(kLeast, 1.0), kClasses), "red");
    EXPECT_EQ(SignClass(kLeast, kClasses), "plain");
    EXPECT_EQ(SignClass(0.0, kClasses), "plain");
    EXPECT_EQ(SignClass(-0.0, kClasses), "plain");
    EXPECT_EQ(SignClass(-kLeast, kClasses), "plain");
    EXPECT_EQ(SignClass(std::nextafter(-kLeast, -1.0), kClasses), "green");
    EXPECT_EQ(SignClass(0.01, kClasses), "red");
    EXPECT_EQ(SignClass(-1e300, kClasses), "green");
}

TEST(BandClass, IsPaleForOddCounters) {
    EXPECT_EQ(BandClass(1), "billclr1");
    EXPECT_EQ(BandClass(2), "billclr2");
    EXPECT_EQ(BandClass(3), "billclr1");
    EXPECT_EQ(BandClass(100), "billclr2");
}

TEST(ContractText, JoinsAndTrimsTheFrontOnce) {
    const auto shown = [](std::string_view contract, std::string_view delivery) {
        return std::string(CContractText(contract, delivery).View());
    };
    EXPECT_EQ(shown("cu", "2405"), "cu2405");
    EXPECT_EQ(shown("cu ", " 2405 "), "cu  2405 ");
    EXPECT_EQ(shown(" \t\r\n\v\fcu", ""), "cu");
    EXPECT_EQ(shown("\xA1\xA1\xA1"
                    "cu",
                    "1"),
              "cu1");
    EXPECT_EQ(shown(" \xA1 cu", "1"), " cu1");  // white space, then 0xA1, each once
    EXPECT_EQ(shown("",
                    " \xA1"
                    "5"),
              "5");
    EXPECT_EQ(shown(" ", "\xA1"), "");
}

class TableWriter : public PageFixture {
protected:
    CHtmlBuilder page_{path_};
};

TEST_F(TableWriter, OpensWithTitleHeaderAndDashes) {
    CTableWriter table(page_, report, kTable, kHeadings);
    table.Flush();
    EXPECT_EQ(Page(), kHead + Title() +
                          "<table style=\"table-layout: fixed;\" cellspacing = \"0\" border=\"0\" id= \"tab\">\r\n"
                          "<tr>\r\n"
                          "<td style=\"padding:5px 0px; \" width=\"60%\"><span class='plain'>ab</span></td>"
                          "<td style=\"padding:5px 0px; \" width=\"40%\"><span class='plain'>cde</span></td>"
                          "</tr>\r\n"
                          "<tr>\r\n"
                          "<td style=\"padding:5px 0px; overflow:hidden; white-space:nowrap;\">"
                          "<span class='plain'>--</span></td>"
                          "<td style=\"padding:5px 0px; overflow:hidden; white-space:nowrap;\">"
                          "<span class='plain'>---</span></td>"
                          "</tr>\r\n");
}

TEST_F(TableWriter, GivesTheTableThePageWidth) {
    report.ReportDocument.PageWidth = 1250;
    CTableWriter table(page_, report, kTable, kHeadings);
    table.Flush();
    EXPECT_NE(Page().find("<table width = \"1250\" style=\"table-layout: fixed;\" cellspacing = \"0\" border=\"0\" "
                          "id= \"tab\">\r\n"),
              std::string::npos);
}

TEST_F(TableWriter, CountsDashesByGbkBytes) {
    const std::string wide = Gbk("手数　 ");
    const std::vector<Heading> headings = {{wide, "100%"}};
    CTableWriter table(page_, report, kTable, headings);
    table.AddDashRow("band");
    table.Flush();
    const std::string dashes =
        "<td style=\"padding:5px 0px; overflow:hidden; white-space:nowrap;\"><span class='plain'>-------</span></td>"
        "</tr>\r\n";
    EXPECT_TRUE(Page().ends_with("<tr>\r\n" + dashes + "<tr class='band'>\r\n" + dashes)) << Page();
}

TEST_F(TableWriter, ClosesTheTableWithASpacer) {
    CTableWriter table(page_, report, kTable, kHeadings);
    table.AddRow(std::vector<OpenedCell>{{"1", kRed}, {"2", kPlain}}, "band");
    table.CloseTable();
    page_.Settle();
    const std::string row = HtmlRow("band", "plain", {"1", "2"}, {{0, "red"}});
    EXPECT_EQ(Page(), kHead + Title() + kTop + row + "</table>\r\n<h1></h1>");
}

TEST_F(TableWriter, ClosesThePageToo) {
    CTableWriter table(page_, report, kTable, kHeadings);
    table.Close();
    page_.Settle();
    EXPECT_EQ(Page(), ClosedPage(Title() + kTop + "</table>\r\n<h1></h1>\r\n"));
}

TEST_F(TableWriter, GathersLessThanTwoBlocksBehindAClosing) {
    page_.ClosePage();
    CTableWriter table(page_, report, kTable, kHeadings);
    const std::string text(1500, 'x');
    const std::vector<OpenedCell> cells = {{text, kPlain}, {text, kPlain}};
    const std::string row = HtmlRow("", "plain", {text, text});
    std::string written = Gbk(ClosedPage("")) + Title() + kTop;
    std::size_t most = 0;
    for (int i = 0; i < 300; ++i) {
        table.AddRow(cells, "");
        written += row;
        most = std::max(most, written.size() - std::filesystem::file_size(path_));
    }
    EXPECT_LE(most, 2U * 256 * 1024);
    EXPECT_GT(most, 0U);  // rows are gathered at all
    table.Flush();
    EXPECT_TRUE(Bytes() == written);
    table.Flush();
    EXPECT_TRUE(Bytes() == written);
}

TEST_F(TableWriter, LeavesItsRowsOnDiskWhenItGoes) {
    { CTableWriter(page_, report, kTable, kHeadings).AddRow(std::vector<OpenedCell>{{"1", kPlain}}, ""); }
    EXPECT_EQ(Page(), kHead + Title() + kTop + HtmlRow("", "plain", {"1"}));
}

TEST_F(TableWriter, SeesNoStopWithoutAnEvent) {
    const UniqueEvent acknowledge(CreateHostEvent(1));
    report.Request.AckEvent = acknowledge.get();
    CTableWriter table(page_, report, kTable, kHeadings);
    EXPECT_FALSE(table.StopRequested());
    EXPECT_FALSE(WaitForEvent(acknowledge.get(), 0));
}

TEST_F(TableWriter, SeesNoStopBeforeItIsSignalled) {
    const UniqueEvent stop(CreateHostEvent(1));
    const UniqueEvent acknowledge(CreateHostEvent(1));
    report.Request.StopEvent = stop.get();
    report.Request.AckEvent = acknowledge.get();
    CTableWriter table(page_, report, kTable, kHeadings);
    EXPECT_FALSE(table.StopRequested());
    EXPECT_FALSE(WaitForEvent(acknowledge.get(), 0));
    SignalHostEvent(stop.get());
    EXPECT_TRUE(table.StopRequested());
    EXPECT_TRUE(WaitForEvent(acknowledge.get(), 0));
    EXPECT_EQ(Page(), kHead + Title() + kTop);
}

TEST_F(TableWriter, ShowsThePageBeforeItAnswersAStop) {
    const UniqueEvent stop(CreateHostEvent(1));
    const UniqueEvent acknowledge(CreateHostEvent(1));
    report.Request.StopEvent = stop.get();
    report.Request.AckEvent = acknowledge.get();
    std::vector<std::string> shown;
    const std::string path = folder_.Path("shown.html");
    CHtmlBuilder page(WholePath{path}, nullptr, [&] {
        shown.push_back(ReadFile(path));
        EXPECT_FALSE(WaitForEvent(acknowledge.get(), 0));
    });
    CTableWriter table(page, report, kTable, kHeadings);
    EXPECT_FALSE(table.StopRequested());
    EXPECT_TRUE(shown.empty());
    SignalHostEvent(stop.get());
    EXPECT_TRUE(table.StopRequested());
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_NE(shown[0].find("<table"), std::string::npos);
    EXPECT_TRUE(WaitForEvent(acknowledge.get(), 0));
}

TEST_F(TableWriter, StopsWithoutAnAcknowledgeEvent) {
    const UniqueEvent stop(CreateHostEvent(1));
    report.Request.StopEvent = stop.get();
    SignalHostEvent(stop.get());
    CTableWriter table(page_, report, kTable, kHeadings);
    EXPECT_TRUE(table.StopRequested());
    EXPECT_EQ(Page(), kHead + Title() + kTop);
}

struct DayRow {
    char BILL_DATE[9];
    std::string name;
};

struct NameSettings {
    std::string skipped = {};              ///< names that don't count
    HostEventHandle stop = nullptr;        ///< signalled while ...
    std::string stopsAt = "no such name";  ///< ... this record is written
};

/// Writes one row for each record, and a subtotal with all names of the group.
class CNameLayout {
public:
    explicit CNameLayout(NameSettings settings) : settings_(std::move(settings)) {}

    [[nodiscard]] bool Counts(const DayRow& row) const { return settings_.skipped.find(row.name) == std::string::npos; }
    void ResetSums() { names_.clear(); }
    void WriteRecord(CTableWriter& table, const DayRow& row, std::string_view band) {
        table.AddRow(std::vector<OpenedCell>{{row.name, kPlain}}, band);
        names_ += row.name;
        if (row.name == settings_.stopsAt) SignalHostEvent(settings_.stop);
    }
    void WriteSubtotal(CTableWriter& table, std::string_view band) {
        table.AddRow(std::vector<OpenedCell>{{names_, kSum}}, band);
    }

private:
    NameSettings settings_;
    std::string names_;
};

class DayGroups : public TableWriter {
protected:
    void Add(std::string_view day, const std::string& name) {
        DayRow& row = rows_.emplace_back();
        CopyField(row.BILL_DATE, day);
        row.name = name;
    }

    /// The rows behind the header as "band:text", "=" for a subtotal.
    std::string Written(NameSettings settings = {}) {
        CNameLayout layout(std::move(settings));
        CTableWriter table(page_, report, kTable, kHeadings);
        finished_ = WriteDayGroups(table, rows_, layout);
        if (finished_) table.Flush();
        const std::string page = Page();
        const std::size_t top = page.find(kTop);
        std::string result;
        for (std::size_t at = page.find("<tr class='billclr", top); at != std::string::npos;
             at = page.find("<tr class='billclr", at + 1)) {
            const std::size_t cell = page.find("<span class='", at) + 13;
            const std::size_t text = page.find("'>", cell) + 2;
            result += page[at + 18];
            result += page.substr(cell, 3) == "sum" ? "=" : ":";
            result += page.substr(text, page.find("</span>", text) - text) + " ";
        }
        return result;
    }

    std::vector<DayRow> rows_;
    bool finished_ = false;
};

TEST_F(DayGroups, OfNothingAreNothing) {
    EXPECT_EQ(Written(), "");
    EXPECT_TRUE(finished_);
    EXPECT_EQ(Page(), kHead + Title() + kTop);
}

TEST_F(DayGroups, EndWhereTheDayChanges) {
    Add("20240102", "a");
    Add("20240102", "b");
    Add("20240103", "c");
    Add("20240102", "d");
    EXPECT_EQ(Written(), "1:a 1:b 1=ab 2:c 2=c 1:d 1=d ");
}

TEST_F(DayGroups, OpenWithTheFirstRecordEvenWithoutADay) {
    Add("", "a");
    Add("", "b");
    Add("20240102", "c");
    EXPECT_EQ(Written(), "1:a 1:b 1=ab 2:c 2=c ");
}

TEST_F(DayGroups, PassOverRecordsThatDontCount) {
    Add("20240101", "x");
    Add("20240102", "a");
    Add("20240103", "y");
    Add("20240102", "b");
    EXPECT_EQ(Written({.skipped = "xy"}), "1:a 1:b 1=ab ");
}

TEST_F(DayGroups, HaveNoSubtotalBehindALastRecordThatDoesntCount) {
    Add("20240102", "a");
    Add("20240103", "b");
    Add("20240104", "x");
    EXPECT_EQ(Written({.skipped = "x"}), "1:a 1=a 2:b ");
}

TEST_F(DayGroups, EndAtOnceWhenAStopIsSeen) {
    const UniqueEvent stop(CreateHostEvent(0));
    const UniqueEvent acknowledge(CreateHostEvent(0));
    report.Request.StopEvent = stop.get();
    report.Request.AckEvent = acknowledge.get();
    Add("20240102", "a");
    Add("20240103", "b");
    Add("20240104", "c");
    Add("20240104", "d");
    EXPECT_EQ(Written({.stop = stop.get(), .stopsAt = "b"}), "1:a 1=a 2:b ");
    EXPECT_FALSE(finished_);
    EXPECT_TRUE(WaitForEvent(acknowledge.get(), 0));
    EXPECT_FALSE(WaitForEvent(stop.get(), 0));  // an auto-reset event is used up
}

TEST_F(DayGroups, LookForAStopBeforeRecordsThatDontCountToo) {
    const UniqueEvent stop(CreateHostEvent(1));
    report.Request.StopEvent = stop.get();
    Add("20240102", "a");
    Add("20240103", "x");
    EXPECT_EQ(Written({.skipped = "x", .stop = stop.get(), .stopsAt = "a"}), "1:a ");
    EXPECT_FALSE(finished_);
}

TEST_F(DayGroups, DontLookBehindTheLastRecord) {
    const UniqueEvent stop(CreateHostEvent(1));
    report.Request.StopEvent = stop.get();
    Add("20240102", "a");
    EXPECT_EQ(Written({.stop = stop.get(), .stopsAt = "a"}), "1:a 1=a ");
    EXPECT_TRUE(finished_);
}

}  // namespace
}  // namespace tradebill::table_section_test
