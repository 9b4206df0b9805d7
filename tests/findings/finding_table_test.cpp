#include "findings/finding_table.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "findings/account_findings.h"
#include "findings/finding.h"

namespace tradebill::finding_table_test {
namespace {

using enum FindingCode;

Finding FindingOf(FindingCode code, Severity severity, std::string day = {}, int row = 0) {
    return {.code = code, .severity = severity, .day = std::move(day), .row = row};
}

TEST(FindingTable, KeepsTheNamesThatDocumentsAndProgramsKnow) {
    std::vector<std::string_view> names;
    for (const FindingKind& kind : FindingKinds()) names.push_back(kind.name);
    EXPECT_EQ(names, (std::vector<std::string_view>{
                         "unreadable",      "empty",       "not-a-file", "encoding", "unrecognised", "cut-off",
                         "section-missing", "row-skipped", "shifted",    "totals",   "identity",     "available",
                         "money-rows",      "currency",    "continuity", "gap",      "lots",         "wrong-account",
                         "wrong-day",       "repeated",    "unit",       "template", "live",         "opening"}));
}

TEST(FindingTable, SaysOfEachCodeWhatItMeansAndWhatToDo) {
    for (const FindingKind& kind : FindingKinds()) {
        EXPECT_EQ(&KindOf(kind.code), &kind);
        EXPECT_TRUE(kind.when.ends_with('.')) << kind.name;
        EXPECT_TRUE(kind.advice.ends_with('.')) << kind.name;
        EXPECT_NE(kind.severity, Severity::Note) << kind.name;
    }
}

TEST(FindingTable, GivesAdviceOnAllButNotes) {
    Finding finding{.code = Empty, .severity = Severity::Error, .text = "It is empty."};
    EXPECT_EQ(SentencesOf(finding), "It is empty. " + std::string(KindOf(Empty).advice));
    finding.severity = Severity::Note;
    EXPECT_EQ(SentencesOf(finding), "It is empty.");
}

TEST(FindingTable, CountsAndWarns) {
    const std::vector<Finding> notes{FindingOf(Gap, Severity::Note), FindingOf(Lots, Severity::Note)};
    EXPECT_FALSE(HasWarnings({}));
    EXPECT_FALSE(HasWarnings(notes));
    EXPECT_TRUE(HasWarnings(std::vector{notes[0], FindingOf(Lots, Severity::Warning)}));
    EXPECT_TRUE(HasWarnings(std::vector{FindingOf(Gap, Severity::Error)}));
    EXPECT_EQ(CountOf(notes, Gap), 1);
    EXPECT_EQ(CountOf(notes, Empty), 0);
}

TEST(FindingTable, NamesSeveritiesAndSections) {
    EXPECT_EQ(SeverityName(Severity::Error), "error");
    EXPECT_EQ(SeverityName(Severity::Warning), "warning");
    EXPECT_EQ(SeverityName(Severity::Note), "note");
    EXPECT_EQ(SectionName(SectionKind::Money), "money");
    EXPECT_EQ(SectionName(SectionKind::Trades), "trades");
    EXPECT_EQ(SectionName(SectionKind::Closed), "closed");
    EXPECT_EQ(SectionName(SectionKind::Open), "open");
    EXPECT_EQ(SectionName(SectionKind::Summary), "summary");
    EXPECT_EQ(SectionName(SectionKind::Cash), "cash");
    EXPECT_EQ(SectionName(SectionKind::Exercises), "exercises");
    EXPECT_EQ(SectionName(SectionKind::Deliveries), "deliveries");
}

TEST(SortFindings, PutsTheWorstFirstThenByCodeDayAndRow) {
    std::vector<Finding> findings{
        FindingOf(Gap, Severity::Note, "20240101"),
        FindingOf(Lots, Severity::Warning, "20240102"),
        FindingOf(Totals, Severity::Error, "20240103", 9),
        FindingOf(Totals, Severity::Error, "20240103", 2),
        FindingOf(Totals, Severity::Error, "20240102", 5),
        FindingOf(Empty, Severity::Error, "20240109"),
        FindingOf(Identity, Severity::Note),
    };
    SortFindings(findings);
    std::vector<std::string> order;
    for (const Finding& finding : findings) {
        order.push_back(std::string(KindOf(finding.code).name) + " " + finding.day + " " +
                        std::to_string(finding.row.value_or(0)));
    }
    EXPECT_EQ(order,
              (std::vector<std::string>{"empty 20240109 0", "totals 20240102 5", "totals 20240103 2",
                                        "totals 20240103 9", "lots 20240102 0", "identity  0", "gap 20240101 0"}));
}

TEST(SortFindings, PutsAFindingWithoutARowBeforeTheFirstRow) {
    std::vector<Finding> findings{FindingOf(Totals, Severity::Error, "20240103", 1),
                                  FindingOf(Totals, Severity::Error, "20240103")};
    findings[1].row.reset();
    SortFindings(findings);
    EXPECT_EQ(findings[0].row, std::nullopt);
    EXPECT_EQ(findings[1].row, 1);
}

TEST(SortFindings, LeavesTheOrderOfThoseThatAreAlike) {
    std::vector<Finding> findings(3, FindingOf(Totals, Severity::Error, "20240103", 4));
    findings[0].text = "one";
    findings[1].text = "two";
    findings[2].text = "three";
    SortFindings(findings);
    EXPECT_EQ(findings[0].text, "one");
    EXPECT_EQ(findings[1].text, "two");
    EXPECT_EQ(findings[2].text, "three");
}

}  // namespace
}  // namespace tradebill::finding_table_test
