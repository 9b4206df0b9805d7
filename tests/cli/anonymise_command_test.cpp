// The command run on copies of all samples: what a report sees of the copy, and what nobody finds in it any more.
#include "cli/anonymise_command.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "requests/account_files.h"
#include "support/gbk_text.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::anonymise_command_test {
namespace {

namespace fs = std::filesystem;

std::string SampleFolder(const std::string& name) {
    return std::string(TRADEBILL_SAMPLES) + "/" + name;
}

/// All files below a folder, by their paths in it.
std::map<std::string, std::string> FilesIn(const std::string& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file())
            files[fs::relative(entry.path(), folder).generic_string()] = ReadFile(entry.path().string());
    }
    return files;
}

/// Statements by their days, which a copy keeps.
std::map<std::string, std::string> StatementsIn(const std::string& root) {
    std::map<std::string, std::string> statements;
    for (const auto& [account, places] : FindAccountFiles(root)) {
        for (const StatementPlace& place : places) statements[place.day] = ReadFile(place.path);
    }
    return statements;
}

std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) lines.emplace_back(TakeLine(text));
    return lines;
}

/// The decimals of a line with where they begin and end, but for zeros, which stay, and percentages, which are none.
std::map<std::size_t, std::string> AmountsIn(const std::string& line) {
    static const std::regex kAmount("[-+]?[0-9][0-9,]*\\.[0-9]+%?");
    std::map<std::size_t, std::string> amounts;  // by their ends
    for (std::sregex_iterator at(line.begin(), line.end(), kAmount), end; at != end; ++at) {
        const std::string text = at->str();
        const bool isAmount = text.back() != '%' && text.find_first_of("123456789") != std::string::npos;
        if (isAmount) amounts[static_cast<std::size_t>(at->position()) + text.size()] = text;
    }
    return amounts;
}

class AnonymiseCommand : public testing::Test {
protected:
    [[nodiscard]] Answer Run(const std::string& arguments) const { return RunProgram(folder_, arguments); }

    /// Copies a sample to out_ as its users would.
    [[nodiscard]] Answer Copy(const std::string& sample, const std::string& more = "--seed 5") const {
        const std::string folder = SampleFolder(sample);
        return Run("anonymise " + Quoted(folder + "/root") + " --out " + Quoted(out_) + SettingsOf(folder, folder) +
                   " " + more);
    }

    /// The files of a sample that a report takes, from the folder `from`.
    [[nodiscard]] static std::string SettingsOf(const std::string& sample, const std::string& from) {
        std::string options = " --request " + Quoted(from + "/request.ini");
        for (const std::string name : {"units", "products"}) {
            if (fs::exists(sample + "/" + name + ".ini"))
                options += " --" + name + " " + Quoted(from + "/" + name + ".ini");
        }
        return options;
    }

    [[nodiscard]] Answer RunBoth(const std::string& command, const std::string& sample, bool ofCopy,
                                 const std::string& more) const {
        const std::string folder = SampleFolder(sample);
        return Run(command + " --root " + Quoted(ofCopy ? out_ : folder + "/root") +
                   SettingsOf(folder, ofCopy ? out_ : folder) + " " + more);
    }

    CTempFolder folder_;
    std::string out_ = folder_.Path("copy");
};

class AnonymisedSample : public AnonymiseCommand, public testing::WithParamInterface<const char*> {};
class AnonymisedSmallSample : public AnonymisedSample {};

constexpr const char* kSmallSamples[] = {"bilingual",    "bilingual-new",        "client-bill", "client-bill-premium",
                                         "foreign",      "fund-class",           "fund-status", "fund-status-premium",
                                         "spaced-title", "spaced-title-premium", "tabulated",   "template-pairs",
                                         "template-row"};

std::string TestNameOf(const testing::TestParamInfo<const char*>& sample) {
    std::string name = sample.param;
    std::erase(name, '-');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Samples, AnonymisedSample, testing::ValuesIn(kSmallSamples), TestNameOf);
INSTANTIATE_TEST_SUITE_P(LargeSamples, AnonymisedSample, testing::Values("one-year"), TestNameOf);
INSTANTIATE_TEST_SUITE_P(Samples, AnonymisedSmallSample, testing::ValuesIn(kSmallSamples), TestNameOf);

