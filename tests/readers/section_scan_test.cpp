#include "readers/section_scan.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ios>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/report_error.h"

namespace tradebill::section_scan_test {
namespace {

using Texts = std::vector<std::string>;

/// First columns of the rows read; one text "absent" if the section wasn't found.
Texts Read(CSectionScan& scan, const SectionLayout& layout) {
    Texts texts;
    const bool found = scan.Read(layout, [&](Row row) { texts.emplace_back(row.empty() ? "" : row.front()); });
    if (!found) {
        EXPECT_TRUE(texts.empty());
        return {"absent"};
    }
    return texts;
}

Texts ReadFirst(std::string_view text, const SectionLayout& layout) {
    CSectionScan scan(text, SearchFrom::Cursor);
    return Read(scan, layout);
}

/// A section whose data begins right behind its title.
SectionLayout Plain(std::string_view title, std::string_view terminator) {
    return {.title = title, .terminator = terminator, .firstRow = 1};
}

TEST(SectionScan, ReadsTheRowsBetweenTitleAndTerminator) {
    EXPECT_EQ(ReadFirst("head\nTRADES\none\ntwo\nend\nthree", Plain("TRADES", "end")), (Texts{"one", "two"}));
}

TEST(SectionScan, FindsTitleAndTerminatorInsideLongerRows) {
    EXPECT_EQ(ReadFirst("head\nmy TRADES today\none\nthe ending\ntwo", Plain("TRADES", "end")), (Texts{"one"}));
}

TEST(SectionScan, TakesTheFirstTitle) {
    EXPECT_EQ(ReadFirst("TRADES\none\nTRADES\ntwo\nend", Plain("TRADES", "end")), (Texts{"one", "TRADES", "two"}));
}

TEST(SectionScan, EndsAtADataRowThatHoldsTheTerminatingWord) {
    EXPECT_EQ(ReadFirst("TRADES\none\ntwo bend\nthree\nend", Plain("TRADES", "end")), (Texts{"one"}));
}

TEST(SectionScan, LooksForTheTerminatorBehindTheTitleOnly) {
    EXPECT_EQ(ReadFirst("end\nTRADES\none\nend", Plain("TRADES", "end")), (Texts{"one"}));
    EXPECT_EQ(ReadFirst("end\nTRADES\none", Plain("TRADES", "end")), (Texts{"absent"}));
}

TEST(SectionScan, CountsNonBlankRowsOnly) {
    const SectionLayout layout{.title = "TRADES", .terminator = "end", .firstRow = 3, .endOffset = 1};
    EXPECT_EQ(ReadFirst("TRADES\nrule\nheadings\none\ntwo\nrule\nend", layout), (Texts{"one", "two"}));
    EXPECT_EQ(ReadFirst("TRADES\r\n\r\nrule\r\n \t\r\nheadings\r\n\r\none\r\n\r\ntwo\r\nrule\r\n\r\nend\r\n", layout),
              (Texts{"one", "two"}));
}

TEST(SectionScan, BeginsAtTheFirstRowOffset) {
    const std::string_view text = "TRADES\none\ntwo\nthree\nend";
    const Texts expected[] = {{"TRADES", "one", "two", "three"}, {"one", "two", "three"}, {"two", "three"}, {"three"}};
    for (int firstRow = 0; firstRow < 4; ++firstRow) {
        EXPECT_EQ(ReadFirst(text, {.title = "TRADES", .terminator = "end", .firstRow = firstRow}), expected[firstRow]);
    }
}

TEST(SectionScan, IsPresentWithoutRowsIfItsRangeIsEmpty) {
    const std::string_view text = "head\nTRADES\none\nend\ntwo\nthree\nfour";
    for (const int firstRow : {2, 3, 4, 100}) {
        EXPECT_EQ(ReadFirst(text, {.title = "TRADES", .terminator = "end", .firstRow = firstRow}), Texts{});
    }
    for (const int endOffset : {1, 2, 3, 4, 100}) {
        const SectionLayout layout{.title = "TRADES", .terminator = "end", .firstRow = 1, .endOffset = endOffset};
        EXPECT_EQ(ReadFirst(text, layout), Texts{});
    }
}

TEST(SectionScan, EndsTheEndOffsetAboveTheTerminator) {
    const std::string_view text = "TRADES\none\ntwo\nthree\nend";
    const Texts expected[] = {{"one", "two", "three"}, {"one", "two"}, {"one"}, {}};
    for (int endOffset = 0; endOffset < 4; ++endOffset) {
        const SectionLayout layout{.title = "TRADES", .terminator = "end", .firstRow = 1, .endOffset = endOffset};
        EXPECT_EQ(ReadFirst(text, layout), expected[endOffset]);
    }
}

TEST(SectionScan, LooksForTheTerminatorFromItsOffsetOn) {
    const std::string_view text = "TRADES end\nend 1\nend 2\nthree\nend 4";
    const Texts expected[] = {{}, {}, {"end"}, {"end", "end", "three"}, {"end", "end", "three"}, {"absent"}};
    for (int offset = 0; offset < 6; ++offset) {
        const SectionLayout layout{.title = "TRADES", .terminator = "end", .terminatorOffset = offset, .firstRow = 1};
        EXPECT_EQ(ReadFirst(text, layout), expected[offset]) << offset;
    }
}

TEST(SectionScan, MayEndAtItsOwnTitleRow) {
    CSectionScan scan("TRADES: 2 in all\none\ntwo\nin all", SearchFrom::Cursor);
    EXPECT_EQ(Read(scan, Plain("TRADES", "in all")), Texts{});
    EXPECT_EQ(Read(scan, {.title = "TRADES", .terminator = "in all", .terminatorOffset = 1, .firstRow = 1}),
              (Texts{"one", "two"}));  // the cursor stands on the title row
}

TEST(SectionScan, IsPresentWithoutRowsIfTheFirstRowOfTheTextEndsIt) {
    const SectionLayout layout{.title = "TRADES", .terminator = "end", .endOffset = 1, .cursorOffset = 1};
    EXPECT_EQ(ReadFirst("TRADES end\none\ntwo", layout), Texts{});
}

TEST(SectionScan, SkipsRowsShorterThanTheLayout) {
    const std::string_view text = "TRADES\na\nb 1\nc 1 2\nd 1 2 3\nend";
    const Texts expected[] = {{"a", "b", "c", "d"}, {"a", "b", "c", "d"}, {"b", "c", "d"}, {"c", "d"}, {"d"}, {}};
    for (std::size_t minColumns = 0; minColumns < 6; ++minColumns) {
        const SectionLayout layout{.title = "TRADES", .terminator = "end", .firstRow = 1, .minColumns = minColumns};
        EXPECT_EQ(ReadFirst(text, layout), expected[minColumns]);
    }
}

TEST(SectionScan, SplitsRowsAtTheDelimiterOfTheLayout) {
    std::vector<std::vector<std::string>> rows;
    const auto keep = [&](Row row) { rows.emplace_back(row.begin(), row.end()); };
    const std::string_view text = "TRADES\n|a b| c|\nd  e\nend";
    SectionLayout layout = Plain("TRADES", "end");
    CSectionScan(text, SearchFrom::Cursor).Read(layout, keep);
    layout.delimiter = "|";
    CSectionScan(text, SearchFrom::Cursor).Read(layout, keep);
    EXPECT_EQ(rows, (std::vector<std::vector<std::string>>{{"|a", "b|", "c|"}, {"d", "e"}, {"a b", "c"}, {"d  e"}}));
}

TEST(SectionScan, FindsNothingInAnEmptyText) {
    for (const std::string_view text : {"", " \r\n\t\n"}) {
        EXPECT_EQ(ReadFirst(text, Plain("TRADES", "end")), (Texts{"absent"}));
        EXPECT_EQ(ReadFirst(text, Plain("", "")), (Texts{"absent"}));
    }
}

class CursorScan : public testing::Test {
protected:
    Texts Section(std::string_view title) { return Read(scan_, Plain(title, "end")); }

