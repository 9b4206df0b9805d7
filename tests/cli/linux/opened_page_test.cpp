// What a desktop is asked to show.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "cli/program_fixture.h"

namespace tradebill::linux_opened_page_test {
namespace {

class OpenedPage : public Program {
protected:
    /// Runs the program where nothing but the test's own commands is found.
    [[nodiscard]] int RunOn(const std::string& commands, const std::string& arguments) const {
        return RunShell("PATH=" + Quoted(commands) + " " + Quoted(TRADEBILL_PROGRAM) + " " + arguments + " 2>" +
                        Quoted(folder_.Path("err")) + " >" + Quoted(folder_.Path("out")));
    }
    /// A folder of commands with the one that shows a page: it writes down which.
    [[nodiscard]] std::string Desktop() const {
        const std::string command = folder_.Write(
            "bin/xdg-open", "#!/bin/sh\nprintf %s \"$1\" >" + Quoted(folder_.Path("part")) + " && /bin/mv " +
                                Quoted(folder_.Path("part")) + " " + Quoted(folder_.Path("opened")) + "\n");
        fs::permissions(command, fs::perms::owner_all);
        return folder_.Path("bin");
    }
    /// What was to be shown, which the program doesn't wait for; empty if that takes too long.
    [[nodiscard]] std::string Opened() const {
        const std::string path = folder_.Path("opened");
        for (int i = 0; i < 600 && !fs::exists(path); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(50));
        const std::string opened = ReadFile(path);
        fs::remove(path);
        return opened;
    }
};

TEST_F(OpenedPage, IsTheReportsOrItsOneFile) {
    const std::string desktop = Desktop();
    const std::string file = folder_.Path("page.html");
    EXPECT_EQ(RunOn(desktop, Report("--quiet --open")), 0);
    EXPECT_EQ(Opened(), PageFile());
    EXPECT_EQ(RunOn(desktop, Report("--quiet --open --standalone " + Quoted(file))), 0);
    EXPECT_EQ(Opened(), file);
    EXPECT_EQ(RunOn(desktop, Report("--quiet --open --standalone -")), 0);
    EXPECT_EQ(Opened(), PageFile());
    EXPECT_EQ(ReadFile(folder_.Path("err")), "");
}

TEST_F(OpenedPage, IsAFailureWithoutADesktop) {
    fs::create_directory(folder_.Path("empty"));
    EXPECT_EQ(RunOn(folder_.Path("empty"), Report("--quiet --open")), 1);
    EXPECT_EQ(ReadFile(folder_.Path("err")), "tradebill: --open: this desktop has no xdg-open to show the page with\n");
    EXPECT_TRUE(fs::exists(PageFile()));
}

TEST_F(OpenedPage, IsNoneThatIsntWhole) {
    const std::string desktop = Desktop();
    EXPECT_EQ(RunOn(desktop, Report("--quiet --open --json /dev/full")), 1);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_FALSE(fs::exists(folder_.Path("opened")));
}

}  // namespace
}  // namespace tradebill::linux_opened_page_test