TEST_P(AnonymisedSample, ShowsNothingOfTheOriginal) {
    const Answer answer = Copy(GetParam());
    ASSERT_EQ(answer.exit, 0) << answer.err;
    EXPECT_EQ(answer.err, "");
    const std::string root = SampleFolder(GetParam()) + "/root";
    const auto originals = StatementsIn(root);
    const auto copies = StatementsIn(out_);
    const std::string account = FindAccountFiles(root).begin()->first.account;
    ASSERT_EQ(copies.size(), originals.size());
    const std::regex name("(?:" + Gbk("客户名称") + "|" + Gbk("客户姓名") + ")[^:]*?(?::|" + Gbk("：") +
                          ") *([^ \r\n]+)");
    for (const auto& [day, original] : originals) {
        const std::string& copy = copies.at(day);
        EXPECT_EQ(copy.find(account), std::string::npos) << day;
        std::smatch found;
        const bool isNamed = std::regex_search(original, found, name);
        EXPECT_TRUE(!isNamed || copy.find(found[1].str()) == std::string::npos) << day;
        const auto before = LinesOf(original);
        const auto after = LinesOf(copy);
        ASSERT_EQ(before.size(), after.size()) << day;
        for (std::size_t i = 0; i < before.size(); ++i) {
            ASSERT_EQ(before[i].size(), after[i].size()) << day << ", line " << i + 1;
            const auto amounts = AmountsIn(after[i]);
            for (const auto& [end, amount] : AmountsIn(before[i])) {
                const auto same = amounts.find(end);
                EXPECT_FALSE(same != amounts.end() && same->second == amount)
                    << day << ", line " << i + 1 << ": " << amount;
            }
        }
    }
}

/// The numbers of trades that a report shows, and those of the positions that trades closed.
TEST_P(AnonymisedSample, ShowsNoNumberOfATrade) {
    ASSERT_EQ(Copy(GetParam()).exit, 0);
    const std::regex number("[ |](000[0-9]{5}|7790[0-9]{4})(?=[ |])");  // as the samples print them
    std::set<std::string> numbers;
    for (const auto& [day, text] : StatementsIn(SampleFolder(GetParam()) + "/root")) {
        for (std::sregex_iterator at(text.begin(), text.end(), number), end; at != end; ++at) numbers.insert((*at)[1]);
    }
    for (const auto& [day, text] : StatementsIn(out_)) {
        for (std::sregex_iterator at(text.begin(), text.end(), number), end; at != end; ++at) {
            EXPECT_FALSE(numbers.contains((*at)[1])) << day << ": " << (*at)[1];
        }
    }
}

TEST_P(AnonymisedSample, PassesCheckAsTheOriginalDoes) {
    ASSERT_EQ(Copy(GetParam()).exit, 0);
    const Answer original = RunBoth("check", GetParam(), false, "");
    const Answer copy = RunBoth("check", GetParam(), true, "");
    EXPECT_EQ(copy.exit, 0) << copy.out << copy.err;
    EXPECT_EQ(copy.out, original.out);
}

/// The same objects, lists of the same lengths, and whatever is no number or name as it was.
void ExpectSameShape(const nlohmann::json& one, const nlohmann::json& other, const std::string& place) {
    if (one.is_number() && other.is_number()) return;
    ASSERT_EQ(one.type(), other.type()) << place;
    ASSERT_EQ(one.size(), other.size()) << place;
    if (one.is_object()) {
        for (const auto& [key, value] : one.items()) {
            ASSERT_TRUE(other.contains(key)) << place << "." << key;
            const bool isKept = key == "CONTRACT" || key == "MATCH_VOL" || key == "BID" || key == "BILL_DATE" ||
                                key == "POSITION_VOL" || key == "HEDGE" || key == "DELIVERY";
            EXPECT_TRUE(!isKept || value == other[key]) << place << "." << key;
            ExpectSameShape(value, other[key], place + "." + key);
        }
    } else if (one.is_array()) {
        for (std::size_t i = 0; i < one.size(); ++i)
            ExpectSameShape(one[i], other[i], place + "[" + std::to_string(i) + "]");
    }
}

TEST_P(AnonymisedSmallSample, MakesAReportOfTheSameShape) {
    ASSERT_EQ(Copy(GetParam()).exit, 0);
    const auto json = [&](bool ofCopy, const std::string& name) {
        const std::string file = folder_.Path(name + ".json");
        const std::string more = "--quiet --out " + Quoted(folder_.Path(name)) + " --json " + Quoted(file);
        EXPECT_EQ(RunBoth("report", GetParam(), ofCopy, more).exit, 0) << name;
        return nlohmann::json::parse(ReadFile(file), nullptr, false);
    };
    const nlohmann::json original = json(false, "one");
    const nlohmann::json copy = json(true, "other");
    ASSERT_TRUE(original.is_object());
    for (const auto& [key, value] : original.items()) {
        if (key == "run" || key == "analysis") continue;  // hashes, rankings
        ASSERT_TRUE(copy.contains(key)) << key;
        ExpectSameShape(value, copy[key], key);
    }
}

