// The page as one file: what a builder gives it, and how pictures come into it.
#include "page/standalone_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "base/day.h"
#include "base/text.h"
#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/page_sections.h"
#include "page/page_text.h"
#include "page/row_block.h"
#include "page/standalone_script.h"
#include "page/statement_rows.h"
#include "platform/local_time.h"
#include "report/record_fields.h"
#include "report/records.h"
#include "report/statement_format.h"
#include "support/unfolded_rows.h"

namespace tradebill::standalone_page_test {
namespace {

const std::string kPolicy =
    "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; img-src data:; script-src '" +
    std::string(StandaloneScriptHash()) + "'; style-src 'unsafe-inline'; base-uri 'none'; form-action 'none'\">\r\n";
const std::string kBefore = "<html>\r\n<head>\r\n<meta charset=\"utf-8\">\r\n" + kPolicy +
                            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\r\n"
                            "<title> 交易及账单报告 </title>\r\n</head>\r\n<body>\r\n";
const std::string kBehind = "</body>\r\n</html>\r\n";

std::size_t CountOf(std::string_view text, std::string_view what) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string_view::npos; at = text.find(what, at + 1)) ++count;
    return count;
}

class StandalonePage : public PageFixture {
protected:
    StandalonePage() {
        folder_.Write("Image_files/BillShrink.png", "abcd");
        folder_.Write("Image_files/AccountSummary.jpg", "ab");
    }

    /// The file that comes of what `add` does.
    template <class Add>
    std::string Whole(Add add) {
        std::ostringstream out;
        CStandalonePage copy(out);
        CHtmlBuilder page(path_, &copy);
        add(page);
        copy.Finish();
        return out.str();
    }
    /// Its body.
    template <class Add>
    std::string Body(Add add) {
        const std::string text = Whole(add);
        EXPECT_TRUE(text.starts_with(kBefore) && text.ends_with(kBehind)) << text;
        return text.substr(kBefore.size(), text.size() - kBefore.size() - kBehind.size());
    }
    std::string LinkTo(const std::string& picture) { return CHeldPictures().AddressOf(report, picture); }
};

TEST_F(StandalonePage, IsUtf8AndSaysSo) {
    EXPECT_EQ(Body([](CHtmlBuilder& page) { page.AddText(Gbk("买\r\n")); }), "买\r\n");
    EXPECT_EQ(Body([](CHtmlBuilder&) {}), "");
    EXPECT_EQ(Body([](CHtmlBuilder& page) { page.AddText(""); }), "");
}

TEST_F(StandalonePage, HasItsStylesInTheHead) {
    const std::string whole = Whole([](CHtmlBuilder& page) {
        page.AddText("text");
        page.AddStyle({.className = "a"});
        page.AddStyle({.className = "b"});
    });
    const auto style = [](const std::string& name) {
        return "<style type='text/css'>\r\n." + name + "{\r\nline-height:100%;\r\n}\r\n</style>\r\n\r\n";
    };
    const std::string head = kBefore.substr(0, kBefore.find("</head>"));
    EXPECT_EQ(whole, head + style("a") + style("b") + "</head>\r\n<body>\r\ntext\r\n" + kBehind);
}

TEST_F(StandalonePage, EndsOpenLinesWhereThePageIsClosed) {
    EXPECT_EQ(Body([](CHtmlBuilder& page) {
                  page.AddHeading(1, "", "");
                  page.ClosePage();
                  page.ClosePage();
                  page.AddText("a");
                  page.AddText("b");
                  page.ClosePage();
              }),
              "<h1></h1>\r\nab\r\n");
}

// "abcd" is 01100001 01100010 01100011 01100100: YWJj, and 01100100 alone: ZA==. "ab" is YWI=.
TEST_F(StandalonePage, HoldsItsPictures) {
    EXPECT_EQ(LinkTo("BillShrink.png"), "data:image/png;name=BillShrink.png;base64,YWJjZA==");
    EXPECT_EQ(LinkTo("AccountSummary.jpg"), "data:image/jpeg;name=AccountSummary.jpg;base64,YWI=");
    EXPECT_EQ(LinkTo("HealthFigure.jpg"), "data:image/jpeg;name=HealthFigure.jpg;base64,");  // isn't there
}

