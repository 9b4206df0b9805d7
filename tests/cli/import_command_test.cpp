// The program's `import`: what becomes of folders of files, what it prints, and how it ends.
#include "cli/import_command.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "driver/place_guard.h"
#include "platform/paths.h"
#include "platform/text_encoding.h"
#include "support/gbk_text.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::import_command_test {
namespace {

namespace fs = std::filesystem;

std::string SampleFolder(const std::string& name) {
    return std::string(TRADEBILL_SAMPLES) + "/" + name;
}

/// A statement of a day without trades.
std::string Bill(const std::string& day, const std::string& figure = "1.00") {
    return Statement({"   云山期货有限公司", "   交易结算单", "", "客户号: 9001   客户名称: 周虚构", "日  期:" + day,
                      "", "   资金状况", "--------------------", "上日结存: " + figure + " 当日结存: " + figure,
                      "出入金: 0.00 客户权益: " + figure, "平仓盈亏: 0.00 保证金占用: 0.00",
                      "持仓盯市盈亏: 0.00 可用资金: " + figure, "手续费: 0.00 风险度: 0.00%", "--------------------"});
}

class ImportCommandTest : public testing::Test {
protected:
    [[nodiscard]] Answer Run(const std::string& arguments) const { return RunProgram(folder_, arguments); }
    [[nodiscard]] Answer Import(const std::string& path, const std::string& more = {}) const {
        return Run("import " + Quoted(path) + " --root " + Quoted(root_) + " --user demo " + more);
    }
    [[nodiscard]] std::string Target(const std::string& name) const { return root_ + "/Users/demo/Data/Bill/" + name; }

    /// A folder with the statements of a sample as somebody else saved them.
    [[nodiscard]] std::string Downloads(const std::string& sample) const {
        const std::string bills = SampleFolder(sample) + "/root/Users/demo/Data/Bill";
        int number = 0;
        for (const auto& entry : fs::directory_iterator(bills)) {
            folder_.Write("downloads/" + std::to_string(++number) + " " + kOddName + ".dat",
                          GbkToUtf8(ReadFile(entry.path().string())));
        }
        return folder_.Path("downloads");
    }
    [[nodiscard]] nlohmann::json Json(const std::string& path, const std::string& more = {}) const {
        return nlohmann::json::parse(Import(path, "--json - " + more).out);
    }