    void Begin(std::string_view text) { scan_ = CSectionScan(text, SearchFrom::Cursor); }

    CSectionScan scan_{"", SearchFrom::Cursor};
};

TEST_F(CursorScan, DoesNotSeeASectionAboveTheOneBefore) {
    Begin("B\nb\nend\nA\na\nend\nC\nc\nend");
    EXPECT_EQ(Section("A"), (Texts{"a"}));
    EXPECT_EQ(Section("B"), (Texts{"absent"}));
    EXPECT_EQ(Section("C"), (Texts{"c"}));
}

TEST_F(CursorScan, GoesOnAtTheTerminatingRow) {
    Begin("A\na B\nend B\nb\nend");
    EXPECT_EQ(Section("A"), (Texts{"a"}));
    EXPECT_EQ(Read(scan_, {.title = "B", .terminator = "end", .terminatorOffset = 1, .firstRow = 1}), (Texts{"b"}));
}

TEST_F(CursorScan, GoesOnAboveTheTerminatingRowIfTheLayoutSaysSo) {
    const std::string_view text = "A\na\nB\nend\nb\nend";
    const SectionLayout second{.title = "B", .terminator = "end", .terminatorOffset = 2, .firstRow = 2};
    SectionLayout first = Plain("A", "end");
    Begin(text);
    EXPECT_EQ(Read(scan_, first), (Texts{"a", "B"}));
    EXPECT_EQ(Read(scan_, second), (Texts{"absent"}));

    first.cursorOffset = 1;
    Begin(text);
    EXPECT_EQ(Read(scan_, first), (Texts{"a", "B"}));
    EXPECT_EQ(Read(scan_, Plain("X", "end")), (Texts{"absent"}));  // the last good end stands there too
    EXPECT_EQ(Read(scan_, second), (Texts{"b"}));
}

TEST_F(CursorScan, StaysOnATitleWithoutATerminator) {
    Begin("A\na\nend\nC\nc\nend\nB stop\nD\nd\nend");
    EXPECT_EQ(Section("A"), (Texts{"a"}));
    EXPECT_EQ(Read(scan_, Plain("B", "nowhere")), (Texts{"absent"}));
    EXPECT_EQ(Section("C"), (Texts{"absent"}));  // it stands above that title
}

TEST_F(CursorScan, SeesTheTitleRowItStaysOnAndWhatIsBelow) {
    Begin("A\na\nend\nB C\nc\nend\nD\nd\nend");
    EXPECT_EQ(Section("A"), (Texts{"a"}));
    EXPECT_EQ(Read(scan_, Plain("B", "nowhere")), (Texts{"absent"}));
    EXPECT_EQ(Section("C"), (Texts{"c"}));
    EXPECT_EQ(Section("D"), (Texts{"d"}));
}

TEST_F(CursorScan, FallsBackToTheLastGoodEndWhenATitleIsMissing) {
    Begin("A\na\nend\nC\nc\nend\nB");
    EXPECT_EQ(Section("A"), (Texts{"a"}));
    EXPECT_EQ(Section("B"), (Texts{"absent"}));  // a title without terminator: the cursor is there
    EXPECT_EQ(Section("C"), (Texts{"absent"}));  // not below it: back to the end of A
    EXPECT_EQ(Section("C"), (Texts{"c"}));
}

TEST_F(CursorScan, FallsBackNoFurtherThanTheLastGoodEnd) {
    Begin("C\nc\nend\nA\na\nend\nB");
    EXPECT_EQ(Section("A"), (Texts{"a"}));
    EXPECT_EQ(Section("B"), (Texts{"absent"}));
    EXPECT_EQ(Section("X"), (Texts{"absent"}));
    EXPECT_EQ(Section("C"), (Texts{"absent"}));
}

TEST_F(CursorScan, FallsBackToTheFirstRowBeforeAnySectionWasRead) {
    Begin("A\na\nend\nB");
    EXPECT_EQ(Section("B"), (Texts{"absent"}));
    EXPECT_EQ(Section("X"), (Texts{"absent"}));
    EXPECT_EQ(Section("A"), (Texts{"a"}));
}

TEST_F(CursorScan, StaysWhereItIsWhenATitleIsMissing) {
    Begin("A\na\nend\nB\nb\nend");
    EXPECT_EQ(Section("X"), (Texts{"absent"}));
    EXPECT_EQ(Section("A"), (Texts{"a"}));
    EXPECT_EQ(Section("X"), (Texts{"absent"}));
    EXPECT_EQ(Section("B"), (Texts{"b"}));
}

TEST_F(CursorScan, GoesOnBehindASectionWithoutRows) {
    Begin("A\nend\nB\nb\nend");
    EXPECT_EQ(Section("A"), Texts{});
    EXPECT_EQ(Section("A"), (Texts{"absent"}));
    EXPECT_EQ(Section("B"), (Texts{"b"}));
}

TEST(TopScan, FindsSectionsInAnyOrder) {
    CSectionScan scan("B\nb\nend\nA\na\nend\nC", SearchFrom::Top);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(Read(scan, Plain("A", "end")), (Texts{"a"}));
        EXPECT_EQ(Read(scan, Plain("B", "end")), (Texts{"b"}));
        EXPECT_EQ(Read(scan, Plain("C", "end")), (Texts{"absent"}));  // no terminator
        EXPECT_EQ(Read(scan, Plain("X", "end")), (Texts{"absent"}));  // no title
    }
}

/// Code, line and section of the error that reading a section ends with: "80070057 3 open".
template <class OnRow>
std::string ErrorOf(std::string_view text, SectionLayout layout, OnRow onRow) {
    layout.kind = SectionKind::Open;
    CSectionScan scan(text, SearchFrom::Top);
    try {
        scan.Read(layout, onRow);
    } catch (const CReportError& error) {
        std::ostringstream words;
        words << std::hex << error.Code() << std::dec << ' ' << error.Place().line << ' ' << error.Place().section;
        return words.str();
    }
    return "none";
}

TEST(SectionScan, TellsTheLineOfAnErrorInARowWithBlankLinesCounted) {
    const std::string_view text = "\nhead\r\n\r\nTRADES\r\none\r\n \r\ntwo\r\nend";
    const auto failAt = [](std::string_view word, std::uint32_t code) {
        return [=](Row row) {
            if (row[0] == word) throw CReportError(code);
        };
    };
    EXPECT_EQ(ErrorOf(text, Plain("TRADES", "end"), failAt("one", 0x80004005)), "80004005 5 open");
    EXPECT_EQ(ErrorOf(text, Plain("TRADES", "end"), failAt("two", 0x80070057)), "80070057 7 open");
    EXPECT_EQ(ErrorOf(text, Plain("TRADES", "end"), failAt("three", 0x80070057)), "none");
}

TEST(SectionScan, TellsTheLineOfALackOfMemory) {
    const auto lack = [](Row) { throw std::bad_alloc(); };
    EXPECT_EQ(ErrorOf("TRADES\none\nend", Plain("TRADES", "end"), lack), "8007000e 2 open");
}

TEST(SectionScan, LetsOtherExceptionsPass) {
    const auto fail = [](Row) { throw std::runtime_error("a listener's own"); };
    EXPECT_THROW(ErrorOf("TRADES\none\nend", Plain("TRADES", "end"), fail), std::runtime_error);
}

TEST(SectionScan, TellsTheNearestLineOfARowOutsideTheText) {
    SectionLayout layout = Plain("TRADES", "end");
    layout.endOffset = -3;
    EXPECT_EQ(ErrorOf("\n\nTRADES\none\nend\nlast", layout, [](Row) {}), "80070057 6 open");
    layout = Plain("TRADES", "end");
    layout.firstRow = -1;
    EXPECT_EQ(ErrorOf("\n\nTRADES\none\nend\nlast", layout, [](Row) {}), "80070057 3 open");
}

}  // namespace
}  // namespace tradebill::section_scan_test
