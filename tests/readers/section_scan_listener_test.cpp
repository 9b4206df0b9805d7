// What the scan engine tells a listener, and that it reads no other way with one.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/report_error.h"
#include "readers/scan_recorder.h"
#include "readers/section_scan.h"

namespace tradebill::section_scan_listener_test {
namespace {

using Events = std::vector<std::string>;

SectionLayout Trades(std::size_t minColumns = 0) {
    return {
        .kind = SectionKind::Trades, .title = "TRADES", .terminator = "end", .firstRow = 1, .minColumns = minColumns};
}

/// What a listener is told of one section.
Events EventsOf(std::string_view text, const SectionLayout& layout) {
    CScanRecorder recorder;
    CSectionScan scan(text, SearchFrom::Cursor, &recorder);
    scan.Read(layout, [](Row) {});
    return recorder.Events();
}

TEST(SectionScanListener, HearsOfASectionBeforeItsRows) {
    EXPECT_EQ(EventsOf("head\nmy TRADES\none two\nthree\nthe end\nfour", Trades()),
              (Events{"section trades/TRADES/end//my TRADES/the end", "row one two/read/2", "row three/read/1"}));
}

TEST(SectionScanListener, HearsOfSectionsThatAreNotFound) {
    EXPECT_EQ(EventsOf("one\ntwo\nend", Trades()), (Events{"section trades/TRADES/end"}));
    EXPECT_EQ(EventsOf("one\nTRADES\ntwo", Trades()), (Events{"section trades/TRADES/end//TRADES"}));
    EXPECT_EQ(EventsOf("", Trades()), (Events{"section trades/TRADES/end"}));
}

TEST(SectionScanListener, HearsOfSectionsWithoutRows) {
    EXPECT_EQ(EventsOf("TRADES\nend", Trades()), (Events{"section trades/TRADES/end//TRADES/end"}));
    SectionLayout far = Trades();
    far.firstRow = 9;
    EXPECT_EQ(EventsOf("TRADES\none\nend", far), (Events{"section trades/TRADES/end//TRADES/end"}));
}

TEST(SectionScanListener, HearsOfBothTerminatingWords) {
    SectionLayout layout = Trades();
    layout.otherTerminator = "stop";
    EXPECT_EQ(EventsOf("TRADES\none\nstop\nend", layout),
              (Events{"section trades/TRADES/end/stop/TRADES/stop", "row one/read/1"}));
}

TEST(SectionScanListener, HearsWhatAShortRowHasAndNeeds) {
    EXPECT_EQ(EventsOf("TRADES\na b\na b c\na b c d\nx\nend", Trades(3)),
              (Events{"section trades/TRADES/end//TRADES/end", "row a b/too short/2/3", "row a b c/read/3",
                      "row a b c d/read/4", "row x/too short/1/3"}));
}

TEST(SectionScanListener, HearsRowsAsTheyStandBetweenTheirBlanks) {
    SectionLayout layout = Trades(2);
    layout.stripsBars = true;
    EXPECT_EQ(EventsOf("TRADES\r\n  \r\n\t|a b| \r\n||\r\n\r\nend\r\n", layout),
              (Events{"section trades/TRADES/end//TRADES/end", "row |a b|/read/2", "row ||/rule/0"}));
}

TEST(SectionScanListener, HearsOfSubtotalsWhateverTheirColumns) {
    static constexpr std::string_view kWords[] = {"sum", "count"};
    SectionLayout layout = Trades(2);
    layout.subtotals = kWords;
    EXPECT_EQ(EventsOf("TRADES\na b\nsum 1 2 3\nsum\nac count\nend", layout),
              (Events{"section trades/TRADES/end//TRADES/end", "row a b/read/2", "row sum 1 2 3/subtotal",
                      "row sum/subtotal", "row ac count/subtotal"}));
}

TEST(SectionScanListener, HearsTheVerdictOfTheReader) {
    CScanRecorder recorder;
    CSectionScan scan("TRADES\na 0\nb 1\nc\nend", SearchFrom::Cursor, &recorder);
    scan.Read(Trades(), [](Row row) -> RowVerdict {
        if (row.size() == 1) return {RowFate::Heading};
        return {row[1] == "0" ? RowFate::NoLots : RowFate::Read};
    });
    EXPECT_EQ(recorder.Events("row"), (Events{"a 0/no lots/2", "b 1/read/2", "c/heading/1"}));
}

TEST(SectionScanListener, HearsOfARowBehindItsRecord) {
    CScanRecorder recorder;
    const MatchRecord trade{};
    CSectionScan scan("TRADES\na\nb\nend", SearchFrom::Cursor, &recorder);
    scan.Read(Trades(), [&](Row) { recorder.OnRecord(&trade); });
    EXPECT_EQ(recorder.Events(),
              (Events{"section trades/TRADES/end//TRADES/end", "record", "row a/read/1", "record", "row b/read/1"}));
}

TEST(SectionScanListener, HearsOfEachSearchOnce) {
    CScanRecorder recorder;
    CSectionScan scan("TRADES\na\nend\nTRADES\nb\nend", SearchFrom::Cursor, &recorder);
    EXPECT_TRUE(scan.Find(Trades()));
    EXPECT_TRUE(scan.FindBehind(3, Trades()));
    EXPECT_TRUE(scan.FindTitle(Trades()));
    EXPECT_FALSE(scan.FindBehind(5, Trades()));
    EXPECT_EQ(recorder.Events(),
              (Events{"section trades/TRADES/end//TRADES/end", "section trades/TRADES/end//TRADES/end",
                      "section trades/TRADES/end//TRADES", "section trades/TRADES/end"}));
}

TEST(SectionScanListener, HearsOfARowReadForItself) {
    CScanRecorder recorder;
    CSectionScan scan("a b c\nd", SearchFrom::Top, &recorder);
    EXPECT_TRUE(scan.ReadRow(0, Trades(2)));
    EXPECT_FALSE(scan.ReadRow(1, Trades(2)));
    EXPECT_EQ(recorder.Events(), (Events{"row a b c/read/3", "row d/too short/1/2"}));
}

TEST(SectionScanListener, HearsNothingOfARowOutsideTheText) {
    SectionLayout layout = Trades();
    layout.firstRow = -2;
    CScanRecorder recorder;
    CSectionScan scan("head\nTRADES\none\nend", SearchFrom::Cursor, &recorder);
    EXPECT_THROW(scan.Read(layout, [](Row) {}), CReportError);
    EXPECT_EQ(recorder.Events(), (Events{"section trades/TRADES/end//TRADES/end"}));
    EXPECT_THROW(static_cast<void>(scan.ReadRow(4, layout)), CReportError);
    EXPECT_EQ(recorder.Events("row"), Events{});
}

TEST(SectionScanListener, HearsOfTheRowsAboveAnOffsetThatLeavesTheText) {
    SectionLayout layout = Trades();
    layout.endOffset = -2;  // two rows below the terminating one
    CScanRecorder recorder;
    CSectionScan scan("TRADES\none\nend", SearchFrom::Cursor, &recorder);
    EXPECT_THROW(scan.Read(layout, [](Row) {}), CReportError);
    EXPECT_EQ(recorder.Events("row"), (Events{"one/read/1", "end/read/1"}));
}

TEST(SectionScanListener, ChangesNothingInWhatIsRead) {
    static constexpr std::string_view kWords[] = {"sum"};
    for (const SearchFrom from : {SearchFrom::Top, SearchFrom::Cursor}) {
        const auto rowsOf = [&](CScanListener* listener) {
            CSectionScan scan("TRADES\na b\nx\nsum\nc d\nend\nCLOSED\ne f\nTRADES\ng h\nend", from, listener);
            Events rows;
            for (const std::string_view title : {"CLOSED", "TRADES", "ABSENT", "TRADES", "CLOSED"}) {
                SectionLayout layout = Trades(2);
                layout.title = title;
                layout.subtotals = kWords;
                rows.push_back(std::string(title) + "?");
                scan.Read(layout, [&](Row row) { rows.emplace_back(row.front()); });
            }
            return rows;
        };
        CScanRecorder recorder;
        EXPECT_EQ(rowsOf(&recorder), rowsOf(nullptr));
        EXPECT_EQ(recorder.Events("section").size(), 5U);
    }
}

}  // namespace
}  // namespace tradebill::section_scan_listener_test