    CTempFolder folder_;
    std::string root_ = folder_.Path("new/root");
};

TEST_F(ImportCommandTest, HiddenFilesOfAFolderAreNobodysStatements) {
    folder_.Write("in/a.txt", Bill("20240102"));
    folder_.Write("in/.DS_Store", "rubbish");
    folder_.Write("in/.tradebill.lock", "1234, since 10:22:01");  // of a program that was killed
    const nlohmann::json json = Json(folder_.Path("in"));
    ASSERT_EQ(json["files"].size(), 1U);
    EXPECT_EQ(json["files"][0]["file"], Utf8Path(folder_.Path("in/a.txt")));
    EXPECT_EQ(Import(folder_.Path("in")).exit, 0);
    EXPECT_NE(Import(folder_.Path("in/.DS_Store")).exit, 0);  // whoever names one means it
}

TEST_F(ImportCommandTest, MakesTheSameReportOfDownloadsAsOfStatementsInTheirPlaces) {
    const std::string sample = SampleFolder("client-bill-premium");
    const Answer answer = Import(Downloads("client-bill-premium"));
    EXPECT_EQ(answer.exit, 0) << answer.out << answer.err;
    EXPECT_EQ(answer.err, "");
    EXPECT_TRUE(Says(answer.out, "25 files: 25 imported\n\nnothing was found\n")) << answer.out;
    const std::string options =
        " --request " + Quoted(sample + "/request.ini") + " --units " + Quoted(sample + "/units.ini") + " --root ";
    fs::copy(sample + "/root", folder_.Path("old"), fs::copy_options::recursive);
    fs::copy(sample + "/root/sys", root_ + "/sys", fs::copy_options::recursive);
    EXPECT_EQ(Run("check" + options + Quoted(root_)).out, Run("check" + options + Quoted(folder_.Path("old"))).out);
    ASSERT_EQ(Run("report --quiet" + options + Quoted(root_)).exit, 0);
    ASSERT_EQ(Run("report --quiet" + options + Quoted(folder_.Path("old"))).exit, 0);
    const std::string page = ReadFile(Target("Image/TradeBill.html"));
    EXPECT_FALSE(page.empty());
    EXPECT_EQ(page, ReadFile(folder_.Path("old/Users/demo/Data/Bill/Image/TradeBill.html")));
}

TEST_F(ImportCommandTest, PrintsWhatBecameOfEachFileByName) {
    folder_.Write("in/c.txt", Bill("20240102") + Bill("20240103"));
    folder_.Write("in/b.txt", "rubbish");
    folder_.Write("in/a.txt", Bill("20240102"));
    const Answer answer = Import(folder_.Path("in"));
    EXPECT_EQ(answer.exit, 3);
    EXPECT_EQ(answer.err, "");
    const std::size_t a = answer.out.find("in/a.txt  fund-status, GBK  9001     20240102  ");
    const std::size_t b = answer.out.find("in/b.txt  GBK               -        -  ");
    const std::size_t c = answer.out.find("in/c.txt  fund-status, GBK  9001     20240102 to 20240103 (2)  ");
    EXPECT_NE(b, std::string::npos) << answer.out;
    EXPECT_LT(a, b);
    EXPECT_LT(b, c);
    EXPECT_LT(c, answer.out.size()) << answer.out;
    EXPECT_TRUE(Says(answer.out, "nowhere: no layout knows it (tradebill layouts lists them)\n"));
    EXPECT_TRUE(Says(answer.out, "3 files: 2 imported, 1 refused\n")) << answer.out;
    EXPECT_EQ(ReadFile(Target("D9001.20240103o.txt")), Bill("20240103"));
    const Answer again = Import(folder_.Path("in/a.txt"));
    EXPECT_EQ(again.exit, 0);
    EXPECT_TRUE(Says(again.out, "  already in ")) << again.out;
    EXPECT_TRUE(Says(again.out, "1 file: 1 equal\n")) << again.out;
}

TEST_F(ImportCommandTest, WritesJson) {
    folder_.Write("in/1.txt", GbkToUtf8(Bill("20240103") + Bill("20240102")));
    folder_.Write("in/2.txt", Bill("20240102", "2.00"));
    folder_.Write("in/3.pdf", "%PDF-1.4");
    const nlohmann::json json = Json(folder_.Path("in"));
    EXPECT_EQ(json["schema"], 1);
    ASSERT_EQ(json["files"].size(), 3u);
    nlohmann::json expected = {{"kind", "domestic"}, {"layout", "fund-status"}, {"encoding", "UTF-8"},
                               {"account", "9001"},  {"outcome", "imported"},   {"text", ""}};
    expected["file"] = Utf8Path(folder_.Path("in/1.txt"));
    expected["days"] = nlohmann::json::array({"20240102", "20240103"});
    expected["to"] =
        nlohmann::json::array({Utf8Path(Target("D9001.20240102o.txt")), Utf8Path(Target("D9001.20240103o.txt"))});
    EXPECT_EQ(json["files"][0], expected);
    EXPECT_EQ(json["files"][1]["outcome"], "refused");
    EXPECT_EQ(json["files"][1]["to"], nlohmann::json::array());
    EXPECT_EQ(json["files"][1]["text"],
              "its statement of 20240102 differs from that in " + Utf8Path(folder_.Path("in/1.txt")));
    for (const char* const name : {"kind", "layout", "encoding", "account"}) {
        EXPECT_TRUE(json["files"][2][name].is_null()) << name;
    }
    EXPECT_EQ(json["files"][2]["days"], nlohmann::json::array());
    EXPECT_EQ(json["files"][2]["text"], "it is a PDF, and no text");
    EXPECT_EQ(json["findings"], nlohmann::json::array());
}

TEST_F(ImportCommandTest, NamesTheTemplateThatReadsAFile) {
    const std::string file = SampleFolder("field/units") + "/D103988.20260529o.txt";
    const nlohmann::json json = Json(file);
    ASSERT_EQ(json["files"].size(), 1u);
    EXPECT_EQ(json["files"][0]["layout"], "template units");
    EXPECT_EQ(json["files"][0]["kind"], "domestic");
    EXPECT_EQ(json["files"][0]["days"], nlohmann::json::array({"20260529"}));
}

TEST_F(ImportCommandTest, TellsTheFindingsOverTheDaysImportedAndEndsWellAllTheSame) {
    folder_.Write("in/1.txt", Bill("20240102", "1.00"));
    folder_.Write("in/2.txt", Bill("20240103", "5.00"));  // opens with another balance than the day before closed with
    const Answer answer = Import(folder_.Path("in"));
    EXPECT_EQ(answer.exit, 0);
    EXPECT_TRUE(Says(answer.out, "continuity")) << answer.out;
    const nlohmann::json json = Json(folder_.Path("in"));
    ASSERT_EQ(json["findings"].size(), 1u);
    EXPECT_EQ(json["findings"][0]["code"], "continuity");
    EXPECT_EQ(json["findings"][0]["day"], "20240103");
    EXPECT_EQ(json["files"][0]["outcome"], "equal");
}

TEST_F(ImportCommandTest, ReadsEachAccountForItself) {
    folder_.Write("in/1.txt", Bill("20240102"));
    folder_.Write("in/3.txt", Bill("20240103"));
    const std::string foreign = SampleFolder("foreign") + "/root/Users/demo/Data/Bill/DWP60010001.20240102o.txt";
    folder_.Write("in/2.txt", ReadFile(foreign));
    const nlohmann::json json = Json(folder_.Path("in"));
    EXPECT_EQ(json["files"][1]["kind"], "foreign");
    EXPECT_EQ(ReadFile(Target("DWP60010001.20240102o.txt")), ReadFile(foreign));
    EXPECT_EQ(json["findings"], nlohmann::json::array()) << json["findings"].dump(1);
}

TEST_F(ImportCommandTest, WritesNothingInADryRun) {
    folder_.Write("in/1.txt", Bill("20240102"));
    const Answer answer = Import(folder_.Path("in"), "--dry-run");
    EXPECT_EQ(answer.exit, 0);
    EXPECT_TRUE(Says(answer.out, "would go to ")) << answer.out;
    EXPECT_TRUE(answer.out.ends_with("1 file: 1 imported; a dry run, nothing was written\n")) << answer.out;
    EXPECT_FALSE(fs::exists(folder_.Path("new")));
    folder_.Write("in/2.txt", "rubbish");
    EXPECT_EQ(Import(folder_.Path("in"), "--dry-run").exit, 3);
}

TEST_F(ImportCommandTest, ReplacesOtherContentIfItIsForced) {
    folder_.Write("in/1.txt", Bill("20240102"));
    folder_.Write("new/root/Users/demo/Data/Bill/D9001.20240102o.txt", Bill("20240102", "7.00"));
    EXPECT_EQ(Import(folder_.Path("in")).exit, 3);
    EXPECT_EQ(ReadFile(Target("D9001.20240102o.txt")), Bill("20240102", "7.00"));
    EXPECT_EQ(Import(folder_.Path("in"), "--force").exit, 0);
    EXPECT_EQ(ReadFile(Target("D9001.20240102o.txt")), Bill("20240102"));
}

TEST_F(ImportCommandTest, TakesTheAccountOfTextsThatStateNone) {
    folder_.Write("in/1.txt", Statement({"日期: 20240102", "资金状况", "上日结存: 1.00"}));
    const Answer answer = Import(folder_.Path("in"));
    EXPECT_EQ(answer.exit, 3);
    EXPECT_TRUE(Says(answer.out, "--account is needed")) << answer.out;
    EXPECT_EQ(Import(folder_.Path("in"), "--account A-7_x").exit, 0);
    EXPECT_TRUE(fs::exists(Target("DA-7_x.20240102o.txt")));
}

TEST_F(ImportCommandTest, LooksIntoFoldersOneLevelDeep) {
    folder_.Write("in/deep/1.txt", Bill("20240102"));
    folder_.Write("in/2.txt", Bill("20240103"));
    EXPECT_TRUE(Says(Import(folder_.Path("in")).out, "1 file: 1 imported"));
    EXPECT_FALSE(fs::exists(Target("D9001.20240102o.txt")));
    const Answer none = Import(folder_.Path("new/root"));
    EXPECT_EQ(none.exit, 1);
    EXPECT_EQ(none.err, "tradebill: there is no file to import\n");
}

TEST_F(ImportCommandTest, EndsWith1WhereTheTargetCantBeWritten) {
    folder_.Write("in/1.txt", Bill("20240102"));
    folder_.Write("new/root/Users", "a file");
    const Answer answer = Import(folder_.Path("in"));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.out, "nowhere: can't write ")) << answer.out;
}