TEST_F(StandalonePage, TellsAPictureThatWasSavedAndCantBeReadBack) {
    const auto lost = [this](const char* picture) {
        const CHeldPictures pictures;
        EXPECT_TRUE(pictures.AddressOf(report, picture).ends_with("base64,")) << picture;
        return pictures.Lost();
    };
    EXPECT_FALSE(lost("HealthFigure.jpg"));  // couldn't be saved, and nobody says that it could
    report.ReportDocument.SavedPictures = {{"HealthFigure.jpg", 1, 1}};
    ASSERT_TRUE(lost("HealthFigure.jpg"));
    EXPECT_EQ(lost("HealthFigure.jpg")->path, folder_.Path("Image_files/HealthFigure.jpg"));
    EXPECT_EQ(lost("HealthFigure.jpg")->state, FileState::Missing);
    folder_.Write("Image_files/RiskFigure.jpg/in the way", "");
    ASSERT_TRUE(lost("RiskFigure.jpg"));
    EXPECT_EQ(lost("RiskFigure.jpg")->state, FileState::NotAFile);

    std::ostringstream out;
    CStandalonePage page(out);
    EXPECT_FALSE(page.LostPicture());
    EXPECT_TRUE(page.Form().PictureAddress(report, "RiskFigure.jpg").ends_with("base64,"));
    EXPECT_TRUE(page.LostPicture());
}

TEST_F(StandalonePage, DiffersFromThePageInItsFormAlone) {
    AddClosed(report, {{"BILL_DATE", "20240102"}, {"CONTRACT", "铜"}, {"MATCH_VOL", "3"}});
    const std::string body = Body([this](CHtmlBuilder& page) {
        AddAccountSection(page, report);
        AddOffsetSection(page, report);
    });
    std::string told = Page().substr(ClosedPage("").size() - kBehind.size());
    told.resize(told.size() - kBehind.size());
    const auto replace = [&told](const std::string& from, const std::string& to, int times) {
        std::size_t at = 0;
        for (int i = 0; i < times; ++i, at += to.size()) {
            at = told.find(from, at);
            ASSERT_NE(at, std::string::npos) << from;
            told.replace(at, from.size(), to);
        }
        EXPECT_EQ(told.find(from, at), std::string::npos) << from;
    };
    for (const char* const picture :
         {"AccountSummary.jpg", "AccountDetail.jpg", "AccountFigure.jpg", "AccountStatics.jpg", "HealthFigure.jpg",
          "RiskFigure.jpg", "OffsetRecords.jpg", "OffsetFigure.jpg"}) {
        replace("src=\"Image_files\\" + std::string(picture) + "\"", "src=\"" + LinkTo(picture) + "\"", 1);
    }
    replace("src=\"Image_files\\BillShrink.png\"", "src=\"" + LinkTo("BillShrink.png") + "\"", 2);
    replace("onclick = \"clicksummary()\"", "data-button=\"summarybtn\" data-parts=\"account tabStatistics\"", 2);
    replace("onclick = \"clickOfferset()\"", "data-button=\"Offersetbtn\" data-parts=\"tabOffset offsetFigure\"", 2);
    replace("onselectstart=\"return false;\"", "data-unmarkable", 3);
    for (const char* const number : {"0", "1", "2", "3"}) {
        replace("href = \"javascript:void(" + std::string(number) + ")\"", "href = \"#\"", 1);
    }
    EXPECT_EQ(body, told);
}

