// Files that open and can't be read: every command says which and why, and ends with 1.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/program_fixture.h"
#include "support/failing_file.h"

namespace tradebill::linux_unreadable_inputs_test {
namespace {

class UnreadableInput : public Program {
protected:
    [[nodiscard]] std::string PutFailing(const std::string& name) const {
        const std::string path = folder_.Path(name);
        PutFailingFile(path);
        return path;
    }
    [[nodiscard]] std::string Statement(const std::string& day) const {
        return root_ + "/Users/demo/Data/Bill/D90010002." + day + "o.txt";
    }
    [[nodiscard]] static std::string Refusal(const std::string& path) {
        return "tradebill: can't read " + path + ": " + kFailingReason + "\n";
    }
};

TEST_F(UnreadableInput, IsNamedByEveryCommandThatReadsOne) {
    const std::string file = PutFailing("failing.ini");
    const std::string good = Statement("20240104");
    const std::string request = " --root " + Quoted(root_) + " --request ";
    const std::string chart = "chart equity -o " + Quoted(folder_.Path("chart.png"));
    for (const std::string& call : {
             "explain " + Quoted(file) + " --format 1",
             "explain " + Quoted(file) + " --format 1 --json",
             "explain " + Quoted(good) + " --format 1 --template " + Quoted(file),
             "template check " + Quoted(file),
             "template check " + Quoted(folder_.Write("own.ini", "[DEALFIELD]\n")) + " --against " + Quoted(file),
             "report" + request + Quoted(file),
             "check" + request + Quoted(file),
             chart + request + Quoted(file),
             Report("--units " + Quoted(file)),
             Report("--products " + Quoted(file)),
             Report("--live " + Quoted(file)),
         }) {
        const Answer answer = Run(call);
        EXPECT_EQ(answer.exit, 1) << call;
        EXPECT_EQ(answer.out, "") << call;
        EXPECT_EQ(answer.err, Refusal(file)) << call;
    }
    EXPECT_FALSE(fs::exists(PageFile()));
}

TEST_F(UnreadableInput, IsATemplateThatARequestNames) {
    const std::string path = root_ + "/BillTemplate/own.ini";
    PutFailingFile(path);
    const Answer answer = Run(Report("--template own"));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.err, Refusal(path));
    EXPECT_FALSE(fs::exists(PageFile()));
    const Answer checked = Run("check --json - --root " + Quoted(root_) + " --request " +
                               Quoted(sample_ + "/request.ini") + " --template own");
    EXPECT_EQ(checked.exit, 1);
    EXPECT_TRUE(Says(checked.err, Refusal(path))) << checked.err;
    const auto json = nlohmann::json::parse(checked.out);
    EXPECT_EQ(json.at("counts").value("template", 0), 1);
    EXPECT_EQ(json.at("findings")[0].at("found"), kFailingReason);
}

// Nobody asks for the template then but the check itself.
TEST_F(UnreadableInput, IsATemplateBesideAStatement) {
    const std::string path = root_ + "/BillTemplate/own.ini";
    PutFailingFile(path);
    PutFailingFile(Statement("20240104"));
    const Answer answer = Run("check --root " + Quoted(root_) +
                              " --user demo --account 90010002 --from 2024-01-04 --to 2024-01-04 --format 1 "
                              "--template own --json -");
    EXPECT_EQ(answer.exit, 1) << answer.err;
    EXPECT_EQ(nlohmann::json::parse(answer.out).at("counts").value("template", 0), 1);
}

TEST_F(UnreadableInput, IsAChainFile) {
    const std::string path = root_ + "/sys/chain.ini";
    const Answer before = Run(Report());
    ASSERT_EQ(before.exit, 0) << before.err;
    PutFailingFile(path);
    const Answer answer = Run(Report());
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(answer.err, Refusal(path));
    EXPECT_EQ(answer.out, before.out);  // the report is made all the same
    EXPECT_EQ(Run("check --quiet --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini")).err,
              Refusal(path));
}

TEST_F(UnreadableInput, IsAStatement) {
    PutFailingFile(Statement("20240104"));
    const Answer answer = Run(Report());
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(
        Says(answer.err, "tradebill: 20240104: can't read " + Statement("20240104") + ": " + kFailingReason + "\n"))
        << answer.err;
    EXPECT_TRUE(Says(answer.out, ", 1 unreadable)")) << answer.out;
    const Answer checked =
        Run("check --json - --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini"));
    EXPECT_EQ(checked.exit, 3);
    const auto finding = nlohmann::json::parse(checked.out).at("findings")[0];
    EXPECT_EQ(finding.at("code"), "unreadable");
    EXPECT_EQ(finding.at("day"), "20240104");
    EXPECT_EQ(finding.at("found"), kFailingReason);
}

// A link in the page's place is replaced, wherever it leads.
TEST_F(UnreadableInput, InThePlaceOfAPageIsNotRead) {
    const std::string page = PutFailing("page.html");
    EXPECT_EQ(Run("reset " + Quoted(page)).exit, 0);
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(page)));
    EXPECT_TRUE(ReadFile(page).ends_with("</html>\r\n"));
}

}  // namespace
}  // namespace tradebill::linux_unreadable_inputs_test
