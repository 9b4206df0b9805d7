#include "requests/format_choice.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/cli_fixture.h"
#include "driver/host_module.h"
#include "report/request_copy.h"

namespace tradebill::format_choice_test {
namespace {

class FormatChoice : public CliFixture {
protected:
    FormatChoice() {
        options_.format = "auto";
        options_.to = "2024-01-05";
    }
    [[nodiscard]] std::string Refusal() const {
        return UsageErrorOf([&] { static_cast<void>(PrepareRequest(options_)); });
    }
    void Put(const std::string& day, std::initializer_list<std::string_view> lines) const {
        root_.Write("Users/demo/Data/Bill/D90010002." + day + "o.txt", Statement(lines));
    }
};

TEST_F(FormatChoice, GoesByTheFirstStatementOfTheRange) {
    Put("20240101", {"资金类别"});  // before the range
    Put("20240103", {"成 交 记 录 单"});
    Put("20240104", {"资金类别"});
    const PreparedRequest prepared = PrepareRequest(options_);
    EXPECT_EQ(prepared.request.StatementFormat, 6);
    ASSERT_EQ(prepared.notes.size(), 1u);
    EXPECT_NE(prepared.notes[0].find("reading format 6 (spaced-title), by the marks in "), std::string::npos);
    EXPECT_NE(prepared.notes[0].find("D90010002.20240103o.txt"), std::string::npos);
}

TEST_F(FormatChoice, LeavesTheRequestOfTheModuleAlone) {
    Put("20240103", {"资金类别"});
    GenerateBillRequest& request = TheModule().report.Request;
    request = ClearedRequest();
    request.StatementKind = 7;
    static_cast<void>(PrepareRequest(options_));
    EXPECT_EQ(request.StatementKind, 7);
    EXPECT_EQ(request.Account[0], '\0');
}

TEST_F(FormatChoice, PassesOverWhatCannotBeRead) {
    std::filesystem::create_directories(root_.Path("Users/demo/Data/Bill/D90010002.20240102o.txt"));
    Put("20240103", {"资金类别"});
    EXPECT_EQ(PrepareRequest(options_).request.StatementFormat, 0);
}

TEST_F(FormatChoice, RefusesWithAListWhenItIsAmbiguous) {
    Put("20240103", {"客户帐单_资金清单", "a", "b", "c", "1 0 0 0 0 100.00 60.00 9% 50.00"});
    const std::string refusal = Refusal();
    EXPECT_NE(refusal.find("2 (client-bill), 201 (client-bill)"), std::string::npos) << refusal;
    EXPECT_TRUE(IsClearLine(refusal, "--format auto")) << refusal;
}

TEST_F(FormatChoice, RefusesWithoutAStatementOrAMark) {
    EXPECT_NE(Refusal().find("no statement was found in the whole range"), std::string::npos) << Refusal();
    Put("20240103", {"别的"});
    EXPECT_NE(Refusal().find("no layout's mark stands in"), std::string::npos) << Refusal();
    Put("20240103", {"资金汇总", "Base HKD"});
    EXPECT_NE(Refusal().find("--kind foreign, which it looks like"), std::string::npos) << Refusal();
}

TEST_F(FormatChoice, MeansNothingForTheForeignKind) {
    options_.kind = "foreign";
    const PreparedRequest prepared = PrepareRequest(options_);
    EXPECT_EQ(prepared.request.StatementFormat, 0);
    EXPECT_TRUE(prepared.notes.empty());
}

TEST_F(FormatChoice, NumbersAreTakenAsTheyAre) {
    EXPECT_EQ(FormatNumber("201", false), 201);
    EXPECT_EQ(FormatNumber("5", true), 5);
    EXPECT_NE(UsageErrorOf([] { static_cast<void>(FormatNumber("5", false)); }).find("found \"5\""), std::string::npos);
    EXPECT_NE(UsageErrorOf([] { static_cast<void>(FormatNumber("2x", true)); }).find("found \"2x\""),
              std::string::npos);
    EXPECT_EQ(KindNumber({}), 1);
    EXPECT_EQ(KindNumber("domestic"), 1);
    EXPECT_EQ(KindNumber("foreign"), 2);
}

}  // namespace
}  // namespace tradebill::format_choice_test