TEST_F(StandalonePage, FoldsTheThreePartsOfAForeignAccount) {
    report.Request.StatementKind = 2;
    const std::string body = Body([this](CHtmlBuilder& page) { AddForeignAccountSection(page, report); });
    EXPECT_EQ(CountOf(body, "data-button=\"summarybtn\" data-parts=\"AccountDetail AccountFigure tabStatistics\""), 2u);
    EXPECT_EQ(CountOf(body, "onclick"), 0u);
}

TEST_F(StandalonePage, HasOneScriptThatReadsThePicturesOfItsElement) {
    const std::string whole = Whole([this](CHtmlBuilder& page) { AddPageSections(page, report); });
    const std::string element =
        "<script data-shrink=\"data:image/png;name=BillShrink.png;base64,YWJjZA==\" "
        "data-expand=\"data:image/png;name=BillExpand.png;base64,\">" +
        std::string(StandaloneScript()) + "</script>\r\n";
    EXPECT_EQ(CountOf(whole, element), 1u);
    EXPECT_EQ(CountOf(whole, "<script"), 1u);
    EXPECT_EQ(CountOf(whole, "Image_files"), 0u);
}

// A hash covers what stands between the tags, and nothing must end it early or change on the way to the page.
TEST(StandaloneScript, IsPlainText) {
    const std::string_view script = StandaloneScript();
    EXPECT_NE(script.find("addEventListener(\"click\""), std::string_view::npos);
    EXPECT_EQ(script.find("</"), std::string_view::npos);
    EXPECT_EQ(script.find("<!--"), std::string_view::npos);
    EXPECT_TRUE(std::ranges::all_of(script, [](char byte) { return byte == '\n' || (byte >= ' ' && byte <= '~'); }));
    EXPECT_TRUE(StandaloneScriptHash().starts_with("sha256-") && StandaloneScriptHash().ends_with("="));
    EXPECT_EQ(StandaloneScriptHash().size(), 7u + 44u);
}

TEST_F(StandalonePage, RunsNoHandlerOfAnAttribute) {
    for (const int kind : {1, 2}) {
        report.Request.StatementKind = kind;
        std::string whole = Whole([this](CHtmlBuilder& page) { AddPageSections(page, report); });
        whole.erase(whole.find(StandaloneScript()), StandaloneScript().size());
        EXPECT_EQ(CountOf(whole, " on"), 0u) << kind;
        EXPECT_EQ(CountOf(whole, "javascript:"), 0u) << kind;
    }
}

TEST_F(StandalonePage, ShowsTheTextsOfCellsAsTheyStand) {
    struct Text {
        std::string cell;
        std::string escaped;
    };
    const Text texts[] = {
        {"\"Image_files\\BillShrink.png\"", "&quot;Image_files\\BillShrink.png&quot;"},
        {"</body>", "&lt;/body&gt;"},
        {"<head>\r\n", "&lt;head&gt;\r\n"},
        {"</script><script>a()", "&lt;/script&gt;&lt;script&gt;a()"},
        {"'&lt;'", "&#39;&amp;lt;&#39;"},
    };
    for (const Text& text : texts) {
        const std::string body = Body([&text](CHtmlBuilder& page) {
            page.AddText("line\r\n");
            page.ClosePage();
            CRowBlock rows(page.HasCopy());
            const OpenedCell cells[] = {{text.cell, "<td>"}};
            rows.AddRow(cells, "");
            page.AddRows(rows);
            page.ClosePage();
        });
        EXPECT_EQ(body, "line\r\n<tr>\r\n<td>" + text.escaped + "</span></td></tr>\r\n");
    }
}

