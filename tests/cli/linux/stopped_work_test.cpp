// Ctrl-C, and what else asks a command to stop.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <string>

#include "cli/awaited_work.h"
#include "cli/linux/started_program.h"
#include "cli/program_fixture.h"

namespace tradebill::linux_stopped_work_test {
namespace {

class StoppedWork : public Program, protected StartedProgram {
protected:
    StoppedWork() { EXPECT_EQ(::mkfifo(fifo_.c_str(), 0600), 0); }

    /// Starts a command on the sample that reads its request from a pipe, and waits for it there.
    void StartWaiting(const std::string& command) {
        const std::string redirected =
            " <" + Quoted(fifo_) + " >" + Quoted(folder_.Path("out1")) + " 2>" + Quoted(folder_.Path("err1"));
        StartShell("exec " + Quoted(TRADEBILL_PROGRAM) + " " + command + " --root " + Quoted(root_) + " --request -" +
                   redirected);
        pipe_.open(fifo_);
        ASSERT_TRUE(Becomes([this] { return Catches(SIGTERM); }));  // shells don't
    }
    /// Lets it go on with its request.
    void Continue() {
        pipe_ << ReadFile(sample_ + "/request.ini");
        pipe_.close();
    }
    [[nodiscard]] std::string Messages() const { return ReadFile(folder_.Path("err1")); }
    /// All that lies in the test's folder, by its name and content.
    [[nodiscard]] std::string Everything() const {
        EXPECT_EQ(RunShell("cd " + Quoted(sample_) + " && find . -type f | sort | xargs sha256sum >" +
                           Quoted(folder_.Path("all"))),
                  0);
        return ReadFile(folder_.Path("all"));
    }

    std::string fifo_ = folder_.Path("fifo");
    std::ofstream pipe_;
};

TEST_F(StoppedWork, LeavesThePageOfBeforeAndSaysSo) {
    ASSERT_EQ(Run(Report("--to 2024-01-10")).exit, 0);
    const std::string before = Everything();
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        StartWaiting("report --standalone " + Quoted(sample_ + "/one.html") + " --json " +
                     Quoted(sample_ + "/one.json"));
        ::kill(process_, signal);
        Continue();
        EXPECT_EQ(End(), 75) << signal;
        EXPECT_TRUE(Says(Messages(), "tradebill: stopped: nothing is written\n")) << Messages();
        EXPECT_EQ(Everything(), before);
    }
}

TEST_F(StoppedWork, LeavesNothingOfWhatOtherCommandsWrite) {
    const std::string before = Everything();
    const std::string new_ = Quoted(sample_ + "/new");
    for (const std::string& command : {"export --csv " + new_, "explore -o " + new_, "chart equity -o " + new_,
                                       std::string("check"), "check --json " + new_}) {
        StartWaiting(command);
        ::kill(process_, SIGINT);
        Continue();
        EXPECT_EQ(End(), 75) << command;
        EXPECT_TRUE(Says(Messages(), "tradebill: stopped: ")) << command << "\n" << Messages();
        EXPECT_EQ(Everything(), before) << command;
    }
}

TEST_F(StoppedWork, EndsAtOnceAtTheSecondSignal) {
    StartWaiting("report");
    ::kill(process_, SIGINT);
    // Two that are pending at once count as one.
    const std::string status = "/proc/" + std::to_string(process_) + "/status";
    ASSERT_TRUE(Becomes([&] { return Says(ReadFile(status), "ShdPnd:\t0000000000000000\n"); }));
    ::kill(process_, SIGINT);
    EXPECT_EQ(End(), 75);
}

TEST_F(StoppedWork, GoesOnWhereTheSignalIsIgnored) {
    const std::string command = "trap '' HUP; exec " + Quoted(TRADEBILL_PROGRAM) + " " + "report --root " +
                                Quoted(root_) + " --request - <" + Quoted(fifo_) + " >" + Quoted(folder_.Path("out1")) +
                                " 2>" + Quoted(folder_.Path("err1"));
    StartShell(command);
    pipe_.open(fifo_);
    ASSERT_TRUE(Becomes([this] { return Catches(SIGTERM); }));
    ::kill(process_, SIGHUP);
    Continue();
    EXPECT_EQ(End(), 0) << Messages();
}

TEST(AwaitedWork, HearsTheWishAndSaysWhatThereIsNot) {
    const auto whyStopped = [](const std::function<void(CAwaitedWork&)>& go) -> std::string {
        CAwaitedWork work(true);
        go(work);  // nobody has asked yet
        ::kill(::getpid(), SIGTERM);
        while (!work.WantsStop()) ::usleep(1000);
        try {
            go(work);
        } catch (const CStoppedWork& stopped) {
            return stopped.what();
        }
        return "it goes on";
    };
    EXPECT_EQ(whyStopped([](CAwaitedWork& work) { work.BeginStep("files", 4, 12); }), "3 of 12 files are done");
    EXPECT_EQ(whyStopped([](CAwaitedWork& work) { work.BeginFile("one.json"); }), "one.json isn't written");
}

}  // namespace
}  // namespace tradebill::linux_stopped_work_test
