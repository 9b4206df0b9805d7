// Lines, rows, labels and passes of a reading, as they are kept for its explanation.
#include "requests/scan_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "readers/section_scan.h"
#include "report/records.h"
#include "support/gbk_text.h"

namespace tradebill::scan_report_test {
namespace {

using Texts = std::vector<std::string>;

SectionLayout Layout(SectionKind kind, std::string_view title, std::string_view terminator = "end") {
    return {.kind = kind, .title = title, .terminator = terminator, .firstRow = 1, .minColumns = 2};
}
SectionLayout Trades() {
    return Layout(SectionKind::Trades, "TRADES");
}

/// The report of reading `layouts` from `text` in this order, as a reader does.
class CReading {
public:
    explicit CReading(std::string text, SearchFrom from = SearchFrom::Top)
        : text_(std::move(text)), scan_(text_, from, &report) {
        report.OnReader("some-layout");
    }
    CReading& Read(const SectionLayout& layout) {
        scan_.Read(layout, [](Row) {});
        return *this;
    }
    CReading& ReadTitle(const SectionLayout& layout) {
        static_cast<void>(scan_.FindTitle(layout));
        return *this;
    }
    const ReaderPass& Finish() {
        report.Finish();
        return report.Passes().front();
    }
    /// The one section that was read.
    const SectionReport& Section() { return Finish().sections.front(); }

private:
    std::string text_;

public:
    CScanReport report{text_};

private:
    CSectionScan scan_;
};

int LinesIn(std::string_view text) {
    return CScanReport(text).LineCount();
}

TEST(ScanReport, CountsLinesAsAnEditorDoes) {
    EXPECT_EQ(LinesIn(""), 0);
    EXPECT_EQ(LinesIn("a"), 1);
    EXPECT_EQ(LinesIn("a\n"), 1);
    EXPECT_EQ(LinesIn("a\nb"), 2);
    EXPECT_EQ(LinesIn("\r\n"), 1);
    EXPECT_EQ(LinesIn("\r\n\r\na\r\n"), 3);
}

TEST(ScanReport, CountsBlankLinesToo) {
    // Line 3 is the title, 5 a short row, 8 a row, 10 the end.
    for (const std::string_view lineEnd : {"\r\n", "\n"}) {
        std::string text;
        for (const char* const line : {"head", "", "  TRADES today", " \t", "\tshort ", "", "", "a b", "", "the end"}) {
            text.append(line).append(lineEnd);
        }
        CReading reading(text);
        const SectionReport& section = reading.Read(Trades()).Section();
        EXPECT_EQ(section.titleLine, 3);
        EXPECT_EQ(section.endLine, 10);
        EXPECT_EQ(section.rowsRead, 1);
        ASSERT_EQ(section.passedOver.size(), 1U);
        EXPECT_EQ(section.passedOver[0].line, 5);
        EXPECT_EQ(section.passedOver[0].fate, RowFate::TooShort);
        EXPECT_EQ(section.passedOver[0].columns, 1U);
        EXPECT_EQ(section.passedOver[0].needed, 2U);
        EXPECT_TRUE(section.IsFound());
        EXPECT_EQ(reading.report.LineCount(), 10);
    }
}

TEST(ScanReport, KnowsTheFirstAndTheLastLine) {
    CReading reading("TRADES\na b\nc\nend");
    const SectionReport& section = reading.Read(Trades()).Section();
    EXPECT_EQ(section.titleLine, 1);
    EXPECT_EQ(section.endLine, 4);
    EXPECT_EQ(section.passedOver.at(0).line, 3);
}

TEST(ScanReport, TellsTheLineOfARowThatStandsTwice) {
    CReading reading("c\nTRADES\nc\na b\nc\nend");
    const SectionReport& section = reading.Read(Trades()).Section();
    ASSERT_EQ(section.passedOver.size(), 2U);
    EXPECT_EQ(section.passedOver[0].line, 3);
    EXPECT_EQ(section.passedOver[1].line, 5);
}

TEST(ScanReport, DecodesTheWordsOfASection) {
    SectionLayout layout = Trades();
    const std::string title = Gbk("成交记录");
    const std::string end = Gbk("共");
    const std::string other = Gbk("合计");
    layout.title = title;
    layout.terminator = end;
    layout.otherTerminator = other;
    CReading reading(Gbk("成交记录\r\n合计"));
    const SectionReport& section = reading.Read(layout).Section();
    EXPECT_EQ(section.kind, SectionKind::Trades);
    EXPECT_EQ(section.titleWord, "成交记录");
    EXPECT_EQ(section.terminatorWord, "共 or 合计");
    EXPECT_EQ(section.endLine, 2);
}

TEST(ScanReport, FindsNoSectionWithoutTitleOrEnd) {
    CReading absent("one\nend");
    EXPECT_FALSE(absent.Read(Trades()).Section().IsFound());
    EXPECT_EQ(absent.Section().titleLine, std::nullopt);
    EXPECT_EQ(absent.Section().unseenTitleLine, std::nullopt);
    CReading open("one\nTRADES\na b");
    EXPECT_FALSE(open.Read(Trades()).Section().IsFound());
    EXPECT_EQ(open.Section().titleLine, 2);
    EXPECT_EQ(open.Section().endLine, std::nullopt);
    EXPECT_EQ(open.Section().unseenTitleLine, std::nullopt);
    EXPECT_EQ(open.report.FoundSections(), 0);
}

TEST(ScanReport, FindsASectionWhoseEndIsntLookedForByItsTitle) {
    CReading reading("one\nMONEY\ntwo");
    SectionLayout layout = Layout(SectionKind::Money, "MONEY", "");
    const SectionReport& section = reading.ReadTitle(layout).Section();
    EXPECT_TRUE(section.IsFound());
    EXPECT_EQ(section.endLine, std::nullopt);
    EXPECT_EQ(reading.report.FoundSections(), 1);
}

TEST(ScanReport, SeesATitleThatStandsAboveTheSearch) {
    CReading reading("CLOSED\nx\nend\n\nTRADES\na b\nend\n", SearchFrom::Cursor);
    const ReaderPass& pass = reading.Read(Trades()).Read(Layout(SectionKind::Closed, "CLOSED")).Finish();
    ASSERT_EQ(pass.sections.size(), 2U);
    EXPECT_EQ(pass.sections[1].kind, SectionKind::Closed);
    EXPECT_FALSE(pass.sections[1].IsFound());
    EXPECT_EQ(pass.sections[1].titleLine, std::nullopt);
    EXPECT_EQ(pass.sections[1].unseenTitleLine, 1);
}

TEST(ScanReport, SeesNoTitleInATextWithoutRows) {
    for (const char* const text : {"", "\r\n", "\r\n \r\n"}) {
        CReading reading(text);
        const SectionReport& section = reading.ReadTitle(Layout(SectionKind::Money, "", "")).Section();
        EXPECT_FALSE(section.IsFound());
        EXPECT_EQ(section.unseenTitleLine, std::nullopt);
    }
}

TEST(ScanReport, FindsNoSectionOfAnEmptyTerminatorThatNoRowIsLeftFor) {
    SectionLayout layout = Layout(SectionKind::Open, "OPEN", "");
    layout.terminatorOffset = 2;
    CReading tooShort("OPEN\nrule");
    EXPECT_FALSE(tooShort.Read(layout).Section().IsFound());
    CReading longEnough("OPEN\nrule\na b");
    EXPECT_TRUE(longEnough.Read(layout).Section().IsFound());
    EXPECT_EQ(longEnough.Section().endLine, 3);
}

TEST(ScanReport, PutsSectionsIntoFileOrder) {
    CReading reading("OPEN\nend\nTRADES\nend\nMONEY");
    const ReaderPass& pass = reading.Read(Layout(SectionKind::Closed, "CLOSED"))
                                 .Read(Layout(SectionKind::Money, "MONEY"))  // has no end
                                 .Read(Trades())
                                 .Read(Layout(SectionKind::Summary, "SUMMARY"))
                                 .Read(Layout(SectionKind::Open, "OPEN"))
                                 .Finish();
    std::vector<SectionKind> kinds;
    for (const SectionReport& section : pass.sections) kinds.push_back(section.kind);
    EXPECT_EQ(kinds, (std::vector{SectionKind::Open, SectionKind::Trades, SectionKind::Money, SectionKind::Closed,
                                  SectionKind::Summary}));
    EXPECT_EQ(reading.report.FoundSections(), 2);
}

TEST(ScanReport, KeepsTheOrderOfReadingForTwoTitlesInOneLine) {
    CReading reading("OPEN and CLOSED\nend");
    const ReaderPass& pass =
        reading.Read(Layout(SectionKind::Open, "OPEN")).Read(Layout(SectionKind::Closed, "CLOSED")).Finish();
    EXPECT_EQ(pass.sections[0].kind, SectionKind::Open);
    EXPECT_EQ(pass.sections[1].kind, SectionKind::Closed);
}

/// A report in which the money section at hand looks for four labels.
CScanReport& WithLabels(CScanReport& report) {
    report.OnSection({.kind = SectionKind::Money,
                      .titleWord = {},
                      .terminatorWord = {},
                      .otherTerminatorWord = {},
                      .titleRow = {},
                      .terminatorRow = {}});
    for (const char* const label : {"权益", "手续费", "结存", "手续费"}) report.OnLabelWanted(Gbk(label));
    return report;
}

TEST(ScanReport, TellsLabelsMetFromThoseNotMet) {
    CScanReport report("");
    WithLabels(report);
    EXPECT_EQ(report.Passes().back().sections.back().labelsMet, Texts{});
    EXPECT_EQ(report.Passes().back().sections.back().labelsNotMet, (Texts{"权益", "手续费", "结存", "手续费"}));
    report.OnLabelMet(Gbk("结存"));
    report.OnLabelMet(Gbk("权益"));
    report.OnLabelMet(Gbk("结存"));
    EXPECT_EQ(report.Passes().back().sections.back().labelsMet, (Texts{"结存", "权益"}));
    EXPECT_EQ(report.Passes().back().sections.back().labelsNotMet, (Texts{"手续费", "手续费"}));
}

TEST(ScanReport, MeetsALabelOfTwoFieldsOnce) {
    CScanReport report("");
    WithLabels(report).OnLabelMet(Gbk("手续费"));
    EXPECT_EQ(report.Passes().back().sections.back().labelsMet, (Texts{"手续费"}));
    EXPECT_EQ(report.Passes().back().sections.back().labelsNotMet, (Texts{"权益", "结存"}));
}

TEST(ScanReport, KeepsTheFieldsOfMoneyThatArentEmpty) {
    CScanReport report("");
    WithLabels(report);
    MoneyRecord record = ClearedMoneyRecord();
    CopyField(record.BILL_DATE, "20240102");
    CopyField(record.KHQY, "12.50");
    CopyField(record.SXF, Gbk("无"));
    report.OnMoney(record, {});
    report.OnMoney(ClearedMoneyRecord(), Gbk("美元"));
    const SectionReport& section = report.Passes().back().sections.back();
    ASSERT_EQ(section.money.size(), 2U);
    EXPECT_EQ(section.money[0].currency, "");
    EXPECT_EQ(section.money[0].fields.size(), 3U);
    for (const auto& field :
         {std::pair<std::string, std::string>{"BILL_DATE", "20240102"}, {"KHQY", "12.50"}, {"SXF", "无"}}) {
        EXPECT_NE(std::ranges::find(section.money[0].fields, field), section.money[0].fields.end()) << field.first;
    }
    EXPECT_EQ(section.money[1].currency, "美元");
    EXPECT_TRUE(section.money[1].fields.empty());
    EXPECT_EQ(section.records, 2);
    EXPECT_EQ(report.MoneyRecords(), 2);
}

TEST(ScanReport, CountsRecordsApartFromRows) {
    const std::string text = "TRADES\na b\nend";
    const MatchRecord trade{};
    CScanReport report(text);
    CSectionScan scan(text, SearchFrom::Top, &report);
    scan.Read(Trades(), [&](Row) {
        report.OnRecord(&trade);
        report.OnRecord(&trade);
    });
    report.Finish();
    EXPECT_EQ(report.Passes().at(0).sections.at(0).rowsRead, 1);
    EXPECT_EQ(report.Passes().at(0).sections.at(0).records, 2);
    EXPECT_EQ(report.MoneyRecords(), 0);
}

Texts LayoutsOf(const CScanReport& report) {
    Texts layouts;
    for (const ReaderPass& pass : report.Passes()) layouts.push_back(pass.layout);
    return layouts;
}

TEST(ScanReport, TakesWhatNoFixedReaderSaysForTheTemplates) {
    const std::string text = "TRADES\na b\nend";
    CScanReport report(text);
    report.OnDate("date:", "20240102");
    CSectionScan scan(text, SearchFrom::Top, &report);
    scan.Read(Trades(), [](Row) {});
    EXPECT_EQ(LayoutsOf(report), (Texts{"template"}));
    EXPECT_EQ(report.Passes()[0].dateWord, "date:");
    EXPECT_EQ(report.Passes()[0].date, "20240102");
}

TEST(ScanReport, KeepsBothPassesIfTheTemplateDeclines) {
    const std::string text = "TRADES\na b\nend";
    CScanReport report(text);
    report.OnDate("date:", "");
    CSectionScan first(text, SearchFrom::Top, &report);
    first.Read(Trades(), [](Row) {});
    report.OnTemplate({TemplateSeen::Outcome::Incomplete, true, "OPI_SUM_NEW", "END_FLAG"});
    report.OnReader("fund-status");
    CSectionScan second(text, SearchFrom::Top, &report);
    second.Read(Trades(), [](Row) {});
    report.Finish();
    EXPECT_EQ(LayoutsOf(report), (Texts{"template", "fund-status"}));
    EXPECT_EQ(report.Passes()[0].sections.size(), 1U);
    EXPECT_EQ(report.Passes()[1].sections.size(), 1U);
    EXPECT_EQ(report.FoundSections(), 2);
    ASSERT_TRUE(report.Template());
    EXPECT_EQ(report.Template()->outcome, TemplateSeen::Outcome::Incomplete);
    EXPECT_TRUE(report.Template()->newScheme);
    EXPECT_EQ(report.Template()->section, "OPI_SUM_NEW");
    EXPECT_EQ(report.Template()->missingKey, "END_FLAG");
}

TEST(ScanReport, NamesTheReaderThatAnotherHandsOnTo) {
    CScanReport report("");
    report.OnReader("bilingual");
    report.OnReader("bilingual-new");
    EXPECT_EQ(LayoutsOf(report), (Texts{"bilingual-new"}));
    CScanReport declined("");
    declined.OnDate("date:", "");
    declined.OnReader("bilingual");
    declined.OnReader("bilingual-new");
    EXPECT_EQ(LayoutsOf(declined), (Texts{"template", "bilingual-new"}));
}

TEST(ScanReport, LeavesOutTheMoneyBlockBehindTheLast) {
    CReading reading("BLOCK\na b\nend\nBLOCK\nc d\nend");
    const SectionLayout block = Layout(SectionKind::Money, "BLOCK");
    CReading& read = reading.Read(block).Read(Layout(SectionKind::Money, "LATER"));
    const ReaderPass& pass = read.Read(Trades()).Finish();
    ASSERT_EQ(pass.sections.size(), 2U);
    EXPECT_EQ(pass.sections[0].titleWord, "BLOCK");
    EXPECT_EQ(pass.sections[1].kind, SectionKind::Trades);  // isn't there either, and that is told
}

TEST(ScanReport, KeepsTheOnlyMoneyBlockThoughItIsntFound) {
    CReading reading("one");
    EXPECT_EQ(reading.Read(Layout(SectionKind::Money, "BLOCK")).Finish().sections.size(), 1U);
}

TEST(ScanReport, KeepsAMoneyBlockThatHasNoEnd) {
    CReading reading("BLOCK\na b\nend\nLATER\nc d");
    const ReaderPass& pass =
        reading.Read(Layout(SectionKind::Money, "BLOCK")).Read(Layout(SectionKind::Money, "LATER")).Finish();
    ASSERT_EQ(pass.sections.size(), 2U);
    EXPECT_EQ(pass.sections[1].titleLine, 4);
    EXPECT_FALSE(pass.sections[1].IsFound());
}

}  // namespace
}  // namespace tradebill::scan_report_test