/// Statements that none but a template of the program reads.
TEST_F(AnonymiseCommand, CopiesALayoutOfTheField) {
    const std::string bills = "root/Users/demo/Data/Bill/DTEST001.";
    const std::string original = ReadFile(SampleFolder("field/units") + "/D103988.20260529o.txt");
    folder_.Write(bills + "20260529o.txt", original);
    const Answer answer = Run("anonymise " + Quoted(folder_.Path("root")) + " --out " + Quoted(out_) + " --seed 5");
    EXPECT_EQ(answer.exit, 0) << answer.err;
    const auto copies = StatementsIn(out_);
    ASSERT_EQ(copies.size(), 1u);
    EXPECT_FALSE(Says(copies.begin()->second, "TEST001"));
    EXPECT_EQ(copies.begin()->second.size(), original.size());
    const Answer check = Run("check --root " + Quoted(out_));
    EXPECT_EQ(check.exit, 0) << check.out << check.err;
    EXPECT_EQ(check.out, Run("check --root " + Quoted(folder_.Path("root"))).out);
    folder_.Write("root/BillTemplate/units.ini", "[DEALFIELD]\n; mine\n");
    EXPECT_EQ(Run("anonymise " + Quoted(folder_.Path("root")) + " --out " + Quoted(folder_.Path("other"))).exit, 1)
        << "it wins, and reads nothing";
}

TEST_F(AnonymiseCommand, TakesAlongWhatARunNeeds) {
    ASSERT_EQ(Copy("template-pairs", "--seed 5 --shift-weeks 1").exit, 0);
    const auto files = FilesIn(out_);
    EXPECT_EQ(files.at("sys/chain.ini"), ReadFile(SampleFolder("template-pairs") + "/root/sys/chain.ini"));
    const std::string& byTemplate = files.at("BillTemplate/songta.ini");
    EXPECT_TRUE(Says(byTemplate, "BILLFORMAT_NEWDATE=20240126"));
    EXPECT_FALSE(Says(byTemplate, ";")) << "comments may say anything";
    EXPECT_TRUE(files.contains("units.ini"));
    EXPECT_TRUE(Says(files.at("request.ini"), "user=user1\n"));
    EXPECT_TRUE(Says(files.at("request.ini"), "from=2024-01-09\nto=2024-02-12\n"));
    EXPECT_FALSE(Says(files.at("request.ini"), "90010011"));
    EXPECT_EQ(files.size(), 25u + 4);
    EXPECT_EQ(RunBoth("check", "template-pairs", true, "").exit, 0);
}

TEST_F(AnonymiseCommand, RepeatsARunByItsSeed) {
    const Answer answer = Copy("tabulated", "--show-seed");
    ASSERT_EQ(answer.exit, 0) << answer.err;
    const std::size_t at = answer.out.find("\nseed ");
    ASSERT_NE(at, std::string::npos) << answer.out;
    const auto first = FilesIn(out_);
    fs::remove_all(out_);
    ASSERT_EQ(Copy("tabulated", "--seed " + std::string(Trim(answer.out.substr(at + 6)))).exit, 0);
    EXPECT_EQ(FilesIn(out_), first);
    fs::remove_all(out_);
    ASSERT_EQ(Copy("tabulated", "--seed 1").exit, 0);
    EXPECT_NE(FilesIn(out_), first);
}

TEST_F(AnonymiseCommand, LeavesTheRootAsItIs) {
    const auto before = FilesIn(SampleFolder("client-bill"));
    ASSERT_EQ(Copy("client-bill").exit, 0);
    EXPECT_EQ(FilesIn(SampleFolder("client-bill")), before);
}

TEST_F(AnonymiseCommand, CopiesAllAccountsAtOnce) {
    fs::create_directories(folder_.Path("root/Users"));
    for (const std::string sample : {"foreign", "tabulated"}) {
        fs::copy(SampleFolder(sample) + "/root/Users/demo", folder_.Path("root/Users/" + sample),
                 fs::copy_options::recursive);
    }
    const Answer answer = Run("anonymise " + Quoted(folder_.Path("root")) + " --out " + Quoted(out_));
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(answer.out.starts_with("50 statements of 2 accounts: ")) << answer.out;
    const AccountFiles files = FindAccountFiles(out_);
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(files.begin()->first.user, "user1");
    EXPECT_TRUE(files.begin()->first.isForeign);
    EXPECT_EQ(files.rbegin()->first.user, "user2");
    EXPECT_NE(files.rbegin()->first.account, "90010004");
    EXPECT_EQ(files.rbegin()->first.account.size(), 8u);
}

