#include "readers/fixed_layout.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "readers/reader_fixture.h"

namespace tradebill::fixed_layout_test {
namespace {

// A layout of its own: each section's title is its name, it ends at "end", and its rows have two columns or more.
constexpr MoneyLabel kLabels[] = {{Slot<&MoneyRecord::KHQY>, LabelMatch::Equals, "equity"}};
constexpr Column<MatchRecord> kTrades[] = {{Slot<&MatchRecord::CONTRACT>, 0}};
constexpr Column<PingDetail> kClosed[] = {{Slot<&PingDetail::CONTRACT>, 0}};
constexpr Column<OpiDetail> kOpen[] = {{Slot<&OpiDetail::CONTRACT>, 0}};
constexpr Column<OpiSum> kSums[] = {{Slot<&OpiSum::CONTRACT>, 0}};
constexpr PositionSide kSides[] = {{1, "long", kSums}, {2, "short", kSums}};

constexpr SectionLayout SectionOf(std::string_view title, std::size_t minColumns) {
    return {.title = title, .terminator = "end", .firstRow = 1, .minColumns = minColumns};
}

constexpr FixedLayout kLayout{.money = SectionOf("MONEY", 0),
                              .labels = kLabels,
                              .trades = {SectionOf("TRADES", 2), kTrades},
                              .closed = {SectionOf("CLOSED", 2), kClosed},
                              .open = {SectionOf("OPEN", 2), kOpen},
                              .summary = SectionOf("SUMMARY", 3),
                              .summarySides = {.sides = kSides}};

constexpr std::string_view kSections[] = {"MONEY\nequity 5\nend\n", "TRADES\ntrade 1\nend\n", "CLOSED\nclosed 1\nend\n",
                                          "OPEN\nopen 1\nend\n", "SUMMARY\nsum 1 2\nend\n"};

class FixedLayouts : public ReaderFixture {
protected:
    void Read(const FixedLayout& layout, std::string_view text) {
        MakeReport();
        ReadFixedLayout(layout, {.day = "20240105", .text = text}, report);
    }

    /// Whether something was read from each of kSections.
    std::vector<bool> SectionsRead() {
        return {report.MoneyStore.Count() != 0, report.MatchStore.Count() != 0, report.PingDetailStore.Count() != 0,
                report.OpiDetailStore.Count() != 0, report.OpiSumStore.Count() != 0};
    }
};

TEST_F(FixedLayouts, ReadAllSections) {
    std::string text;
    for (const std::string_view section : kSections) text += section;
    Read(kLayout, text);
    EXPECT_EQ(FieldsOfAll(report.MoneyStore.Records),
              (std::vector<Fields>{{{"BILL_DATE", "20240105"}, {"KHQY", "5"}}}));
    EXPECT_EQ(FieldsOfAll(report.MatchStore.Rows),
              (std::vector<Fields>{{{"BILL_DATE", "20240105"}, {"CONTRACT", "trade"}}}));
    EXPECT_EQ(FieldsOfAll(report.PingDetailStore.Rows),
              (std::vector<Fields>{{{"BILL_DATE", "20240105"}, {"CONTRACT", "closed"}}}));
    EXPECT_EQ(FieldsOfAll(report.OpiDetailStore.Rows),
              (std::vector<Fields>{{{"BILL_DATE", "20240105"}, {"CONTRACT", "open"}}}));
    EXPECT_EQ(FieldsOfAll(report.OpiSumStore.Rows),
              (std::vector<Fields>{{{"BILL_DATE", "20240105"}, {"CONTRACT", "sum"}, {"BID", "long"}},
                                   {{"BILL_DATE", "20240105"}, {"CONTRACT", "sum"}, {"BID", "short"}}}));
}

TEST_F(FixedLayouts, ReadWhatIsThereIfOneSectionIsMissing) {
    for (std::size_t missing = 0; missing < 5; ++missing) {
        std::string text;
        std::vector<bool> expected;
        for (std::size_t section = 0; section < 5; ++section) {
            if (section != missing) text += kSections[section];
            expected.push_back(section != missing);
        }
        Read(kLayout, text);
        EXPECT_EQ(SectionsRead(), expected) << missing;
    }
}

TEST_F(FixedLayouts, RequireTheOrderOfTheirSectionsWithACursor) {
    FixedLayout fromTop = kLayout;
    fromTop.searchFrom = SearchFrom::Top;
    for (std::size_t first = 0; first < 5; ++first) {
        for (std::size_t second = first + 1; second < 5; ++second) {
            const std::string text = std::string(kSections[second]) + std::string(kSections[first]);
            std::vector<bool> expected(5, false);
            expected[first] = true;
            Read(kLayout, text);
            EXPECT_EQ(SectionsRead(), expected) << first << " below " << second;
            expected[second] = true;
            Read(fromTop, text);
            EXPECT_EQ(SectionsRead(), expected) << first << " below " << second;
        }
    }
}

TEST_F(FixedLayouts, FileTheirRecordsUnderTheStatedDateIfTheyHaveADateWord) {
    FixedLayout layout = kLayout;
    layout.dateWord = "Date:";
    const std::string body = std::string(kSections[0]) + std::string(kSections[1]);
    Read(layout, "-Date:20240102\n" + body);
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240102"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BILL_DATE"), (Texts{"20240102"}));
    Read(layout, body);
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BILL_DATE"), (Texts{""}));
    Read(kLayout, "-Date:20240102\n" + body);
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "BILL_DATE"), (Texts{"20240105"}));
}

TEST_F(FixedLayouts, SkipAStoredDayIfTheySaySo) {
    for (const bool skips : {false, true}) {
        FixedLayout layout = kLayout;
        layout.skipsStoredDay = skips;
        const std::string text = std::string(kSections[0]) + std::string(kSections[1]);
        Read(layout, text);
        EXPECT_EQ(report.MatchStore.Count(), 1);
        ReadFixedLayout(layout, {.day = "20240105", .text = text}, report);
        EXPECT_EQ(report.MatchStore.Count(), skips ? 1 : 2);
        EXPECT_EQ(report.MoneyStore.Count(), 1);
    }
}

TEST_F(FixedLayouts, ComputePremiumIfTheyHaveItsWords) {
    FixedLayout layout = kLayout;
    layout.premium = {.income = "received", .payment = "paid"};
    const std::string_view text = "MONEY\nreceived: 10 paid: 4\npaid: 2.5\nend";
    Read(layout, text);
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "QLJSZ"), (Texts{"7.50"}));
    Read(layout, kSections[0]);
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "QLJSZ"), (Texts{"0.00"}));
    Read(kLayout, text);
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "QLJSZ"), (Texts{""}));
}

TEST_F(FixedLayouts, HaveNoSummaryWithoutSides) {
    FixedLayout layout = kLayout;
    layout.summarySides = {};
    Read(layout, kSections[4]);
    EXPECT_TRUE(NothingRead());
}

TEST_F(FixedLayouts, ReadNothingFromAnEmptyText) {
    for (const std::string_view text : {"", "\r\n", "MONEY TRADES CLOSED OPEN SUMMARY"}) {
        Read(kLayout, text);
        EXPECT_TRUE(NothingRead());
    }
}

}  // namespace
}  // namespace tradebill::fixed_layout_test
