// The program's `batch`, as a clearing desk meets it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "batch/batch_state.h"
#include "batch/results_file.h"
#include "batch/shard.h"
#include "cli/batch_fixture.h"
#include "platform/lock_file.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::batch_program_test {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class BatchProgram : public BatchFixture {
protected:
    BatchProgram() {
        Put("90010001");
        Put("90010002");
        PutForeign("60010001");
        Put("90010001", 2, "wang");
    }

    /// Has a statement name another account than its file does.
    void Spoil(const std::string& account) const {
        const std::string path = Bills() + "/D" + account + ".20240103o.txt";
        std::string text = ReadFile(path);
        for (std::size_t at = text.find(account); at != std::string::npos; at = text.find(account)) {
            text.replace(at, account.size(), "90019999");
        }
        WriteFile(path, text);
    }
};

TEST_F(BatchProgram, MakesAFolderForEachAccountThatItDiscovers) {
    const Answer answer = Batch("--discover --jobs 2");
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(answer.out.starts_with("4 accounts: 4 well, 0 with findings, 0 failed\n")) << answer.out;
    EXPECT_EQ(Ends(), (Names{"demo/60010001 foreign ok", "demo/90010001 ok", "demo/90010002 ok", "wang/90010001 ok"}));
    EXPECT_EQ(ResultOf("90010001").statements, 2);
    EXPECT_EQ(ResultOf("90010001").firstDay, "20240102");
    EXPECT_EQ(ResultOf("90010001").lastDay, "20240103");
    EXPECT_TRUE(fs::exists(out_ + "/accounts/foreign/demo/60010001/TradeBill.html"));
    EXPECT_TRUE(fs::exists(out_ + "/accounts/domestic/wang/90010001/report.json"));
    EXPECT_FALSE(fs::exists(out_ + "/.work"));
    EXPECT_FALSE(fs::exists(out_ + "/batch.lock"));
}

TEST_F(BatchProgram, MakesWhatReportMakes) {
    ASSERT_EQ(Batch("--discover").exit, 0);
    const std::string alone = folder_.Path("alone");
    const Answer report =
        RunProgram(folder_, "report --root " + Quoted(root_) + " --user demo --account 90010002 --out " +
                                Quoted(alone) + " --json " + Quoted(folder_.Path("alone.json")));
    ASSERT_EQ(report.exit, 0) << report.err;
    EXPECT_EQ(ReadFile(FolderOfAccount("90010002") + "/TradeBill.html"), ReadFile(alone + "/TradeBill.html"));
    EXPECT_EQ(ReadFile(FolderOfAccount("90010002") + "/report.json"), ReadFile(folder_.Path("alone.json")));
    for (const auto& entry : fs::directory_iterator(alone + "/Image_files")) {
        const std::string name = entry.path().filename().string();
        EXPECT_EQ(ReadFile(FolderOfAccount("90010002") + "/Image_files/" + name), ReadFile(entry.path().string()))
            << name;
    }
}

TEST_F(BatchProgram, TellsTheFiguresThatTheJsonHas) {
    ASSERT_EQ(Batch("--discover --user demo --kind domestic").exit, 0);
    const AccountResult result = ResultOf("90010002");
    const auto json = nlohmann::json::parse(ReadFile(FolderOfAccount("90010002") + "/report.json"));
    EXPECT_EQ(result.equity, json["analysis"]["days"].back()["equity"].get<double>());
    double pl = 0;
    for (const auto& day : json["analysis"]["days"]) pl += day["pl"].get<double>();
    EXPECT_NEAR(*result.pl, pl, 1e-6);
    EXPECT_EQ(result.marginUse, json["analysis"]["margin"]["max"].get<double>());
    EXPECT_EQ(result.trades, static_cast<std::int64_t>(json["matches"].size()));
    EXPECT_GT(result.seconds, 0);
    EXPECT_GT(result.peakMemory, 1'000'000);
}

TEST_F(BatchProgram, MakesWhatIsAskedAndNothingElse) {
    ASSERT_EQ(Batch("--discover --user wang --make json,csv").exit, 0);
    const std::string folder = out_ + "/accounts/domestic/wang/90010001";
    EXPECT_TRUE(fs::exists(folder + "/report.json"));
    EXPECT_TRUE(fs::exists(folder + "/csv/trades.csv"));
    EXPECT_FALSE(fs::exists(folder + "/TradeBill.html"));
    EXPECT_FALSE(fs::exists(folder + "/explore.html"));
}