TEST_F(AnonymiseCommand, LeavesOutDamagedStatementsWithWords) {
    fs::copy(SampleFolder("fund-status") + "/root", folder_.Path("root"), fs::copy_options::recursive);
    const std::string bills = "root/Users/demo/Data/Bill/D90010002.";
    const std::string whole = ReadFile(folder_.Path(bills + "20240104o.txt"));
    folder_.Write(bills + "20240103o.txt", whole.substr(0, whole.find(Gbk("平仓明细")) + 40));
    folder_.Write(bills + "20240105o.txt", "rubbish\r\n");
    folder_.Write(bills + "20240108o.txt", "");
    const Answer answer = Run("anonymise " + Quoted(folder_.Path("root")) + " --out " + Quoted(out_));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(answer.out.starts_with("22 statements of 1 account: ")) << answer.out;
    for (const std::string day : {"20240103", "20240105", "20240108"}) {
        EXPECT_TRUE(Says(answer.err, "D90010002." + day + "o.txt: ")) << answer.err;
    }
    EXPECT_EQ(StatementsIn(out_).size(), 22u);
}

TEST_F(AnonymiseCommand, WritesNothingIfNothingCanBeCopied) {
    folder_.Write("root/Users/demo/Data/Bill/D1.20240103o.txt", "rubbish\r\n");
    const Answer answer = Run("anonymise " + Quoted(folder_.Path("root")) + " --out " + Quoted(out_));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_TRUE(Says(answer.err, "nothing was written")) << answer.err;
    EXPECT_FALSE(fs::exists(out_));
}

TEST_F(AnonymiseCommand, RefusesWrongArguments) {
    const std::string root = SampleFolder("tabulated") + "/root";
    const std::string start = "anonymise " + Quoted(root) + " --out ";
    const std::string good = start + Quoted(out_);
    folder_.Write("full/file.txt", "x");
    fs::create_directories(folder_.Path("empty/Users"));
    EXPECT_TRUE(IsWrongUse(Run(start + Quoted(folder_.Path("full"))), "--out"));
    EXPECT_TRUE(IsWrongUse(Run(start + Quoted(folder_.Path("full/file.txt"))), "--out"));
    EXPECT_TRUE(IsWrongUse(Run(start + Quoted(folder_.Path("none/copy"))), "--out"));
    EXPECT_TRUE(IsWrongUse(Run(start + Quoted(folder_.Path(std::string(210, 'x')))), "--out"));
    EXPECT_TRUE(IsWrongUse(Run(start + Quoted("")), "--out"));
    EXPECT_TRUE(IsWrongUse(Run(start + Quoted(root)), "--out"));
    EXPECT_TRUE(IsWrongUse(Run(start + Quoted(root + "/copy")), "--out"));
    EXPECT_TRUE(IsWrongUse(Run(start + Quoted(root + "/Users/../copy")), "--out"));
    EXPECT_TRUE(IsWrongUse(Run("anonymise " + Quoted(folder_.Path("none")) + " --out " + Quoted(out_)), "ROOT"));
    EXPECT_TRUE(IsWrongUse(Run("anonymise " + Quoted(folder_.Path("empty")) + " --out " + Quoted(out_)), "ROOT"));
    for (const char* const seed : {"''", "x", "-1", "1.5", "18446744073709551616"}) {
        EXPECT_TRUE(IsWrongUse(Run(good + " --seed=" + seed), "--seed")) << seed;
    }
    for (const char* const weeks : {"521", "-521", "x"}) {
        EXPECT_TRUE(IsWrongUse(Run(good + " --shift-weeks=" + weeks), "--shift-weeks")) << weeks;
    }
    EXPECT_TRUE(IsWrongUse(Run(good + " --account 1"), "ROOT"));
    EXPECT_TRUE(IsWrongUse(Run(good + " --kind strange"), "--kind"));
    EXPECT_TRUE(IsWrongUse(Run(good + " --format 99"), "--format"));
    EXPECT_TRUE(IsWrongUse(Run(good + " --template ../x --format 1"), "--template"));
    EXPECT_TRUE(IsWrongUse(Run(good + " --template none --format 1"), "none.ini"));
    EXPECT_TRUE(IsWrongUse(Run(good + " --template elevenbytes --format 1"), "--template"));
    EXPECT_TRUE(IsWrongUse(Run(good + " --units " + Quoted(folder_.Path("none.ini"))), "none.ini"));
    EXPECT_FALSE(fs::exists(out_));
}

TEST_F(AnonymiseCommand, CopiesIntoAnEmptyFolder) {
    fs::create_directories(out_);
    EXPECT_EQ(Copy("tabulated").exit, 0);
}

TEST_F(AnonymiseCommand, SaysInItsHelpWhatItDoesNotHide) {
    EXPECT_TRUE(Says(Run("anonymise --help").out, "can find the factor"));
}

}  // namespace
}  // namespace tradebill::anonymise_command_test