TEST_F(ImportCommandTest, TellsHowManyDaysWereWritten) {
    folder_.Write("in/1.txt", Bill("20240102") + Bill("20240103") + Bill("20240104"));
    fs::create_directories(Target("D9001.20240104o.txt.part"));  // in the place of what is being written
    const Answer answer = Import(folder_.Path("in"));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.out, "  2 of 3 days to ")) << answer.out;
    EXPECT_TRUE(Says(answer.out, "/Data/Bill: can't write ")) << answer.out;
    EXPECT_EQ(ReadFile(Target("D9001.20240103o.txt")), Bill("20240103"));
}

TEST_F(ImportCommandTest, IsSilentWhereItIsQuietAndNothingIsWrong) {
    folder_.Write("in/1.txt", Bill("20240102"));
    EXPECT_EQ(Import(folder_.Path("in"), "--quiet").out, "");
    folder_.Write("in/2.txt", "rubbish");
    const Answer answer = Import(folder_.Path("in"), "--quiet");
    EXPECT_EQ(answer.exit, 3);
    EXPECT_FALSE(Says(answer.out, "in/1.txt")) << answer.out;
    EXPECT_TRUE(Says(answer.out, "in/2.txt")) << answer.out;
    EXPECT_TRUE(Says(answer.out, "2 files: 1 equal, 1 refused\n")) << answer.out;
}