TEST_F(BatchProgram, TakesAManifestWhoseEmptyCellsTakeTheCommandLines) {
    const Answer answer = Batch(PutManifest("\xEF\xBB\xBFUser,ACCOUNT,to,kind\r\n"
                                            "demo,90010001,2024-01-02,\r\n"
                                            "wang,90010001,,\r\n"
                                            "demo,60010001,,foreign\r\n") +
                                "--to 2024-01-03 --from 2024-01-02");
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_EQ(Ends(), (Names{"demo/60010001 foreign ok", "demo/90010001 ok", "wang/90010001 ok"}));
    EXPECT_EQ(ResultOf("90010001").statements, 1);
    const ResultsByAccount results = Results();
    EXPECT_EQ(results.at({.user = "wang", .account = "90010001"}).statements, 2);
}

TEST_F(BatchProgram, TakesLinesOfJsonAndFindsWhatTheyLeaveOpen) {
    const Answer answer = Batch(PutManifest("{\"user\":\"wang\"}\n{\"account\":\"60010001\"}\n"));
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_EQ(Ends(), (Names{"demo/60010001 foreign ok", "wang/90010001 ok"}));
}

TEST_F(BatchProgram, FindsTheKindThatARowDoesntTell) {
    const Answer answer = Batch(PutManifest("user,account,from,to\ndemo,60010001,2024-01-02,2024-01-03\n"));
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_EQ(Ends(), (Names{"demo/60010001 foreign ok"}));
    EXPECT_TRUE(IsWrongUse(Batch(PutManifest("user,account,kind\ndemo,60010001,Foreign\n")), "line 2: --kind"));
}

TEST_F(BatchProgram, FindsTodaysStatementUnderTheNameOfAnUnfinishedDay) {
    fs::rename(Bills() + "/D90010001.20240103o.txt", Bills() + "/D90010001.20240103.txt");
    const std::string manifest = PutManifest("user,account\ndemo,90010001\n");
    ASSERT_LE(Batch(manifest + "--today 2024-01-03").exit, 3);
    EXPECT_EQ(ResultOf("90010001").statements, 2);
    ASSERT_LE(Batch(manifest + "--today 2024-01-04").exit, 3);
    EXPECT_EQ(ResultOf("90010001").statements, 1);
}

/// Whatever is found of it, and whatever is wrong with its row, an account stays with its task.
TEST_F(BatchProgram, LeavesAnAccountWithItsTaskWhateverIsWrongWithIt) {
    const auto task = [this](const std::string& row, int index) {
        const Answer answer = Batch(PutManifest("user,account,from\n" + row + "demo,90010001,\ndemo,90010002,\n") +
                                    "--shard " + std::to_string(index) + "/3");
        EXPECT_LE(answer.exit, 1) << answer.err;
        const ResultsByAccount results = Results("results-" + std::to_string(index) + "-of-3.jsonl");
        return std::ranges::any_of(results, [](const auto& result) { return result.first.account == "60010001"; });
    };
    int found = 0;
    for (int index = 1; index <= 3; ++index) {
        const bool isIn = task("demo,60010001,2024-13-01\n", index);
        EXPECT_EQ(task("demo,60010001,\n", index), isIn);
        found += isIn ? 1 : 0;
    }
    EXPECT_EQ(found, 1);
}

TEST_F(BatchProgram, RefusesWhatIsWrongForAllOfThemAndKeepsWhatIsThere) {
    ASSERT_EQ(Batch("--discover").exit, 0);
    const std::string results = ReadFile(out_ + "/results.jsonl");
    for (const char* const wrong : {"--units nofile", "--format 99", "--template nobody", "--products nofile",
                                    "--live nofile", "--dpi 5000", "--max-statement much", "--kind x", "--memory 1M"}) {
        EXPECT_EQ(Batch(std::string("--discover --resume ") + wrong).exit, 2) << wrong;
        EXPECT_EQ(ReadFile(out_ + "/results.jsonl"), results) << wrong;
    }
}

TEST_F(BatchProgram, LeavesToItsRowsWhatTheyMaySayThemselves) {
    const std::string manifest = PutManifest("user,account,format,template\nwang,90010001,1,\n");
    EXPECT_EQ(Batch(manifest + "--format 99").exit, 0) << "a number of a template that a row may name";
    EXPECT_EQ(Batch(manifest + "--format x").exit, 2);
}