TEST_F(StandalonePage, ShowsTheTextsOfHeadingsRowsAndNotesAsTheyStand) {
    const std::vector<Cell> cells = {{"<b>", "c"}, {"2", "c"}};
    const std::vector<std::string_view> widths = {"1%", "2%"};
    const std::string body = Body([&](CHtmlBuilder& page) {
        page.AddHeading(2, "", "<b>");
        page.AddHeading(3, "c", "&");
        page.AddNote("<b>");
        page.AddRow(cells, "");
        page.AddSizedRow(cells, widths, "r");
    });
    EXPECT_EQ(body,
              "<h2>&lt;b&gt;</h2><h3 class=c>&amp;</h3><p class=\"reporteptext\">&lt;b&gt;</p>\r\n"
              "<tr>\r\n" +
                  CellOpening("c") + "&lt;b&gt;</span></td>" + CellOpening("c") +
                  "2</span></td></tr>\r\n<tr class='r'>\r\n"
                  "<td style=\"padding:5px 0px; \" width=\"1%\"><span class='c'>&lt;b&gt;</span></td>"
                  "<td style=\"padding:5px 0px; \" width=\"2%\"><span class='c'>2</span></td></tr>\r\n");
    EXPECT_NE(Page().find("<h2><b></h2><h3 class=c>&</h3><p class=\"reporteptext\"><b></p>\r\n"), std::string::npos);
}

// A lead byte without its second one must not take the byte behind it along: neither markup of the page behind the
// cell, nor what is escaped within.
TEST_F(StandalonePage, LetsNoBrokenCharacterTakeMarkupAlong) {
    for (int lead = 0x80; lead <= 0xFF; ++lead) {
        for (const std::string behind : {"", "<", ">", "&", "'", "\""}) {
            const std::string cell = static_cast<char>(lead) + behind;
            const std::string body = Body([&cell](CHtmlBuilder& page) {
                CRowBlock rows(true);
                const OpenedCell cells[] = {{cell, "<td>"}};
                rows.AddRow(cells, "");
                page.AddRows(rows);
            });
            EXPECT_EQ(body, "<tr>\r\n<td>\uFFFD" + EscapedText(behind) + "</span></td></tr>\r\n") << lead << behind;
        }
    }
}

template <class Record>
void FillWith(Record& record, std::span<const TextField<Record>> fields, std::string_view text) {
    for (const TextField<Record>& field : fields) {
        if (field.name == "BILL_DATE") continue;  // of the file's name, never of the statement
        CopyText(field.bytes(record).data(), text);
    }
}

TEST_F(StandalonePage, EscapesEveryFieldOfEveryFormat) {
    constexpr std::string_view kHostile = "<i>'";
    FillWith<MatchRecord>(AddTrade(report, {{"BILL_DATE", "20240102"}}), kMatchFields, kHostile);
    FillWith<PingDetail>(AddClosed(report, {{"BILL_DATE", "20240102"}}), kPingFields, kHostile);
    FillWith<OpiDetail>(AddLot(report, {{"BILL_DATE", "20240102"}}), kOpiDetailFields, kHostile);
    FillWith<OpiSum>(AddPosition(report, {{"BILL_DATE", "20240102"}}), kOpiSumFields, kHostile);
    AddTally(report, kHostile, kHostile, kHostile).LONG_COUNT = 1;
    report.ReportDays.first = report.ReportDays.last = MidnightOf({2024, 1, 2});
    for (const int kind : {1, 2}) {
        for (const StatementFormat& format : StatementFormats()) {
            report.Request.StatementKind = kind;
            report.Request.StatementFormat = format.number;
            const std::string whole = Whole([this](CHtmlBuilder& page) { AddPageSections(page, report); });
            const std::size_t shown = CountOf(Page(), kHostile);
            EXPECT_GE(shown, 20u) << kind << " " << format.number;
            EXPECT_EQ(CountOf(whole, "&lt;i&gt;&#39;"), shown) << kind << " " << format.number;
            EXPECT_EQ(CountOf(whole, "<i>"), 0u) << kind << " " << format.number;
        }
    }
}

/// The rows of the page's own file behind the heading of the table, and those of `body`, unfolded.
void ExpectSameRows(const std::string& page, const std::string& body) {
    const auto rowsOf = [](const std::string& text) {
        const std::size_t begin = text.find("<table ");
        return text.substr(begin, text.find("</table>") - begin);
    };
    EXPECT_EQ(rowsOf(body), rowsOf(page));
}