TEST_F(ImportCommandTest, WaitsForAnotherImportIntoTheFolder) {
    folder_.Write("in/1.txt", Bill("20240102"));
    folder_.Write("in/2.txt", Bill("20240103"));
    fs::create_directories(Target(""));
    {
        const CPlaceGuard other(Target(""), 0);
        ASSERT_TRUE(other.IsHeld());
        const Answer answer = Import(folder_.Path("in"), "--wait 0");
        EXPECT_EQ(answer.exit, 1);
        EXPECT_TRUE(Says(answer.out, " is using it (--wait SECONDS waits longer)")) << answer.out;
        EXPECT_TRUE(Says(answer.out, "2 files: 2 refused")) << answer.out;
        EXPECT_EQ(Import(folder_.Path("in"), "--wait 0 --dry-run").exit, 0) << "it writes nothing";
        EXPECT_FALSE(fs::exists(Target("D9001.20240102o.txt")));
    }
    EXPECT_EQ(Import(folder_.Path("in"), "--wait 0").exit, 0);
    EXPECT_TRUE(fs::exists(Target("D9001.20240102o.txt")));
    EXPECT_FALSE(fs::exists(Target(".tradebill.lock")));
    folder_.Write("new/root/Users/demo/Data/Bill/.tradebill.lock", "");  // as one that was killed leaves it
    EXPECT_EQ(Import(folder_.Path("in"), "--dry-run").exit, 0);
    EXPECT_TRUE(fs::exists(Target(".tradebill.lock")));
    EXPECT_EQ(Import(folder_.Path("in")).exit, 0);
    EXPECT_FALSE(fs::exists(Target(".tradebill.lock")));
}

TEST_F(ImportCommandTest, RefusesWrongUseBeforeAnythingIsDone) {
    const std::string in = folder_.Write("in.txt", Bill("20240102"));
    const std::string start = "import " + Quoted(in) + " ";
    const std::string root = " --root " + Quoted(root_);
    EXPECT_TRUE(IsWrongUse(Import(folder_.Path("none")), "nothing at"));
    for (const std::string user : {"", "a/b", "..", ".", "a\\b", "C:", "nul"}) {
        EXPECT_TRUE(IsWrongUse(Run(start + root + " --user " + Quoted(user)), "--user")) << user;
    }
    EXPECT_TRUE(IsWrongUse(Run(start + root + " --user " + std::string(128, 'u')), "--user"));
    for (const std::string account : {"", "a/b", "a.b", "12345678901234567", "nul"}) {
        EXPECT_TRUE(IsWrongUse(Import(in, "--account " + Quoted(account)), "--account")) << account;
    }
    EXPECT_TRUE(IsWrongUse(Run(start + "--user demo --root " + Quoted("")), "--root"));
    EXPECT_TRUE(IsWrongUse(Run(start + "--user demo --root " + Quoted(in)), "--root"));
    EXPECT_TRUE(IsWrongUse(Run(start + "--user demo --root " + Quoted(folder_.Path(std::string(220, 'x')))), "--root"));
    EXPECT_EQ(Run("import --user demo" + root).exit, 2);
    EXPECT_EQ(Run(start + "--user demo").exit, 2);
    EXPECT_EQ(Run(start + root).exit, 2);
    EXPECT_TRUE(IsWrongUse(Import(in, "--json " + Quoted(folder_.Path("none/x.json"))), "--json"));
    EXPECT_FALSE(fs::exists(folder_.Path("new")));
}

}  // namespace
}  // namespace tradebill::import_command_test
