// What is wrong with what a run is asked.
#include "findings/request_findings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "findings/account_check.h"
#include "findings/finding.h"
#include "platform/file.h"
#include "report/product_unit.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "report/trade_units.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill::request_findings_test {
namespace {

class RequestTemplate : public testing::Test {
protected:
    RequestTemplate() {
        report_.Request = ClearedRequest();
        CopyField(report_.Request.TemplateName, "mine.ini");
        report_.TemplatePath = folder_.Path("mine.ini");
    }
    FindingKeys Check() {
        findings_.clear();
        CheckRequestTemplate(report_, findings_);
        return KeysOf(findings_);
    }

    CTempFolder folder_;
    CReport report_;
    std::vector<Finding> findings_;
};

TEST_F(RequestTemplate, IsToldIfItIsntThere) {
    EXPECT_EQ(Check(), FindingKeys{"template@"});
    EXPECT_EQ(findings_[0].file, "mine.ini");
    EXPECT_EQ(findings_[0].expected, "a template file");
    EXPECT_EQ(findings_[0].found, "none");
    EXPECT_EQ(findings_[0].row, std::nullopt);
}

TEST_F(RequestTemplate, IsNoneWhereNoneIsAskedFor) {
    report_.Request.TemplateName[0] = '\0';
    EXPECT_EQ(Check(), FindingKeys{});
    CopyField(report_.Request.TemplateName, "mine.ini");
    report_.Request.StatementKind = kForeignKind;
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(RequestTemplate, IsToldByTheLinesOfItsErrors) {
    folder_.Write("mine.ini", "[DEALFIELD]\r\nMONEY_MODE=0\r\nBILLFORMAT_NEWDATE=20241319\r\n");
    EXPECT_EQ(Check(), FindingKeys{"template@"});
    const auto found = std::ranges::find(findings_, std::optional(3), &Finding::row);
    ASSERT_NE(found, findings_.end());
    EXPECT_EQ(found->file, "mine.ini");
    EXPECT_TRUE(found->text.starts_with("BILLFORMAT_NEWDATE")) << found->text;
    EXPECT_TRUE(found->text.ends_with(".")) << found->text;
}

TEST(DoubtfulUnits, AreWrongIfTradesSayOthersAndUnknownIfNobodyDoes) {
    const DoubtfulUnit units[] = {{{.product = Gbk("铜"), .unit = 10}, 5},
                                  {{.product = "zz", .unit = 1}, std::nullopt}};
    std::vector<Finding> findings;
    TellDoubtfulUnits(units, findings);
    ASSERT_EQ(findings.size(), 2U);
    EXPECT_EQ(findings[0].code, FindingCode::Unit);
    EXPECT_EQ(findings[0].severity, Severity::Error);
    EXPECT_EQ(findings[0].expected, "5");
    EXPECT_EQ(findings[0].found, "10");
    EXPECT_EQ(findings[0].text, "The unit of 铜 isn't what the account's own trades say.");
    EXPECT_NE(findings[1].severity, Severity::Error);
    EXPECT_EQ(findings[1].expected, "its unit");
    EXPECT_EQ(findings[1].found, "1");
    EXPECT_EQ(findings[1].text, "The unit of zz isn't known: 1 is used.");
}

TEST(LiveFinding, IsOfTheRunAndNamesWhatItLacks) {
    const Finding finding = LiveFinding();
    EXPECT_EQ(finding.code, FindingCode::Live);
    EXPECT_EQ(finding.day, "");
    EXPECT_EQ(finding.expected, "live figures");
    EXPECT_EQ(finding.found, "none");
}

}  // namespace
}  // namespace tradebill::request_findings_test