TEST_F(BatchProgram, KnowsTheSameOptionsInOtherWords) {
    ASSERT_EQ(Batch("--discover --make page,json").exit, 0);
    EXPECT_TRUE(Says(Batch("--discover --resume --make json,page --format auto").out, "kept from before  4\n"));
}

TEST_F(BatchProgram, JoinsTasksOfOneDayAlone) {
    const auto merge = [this](const std::string& day) {
        return RunProgram(folder_, "batch-merge --out " + Quoted(out_) + " --today " + day);
    };
    for (const char* const shard : {"1/2", "2/2"}) {
        ASSERT_EQ(Batch(std::string("--discover --today 2024-06-30 --shard ") + shard).exit, 0);
    }
    EXPECT_EQ(merge("2024-6-30").exit, 0);
    const Answer other = merge("2024-07-01");
    EXPECT_EQ(other.exit, 75);
    EXPECT_TRUE(Says(other.err, "the task 1-of-2 hasn't begun: its results are of 2024-06-30")) << other.err;
}

TEST_F(BatchProgram, RefusesAManifestBeforeAnythingIsDone) {
    EXPECT_TRUE(IsWrongUse(Batch(PutManifest("user,acount\ndemo,1\n")), "found \"acount\""));
    EXPECT_TRUE(IsWrongUse(Batch(PutManifest("user,account\ndemo,\n")), "line 2: --account is missing"));
    EXPECT_TRUE(IsWrongUse(Batch(PutManifest("user,account\n../demo,90010001\n")), "line 2: user"));
    EXPECT_TRUE(IsWrongUse(Batch(PutManifest("user,account\n")), "found none in"));
    EXPECT_TRUE(IsWrongUse(Batch("--manifest nowhere"), "--manifest"));
    EXPECT_TRUE(IsWrongUse(Batch(""), "--discover"));
    EXPECT_TRUE(IsWrongUse(Batch("--discover --manifest x"), "found both"));
    EXPECT_FALSE(fs::exists(out_));
}

TEST_F(BatchProgram, NamesAnAccountThatAManifestHasTwice) {
    const Answer answer = Batch(PutManifest("user,account\ndemo,90010001\nwang,90010001\ndemo,90010001\n"));
    EXPECT_EQ(answer.exit, 2);
    EXPECT_EQ(answer.err,
              "tradebill: --manifest: line 4: the account --user demo --account 90010001 stands in line 2 already\n");
}

TEST_F(BatchProgram, GoesOnBehindAccountsThatFailAndNamesThem) {
    const Answer answer =
        Batch(PutManifest("user,account,from,to\n"
                          "demo,90010001,2024-01-02,2024-01-03\n"
                          "demo,70000000,2024-01-02,2024-01-03\n"
                          "nobody,1,2024-01-02,2024-01-03\n"
                          "demo,90010002,2024-01-09,2024-01-03\n"));
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(Ends(), (Names{"demo/70000000 failed", "demo/90010001 ok", "demo/90010002 failed", "nobody/1 failed"}));
    EXPECT_TRUE(Says(answer.err,
                     "tradebill: --user demo --account 70000000: failed: no statement was found in the "
                     "whole range\n"))
        << answer.err;
    EXPECT_TRUE(Says(answer.err, "tradebill: --user nobody --account 1: failed: --user: expected the folder"))
        << answer.err;
    EXPECT_EQ(ResultOf("90010002").reason,
              "--from: expected a day that isn't behind --to, \"2024-01-03\", found \"2024-01-09\"");
    EXPECT_FALSE(fs::exists(FolderOfAccount("70000000")));
}

TEST_F(BatchProgram, ExitsWithThreeWhereSomethingIsWrongInWhatWasRead) {
    Spoil("90010001");
    const Answer answer = Batch("--discover --user demo");
    EXPECT_EQ(answer.exit, 3) << answer.err;
    const AccountResult result = ResultOf("90010001");
    EXPECT_EQ(result.status, AccountStatus::Findings);
    EXPECT_GT(result.errors + result.warnings, 0);
    EXPECT_FALSE(result.worst.empty());
    EXPECT_EQ(ResultOf("90010002").status, AccountStatus::Ok);
}

