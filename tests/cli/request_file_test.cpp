// The INI file that says what options say, and which of the two wins.
#include <gtest/gtest.h>

#include <string>

#include "base/text.h"
#include "cli/cli_fixture.h"

namespace tradebill::request_file_test {
namespace {

constexpr std::string_view kWholeRequest =
    "[REQUEST]\nuser=demo\naccount=60010001\nfrom=2024-01-02\nto=2024-02-05\nformat=6\nkind=foreign\ntemplate=songta\n"
    "dpi=96\nmargin_offset=1\n";

class RequestFile : public CliFixture {
protected:
    RequestFile() {
        options_ = {};
        options_.root = root_.Path();
    }

    void Use(std::string_view content) { options_.requestFile = root_.Write("request.ini", content); }
    [[nodiscard]] GenerateBillRequest Prepared() const { return PrepareRequest(options_).request; }
    [[nodiscard]] std::string Refusal() const {
        return UsageErrorOf([this] { return PrepareRequest(options_); });
    }
};

TEST_F(RequestFile, SaysAllOfARequest) {
    Use(kWholeRequest);
    const GenerateBillRequest request = Prepared();
    EXPECT_EQ(FieldText(request.UserFolder), "demo");
    EXPECT_EQ(FieldText(request.Account), "60010001");
    EXPECT_EQ(FieldText(request.StartDate), "2024-01-02");
    EXPECT_EQ(FieldText(request.EndDate), "2024-02-05");
    EXPECT_EQ(request.StatementFormat, 6);
    EXPECT_EQ(request.StatementKind, 2);
    EXPECT_EQ(FieldText(request.TemplateName), "songta");
    EXPECT_EQ(request.Dpi, 96);
    EXPECT_EQ(request.MarginOffsetFlag, 1);
}

TEST_F(RequestFile, LosesAgainstOptions) {
    Use(kWholeRequest);
    root_.Write("Users/other/a", "");
    options_.user = "other";
    options_.account = "1";
    options_.from = "2023-1-1";
    options_.to = "2023-1-2";
    options_.format = "201";
    options_.kind = "domestic";
    options_.templateName = "fuyang";
    options_.dpi = "0";
    const GenerateBillRequest request = Prepared();
    EXPECT_EQ(FieldText(request.UserFolder), "other");
    EXPECT_EQ(FieldText(request.Account), "1");
    EXPECT_EQ(FieldText(request.StartDate), "2023-1-1");
    EXPECT_EQ(FieldText(request.EndDate), "2023-1-2");
    EXPECT_EQ(request.StatementFormat, 201);
    EXPECT_EQ(request.StatementKind, 1);
    EXPECT_EQ(FieldText(request.TemplateName), "fuyang");
    EXPECT_EQ(request.Dpi, 0);
    EXPECT_EQ(request.MarginOffsetFlag, 1);  // not said again
}

TEST_F(RequestFile, CanBeOverruledByTheMarginOption) {
    Use("[REQUEST]\nuser=demo\naccount=1\nfrom=2024-1-2\nto=2024-1-3\nformat=1\nmargin_offset=0\n");
    EXPECT_EQ(Prepared().MarginOffsetFlag, 0);
    options_.marginOffset = "1";
    EXPECT_EQ(Prepared().MarginOffsetFlag, 1);
}

TEST_F(RequestFile, MayLeaveKeysEmptyOrOut) {
    Use("[REQUEST]\nuser=demo\naccount=1\nfrom=\nto=\nformat=1\ntemplate=\nkind=\ndpi=\nmargin_offset=\n");
    const GenerateBillRequest request = Prepared();
    EXPECT_EQ(FieldText(request.StartDate), DashedDayText(LocalDayOf(PresentTime()))) << "there is no statement";
    EXPECT_EQ(FieldText(request.TemplateName), "");
    EXPECT_EQ(request.StatementKind, 1);
    EXPECT_EQ(request.Dpi, 0);
    EXPECT_EQ(request.MarginOffsetFlag, 0);
    Use("[REQUEST]\nuser=demo\naccount=1\n");
    EXPECT_PRED2(IsClearLine, Refusal(), "--format");
}

TEST_F(RequestFile, HasKeysWithoutRegardToCase) {
    Use("[request]\nUser=demo\nACCOUNT=1\nFormat=1\n");
    EXPECT_EQ(FieldText(Prepared().Account), "1");
}

TEST_F(RequestFile, IsRefusedWithTheLineOfAnUnknownKey) {
    Use("[REQUEST]\nuser=demo\nacount=1\n");
    EXPECT_PRED2(IsClearLine, Refusal(), root_.Path("request.ini") + ", line 3:");
    Use("[REQUEST]\nuser=demo\n\nnonsense\n");
    EXPECT_PRED2(IsClearLine, Refusal(), root_.Path("request.ini") + ", line 4:");
    Use("[OTHER]\nuser=demo\n");
    EXPECT_PRED2(IsClearLine, Refusal(), "[REQUEST]");
}

TEST_F(RequestFile, IsCheckedLikeOptions) {
    const std::string good = "[REQUEST]\nuser=demo\naccount=1\nformat=1\n";
    for (const char* const line : {"from=2024-13-1\nto=2024-1-1", "dpi=x", "margin_offset=2", "margin_offset=yes",
                                   "kind=local", "template=a/b", "template=12345678901"}) {
        Use(good + line + "\n");
        EXPECT_PRED2(IsClearLine, Refusal(), std::string(line).substr(0, std::string(line).find('='))) << line;
    }
}

TEST_F(RequestFile, OfEverySampleIsTaken) {
    for (const char* const sample : {"fund-class", "fund-status", "fund-status-premium", "tabulated", "client-bill",
                                     "client-bill-premium", "spaced-title", "spaced-title-premium", "bilingual",
                                     "bilingual-new", "template-pairs", "template-row", "foreign", "one-year"}) {
        options_.root = std::string(TRADEBILL_SAMPLES) + "/" + sample + "/root";
        options_.requestFile = std::string(TRADEBILL_SAMPLES) + "/" + sample + "/request.ini";
        EXPECT_EQ(Refusal(), "") << sample;
    }
}

}  // namespace
}  // namespace tradebill::request_file_test