// A lot takes some 3 kB, so that these three days are too much to stand as they are.
TEST_F(StandalonePage, FoldsManyPositionsByDays) {
    for (const char* const day : {"20240102", "20240103", "20240104"}) {
        for (int i = 0; i < 100; ++i) {
            AddLot(report, {{"BILL_DATE", day}, {"CONTRACT", "<铜"}, {"POSITION_VOL", "3"}, {"BID", "买"}});
        }
    }
    report.Request.StatementFormat = 1;
    ASSERT_TRUE(report.Format().namesDeliveryApart);
    const std::string body = Body([this](CHtmlBuilder& page) { AddPositionSection(page, report); });
    const UnfoldedRows unfolded = Unfold(body);
    EXPECT_EQ(unfolded.lines, (std::vector<std::string>{"▸ 20240102", "▸ 20240103", "▸ 20240104"}));
    EXPECT_EQ(unfolded.order, (std::vector<std::string>{"note", "line", "rows", "line", "rows", "line", "rows"}));
    EXPECT_EQ(CountOf(body, "colspan=\"9\""), 4u);  // the table's columns
    std::string told = Page();
    for (std::size_t at = told.find("<铜"); at != std::string::npos; at = told.find("<铜")) told.replace(at, 1, "&lt;");
    ExpectSameRows(told, unfolded.plain);
    for (const std::string& day : unfolded.pieces) {  // two rows and a dash row a lot, and two rows of the sums
        EXPECT_EQ(CountOf(day, "<tr class='"), 302u);
        EXPECT_EQ(CountOf(day, "小计"), 1u);
    }
}

TEST_F(StandalonePage, FoldsManyClosedPositionsAtOnce) {
    for (int i = 0; i < 300; ++i) AddClosed(report, {{"BILL_DATE", "20240102"}, {"CONTRACT", "铜"}});
    const std::string body = Body([this](CHtmlBuilder& page) { AddOffsetSection(page, report); });
    const UnfoldedRows unfolded = Unfold(body);
    EXPECT_EQ(unfolded.order, (std::vector<std::string>{"note", "rows"}));
    EXPECT_GT(body.find("id = \"offsetFigure\""), body.find("</script></tbody>\r\n</table>"));
    ExpectSameRows(Page(), unfolded.plain);
}

TEST_F(StandalonePage, LeavesFewRowsAsTheyAre) {
    for (int i = 0; i < 10; ++i) AddClosed(report, {{"BILL_DATE", "20240102"}, {"CONTRACT", "铜"}});
    const std::string body = Body([this](CHtmlBuilder& page) { AddOffsetSection(page, report); });
    EXPECT_EQ(CountOf(body, "<tbody"), 0u);
    EXPECT_EQ(CountOf(body, "<script"), 0u);
    ExpectSameRows(Page(), body);
}

TEST_F(StandalonePage, EndsRowsWhereTheirTableEndsEarly) {
    std::ostringstream out;
    CStandalonePage page(out);
    page.BeginRows({.columns = 2, .lineClass = "sum"});
    page.AddText("<tr></tr>\r\n");
    page.ClosePage();
    page.AddText("behind");
    page.EndRows();
    page.BeginDay("20240102");
    page.Finish();
    EXPECT_EQ(out.str(), kBefore + "<tr></tr>\r\nbehind\r\n" + kBehind);
}

TEST_F(StandalonePage, GetsThePageEvenIfItsOwnFileCantBeMade) {
    std::ostringstream out;
    CStandalonePage copy(out);
    CHtmlBuilder page(folder_.Path("none/TradeBill.html"), &copy);
    page.AddText("text");
    copy.Finish();
    EXPECT_EQ(out.str(), kBefore + "text\r\n" + kBehind);
}

}  // namespace
}  // namespace tradebill::standalone_page_test