TEST_F(BatchProgram, KeepsWhatWouldComeOutTheSame) {
    ASSERT_EQ(Batch("--discover").exit, 0);
    const ResultsByAccount before = Results();
    const Answer answer = Batch("--discover --resume");
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(Says(answer.out, "  kept from before  4\n")) << answer.out;
    EXPECT_EQ(Results(), before);
}

TEST_F(BatchProgram, MakesAnewWhatChanged) {
    ASSERT_EQ(Batch("--discover").exit, 0);
    const ResultsByAccount before = Results();
    Spoil("90010001");
    fs::remove(FolderOfAccount("90010002") + "/Image_files/RiskFigure.jpg");
    const Answer answer = Batch("--discover --resume");
    EXPECT_EQ(answer.exit, 3) << answer.err;
    EXPECT_TRUE(Says(answer.out, "  kept from before  2\n")) << answer.out;
    EXPECT_EQ(Lines(), 4);
    EXPECT_EQ(ResultOf("90010001").status, AccountStatus::Findings);
    EXPECT_EQ(ResultOf("90010002").outputs, before.at({.user = "demo", .account = "90010002"}).outputs);
    EXPECT_TRUE(fs::exists(FolderOfAccount("90010002") + "/Image_files/RiskFigure.jpg"));
}

TEST_F(BatchProgram, MakesAllAnewForOtherOptionsAndWithoutResume) {
    ASSERT_EQ(Batch("--discover").exit, 0);
    EXPECT_FALSE(Says(Batch("--discover --resume --dpi 120").out, "kept"));
    EXPECT_FALSE(Says(Batch("--discover --dpi 120").out, "kept"));
    EXPECT_TRUE(Says(Batch("--discover --resume --dpi 120").out, "kept from before  4\n"));
    EXPECT_EQ(Lines(), 4);
}

TEST_F(BatchProgram, GoesOnBehindALineThatWasCut) {
    ASSERT_EQ(Batch("--discover").exit, 0);
    const std::string text = ReadFile(out_ + "/results.jsonl");
    WriteFile(out_ + "/results.jsonl", text.substr(0, text.size() - 100));
    const Answer answer = Batch("--discover --resume");
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(Says(answer.out, "kept from before  3\n")) << answer.out;
    EXPECT_EQ(Lines(), 4);
    EXPECT_EQ(Results().size(), 4U);
}

TEST_F(BatchProgram, HasOneTodayForAllAndKeepsItWhenItGoesOn) {
    ASSERT_EQ(Batch("--discover --today 2024-06-30").exit, 0);
    EXPECT_EQ(LoadBatchState(out_ + "/batch.json").state->today, "2024-06-30");
    EXPECT_TRUE(Says(Batch("--discover --resume").out, "kept from before  4\n"));
    EXPECT_EQ(LoadBatchState(out_ + "/batch.json").state->today, "2024-06-30");
    EXPECT_FALSE(Says(Batch("--discover --resume --today 2024-07-01").out, "kept"));
}

TEST_F(BatchProgram, IsRefusedWhileAnotherIsAtWorkThere) {
    fs::create_directories(out_);
    {
        const CLockFile lock(out_ + "/batch.lock", CLockFile::Which::MadeIfMissing);
        ASSERT_TRUE(lock.IsHeld());
        const Answer answer = Batch("--discover");
        EXPECT_EQ(answer.exit, 75);
        EXPECT_TRUE(Says(answer.err, "another batch is at work in")) << answer.err;
        EXPECT_EQ(Batch("--discover --shard 1/2").exit, 75);  // cut otherwise
        EXPECT_EQ(NamesInOut(), (Names{"batch.lock"}));
    }
    {
        const CLockFile lock(out_ + "/batch-1-of-2.lock", CLockFile::Which::MadeIfMissing);
        EXPECT_EQ(Batch("--discover --shard 1/2").exit, 75);
        EXPECT_EQ(Batch("--discover --shard 1/3").exit, 75);
        EXPECT_EQ(Batch("--discover").exit, 75);
        EXPECT_EQ(Batch("--discover --shard 2/2").exit, 0);
    }
    std::ofstream(out_ + "/batch.lock") << "whoever crashed";
    EXPECT_EQ(Batch("--discover").exit, 0);
}

