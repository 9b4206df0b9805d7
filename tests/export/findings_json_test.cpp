// Findings for programs.
#include "export/findings_json.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "findings/finding.h"
#include "findings/finding_table.h"

namespace tradebill::findings_json_test {
namespace {

using Json = nlohmann::ordered_json;

Json JsonOf(const std::vector<Finding>& findings) {
    std::ostringstream out;
    WriteFindingsJson(findings, out);
    EXPECT_TRUE(out.str().ends_with("}\n")) << out.str();
    return Json::parse(out.str());
}

TEST(FindingsJson, IsWholeWithoutFindings) {
    EXPECT_EQ(JsonOf({}), Json::parse(R"({"schema": 1, "findings": [], "counts": {}})"));
}

TEST(FindingsJson, HasAllOfAFinding) {
    const Finding finding{.code = FindingCode::SectionMissing,
                          .severity = Severity::Error,
                          .day = "20240110",
                          .file = "D1.20240110o.txt",
                          .row = 12,
                          .section = SectionKind::Summary,
                          .expected = "持仓汇总",
                          .found = "\"none\"",
                          .text = "It is missing."};
    const Json found = JsonOf({finding});
    EXPECT_EQ(found.at("findings").at(0),
              (Json{{"code", "section-missing"},
                    {"severity", "error"},
                    {"day", "20240110"},
                    {"file", "D1.20240110o.txt"},
                    {"row", 12},
                    {"section", "summary"},
                    {"expected", "持仓汇总"},
                    {"found", "\"none\""},
                    {"text", "It is missing. " + std::string(KindOf(FindingCode::SectionMissing).advice)}}));
}

TEST(FindingsJson, HasNullForWhatAFindingLacks) {
    const Json found = JsonOf({{.code = FindingCode::Identity, .severity = Severity::Note, .text = "No form."}});
    EXPECT_EQ(found.at("findings").at(0), (Json{{"code", "identity"},
                                                {"severity", "note"},
                                                {"day", nullptr},
                                                {"file", nullptr},
                                                {"row", nullptr},
                                                {"section", nullptr},
                                                {"expected", ""},
                                                {"found", ""},
                                                {"text", "No form."}}));
}

TEST(FindingsJson, CountsTheCodesThatWereFoundInTheirOrder) {
    using enum FindingCode;
    std::vector<Finding> findings;
    for (const FindingCode code : {Lots, Gap, Lots, Empty}) {
        findings.push_back({.code = code, .severity = KindOf(code).severity});
    }
    EXPECT_EQ(JsonOf(findings).at("counts").dump(), R"({"empty":1,"gap":1,"lots":2})");
}

}  // namespace
}  // namespace tradebill::findings_json_test
