// Findings for people: a line each, grouped by code and severity.
#include "cli/findings_text.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "findings/finding.h"
#include "findings/finding_table.h"

namespace tradebill::findings_text_test {
namespace {

Finding FindingOf(FindingCode code, Severity severity, const std::string& text) {
    return {.code = code, .severity = severity, .day = "20240110", .text = text};
}

std::string Printed(const std::vector<Finding>& findings, std::size_t most = 20) {
    std::ostringstream out;
    PrintFindings(findings, most, out);
    return out.str();
}

std::string HeadOf(FindingCode code) {
    return std::string(KindOf(code).name) + ": " + std::string(KindOf(code).when) + "\n";
}
std::string AdviceOf(FindingCode code) {
    return "  -> " + std::string(KindOf(code).advice) + "\n\n";
}

TEST(FindingsText, TellsThePlaceAsFarAsItIsKnown) {
    Finding finding{.code = FindingCode::Totals, .severity = Severity::Error, .text = "Wrong."};
    EXPECT_EQ(FindingLine(finding), "Wrong.");
    finding.day = "20240111";
    EXPECT_EQ(FindingLine(finding), "20240111: Wrong.");
    finding.file = "D1.20240111o.txt";
    EXPECT_EQ(FindingLine(finding), "20240111 D1.20240111o.txt: Wrong.");
    finding.row = 7;
    EXPECT_EQ(FindingLine(finding), "20240111 D1.20240111o.txt, line 7: Wrong.");
    finding.section = SectionKind::Trades;
    EXPECT_EQ(FindingLine(finding), "20240111 D1.20240111o.txt, line 7, trades: Wrong.");
    finding.expected = "9 rows";
    finding.found = "8 rows";
    EXPECT_EQ(FindingLine(finding), "20240111 D1.20240111o.txt, line 7, trades: Wrong. Expected 9 rows, found 8 rows.");
}

TEST(FindingsText, SaysSoIfNothingWasFound) {
    EXPECT_EQ(Printed({}), "nothing was found\n");
    EXPECT_EQ(FindingCountsText({}), "nothing was found");
}

TEST(FindingsText, GroupsByCodeAndSeverity) {
    using enum FindingCode;
    using enum Severity;
    const std::vector<Finding> findings{FindingOf(Gap, Error, "One."), FindingOf(Lots, Warning, "Two."),
                                        FindingOf(Lots, Warning, "Three."), FindingOf(Gap, Note, "Four.")};
    EXPECT_EQ(Printed(findings), "error " + HeadOf(Gap) + "  20240110: One.\n" + AdviceOf(Gap) + "warning " +
                                     HeadOf(Lots) + "  20240110: Two.\n  20240110: Three.\n" + AdviceOf(Lots) +
                                     "note " + HeadOf(Gap) + "  20240110: Four.\n\n" + "1 error, 2 warnings, 1 note\n");
}

TEST(FindingsText, PrintsNoMoreOfACodeThanItMay) {
    const std::vector<Finding> findings(4, FindingOf(FindingCode::Empty, Severity::Error, "Empty."));
    const std::string line = "  20240110: Empty.\n";
    const auto text = [&](const std::string& lines) {
        return "error " + HeadOf(FindingCode::Empty) + lines + AdviceOf(FindingCode::Empty) + "4 errors\n";
    };
    EXPECT_EQ(Printed(findings, 4), text(line + line + line + line));
    EXPECT_EQ(Printed(findings, 3), text(line + line + line + "  ... and 1 more\n"));
}

TEST(FindingsText, CountsBySeverity) {
    using enum Severity;
    const auto counts = [](const std::vector<Severity>& severities) {
        std::vector<Finding> findings;
        for (const Severity severity : severities) findings.push_back(FindingOf(FindingCode::Gap, severity, ""));
        return FindingCountsText(findings);
    };
    EXPECT_EQ(counts({Error}), "1 error");
    EXPECT_EQ(counts({Note, Note}), "2 notes");
    EXPECT_EQ(counts({Warning, Error, Error}), "2 errors, 1 warning");
}

TEST(FindingsText, PartsOneCodeBySeverity) {
    const std::vector<Finding> findings{FindingOf(FindingCode::Gap, Severity::Error, "One."),
                                        FindingOf(FindingCode::Gap, Severity::Note, "Two.")};
    const std::string text = Printed(findings);
    EXPECT_TRUE(text.starts_with("error " + HeadOf(FindingCode::Gap) + "  20240110: One.\n")) << text;
    EXPECT_NE(text.find("note " + HeadOf(FindingCode::Gap) + "  20240110: Two.\n"), std::string::npos) << text;
}

}  // namespace
}  // namespace tradebill::findings_text_test