TEST_F(BatchProgram, CutIntoShardsMakesEachAccountOnce) {
    ASSERT_EQ(Batch("--discover").exit, 0);
    const ResultsByAccount whole = Results();
    fs::remove_all(out_);
    for (const char* const shard : {"1/3", "2/3", "3/3"}) {
        const Answer answer = Batch(std::string("--discover --shard ") + shard);
        EXPECT_EQ(answer.exit, 0) << answer.err;
    }
    const Answer answer = RunProgram(folder_, "batch-merge --out " + Quoted(out_));
    EXPECT_EQ(answer.exit, 0) << answer.err;
    const ResultsByAccount merged = Results();
    ASSERT_EQ(merged.size(), whole.size());
    for (const auto& [key, result] : whole) {
        const AccountResult& other = merged.at(key);
        EXPECT_EQ(other.outputs, result.outputs) << key.account;
        EXPECT_EQ(other.equity, result.equity);
    }
    std::size_t lines = 0;
    for (const char* const name : {"results-1-of-3.jsonl", "results-2-of-3.jsonl", "results-3-of-3.jsonl"}) {
        lines += Results(name).size();
    }
    EXPECT_EQ(lines, whole.size());
}

TEST_F(BatchProgram, MergesNothingSilentlyThatIsntThere) {
    const auto merge = [this] { return RunProgram(folder_, "batch-merge --out " + Quoted(out_)); };
    fs::create_directories(out_);
    EXPECT_TRUE(IsWrongUse(merge(), "found none"));
    ASSERT_EQ(Batch("--discover --shard 1/2").exit, 0);
    const Answer half = merge();
    EXPECT_EQ(half.exit, 75);
    EXPECT_TRUE(Says(half.err, "the task 2-of-2 hasn't begun")) << half.err;
    ASSERT_EQ(Batch("--discover --shard 2/2").exit, 0);
    EXPECT_EQ(merge().exit, 0);
    WriteFile(out_ + "/results-2-of-2.jsonl", "");
    const Answer lacking = merge();
    EXPECT_EQ(lacking.exit, 75);
    EXPECT_TRUE(Says(lacking.err, "the task 2-of-2 lacks ")) << lacking.err;
    ASSERT_EQ(Batch("--discover --shard 1/3").exit, 0);
    const Answer recut = merge();
    EXPECT_EQ(recut.exit, 75) << "the results of the batch that was cut in two are gone";
    EXPECT_TRUE(Says(recut.err, "the task 2-of-3 hasn't begun")) << recut.err;
    WriteFile(out_ + "/results-1-of-2.jsonl", "");
    EXPECT_TRUE(IsWrongUse(merge(), "found those of 2 and of 3 tasks"));
    ASSERT_EQ(Batch("--discover").exit, 0);
    EXPECT_TRUE(IsWrongUse(merge(), "found none")) << "a whole batch is newer than its parts";
}

TEST_F(BatchProgram, NamesEachAccountThatTakesTooLong) {
    const Answer answer = Batch("--discover --user wang --timeout 0.001");
    EXPECT_EQ(answer.exit, 1);
    EXPECT_EQ(Ends(), (Names{"wang/90010001 timeout"}));
    EXPECT_TRUE(Says(answer.err, "--user wang --account 90010001: timeout: it took longer than it may (--timeout)\n"))
        << answer.err;
}

TEST_F(BatchProgram, RefusesOptionsThatMeanNothing) {
    EXPECT_TRUE(IsWrongUse(Batch("--discover --shard 3/2"), "--shard"));
    EXPECT_TRUE(IsWrongUse(Batch("--discover --shard auto"), "found neither"));
    EXPECT_TRUE(IsWrongUse(Batch("--discover --make pages"), "found \"pages\""));
    EXPECT_TRUE(IsWrongUse(Batch("--discover --memory much"), "found \"much\""));
    EXPECT_TRUE(IsWrongUse(Batch("--discover --timeout -3"), "expected a number above 0, found \"-3\""));
    EXPECT_TRUE(IsWrongUse(Batch("--discover --timeout 0"), "found \"0\""));
    EXPECT_TRUE(IsWrongUse(Batch("--discover --stop-after -1"), "expected a number from 0, found \"-1\""));
    EXPECT_TRUE(IsWrongUse(Batch("--discover --risk-limit most"), "found \"most\""));
    EXPECT_TRUE(IsWrongUse(Batch("--discover --user nobody"), "found none"));
    EXPECT_FALSE(fs::exists(out_));
}

}  // namespace
}  // namespace tradebill::batch_program_test
