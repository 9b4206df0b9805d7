// What the program shows on a terminal.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <functional>
#include <string>

#include "cli/program_fixture.h"

namespace tradebill::linux_terminal_test {
namespace {

/// What the program shows on a terminal, by whose name `arguments` tells how to call it.
std::string ShownOnTerminal(const std::function<std::string(const std::string& terminal)>& arguments) {
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || ::grantpt(terminal) != 0 || ::unlockpt(terminal) != 0) return "no terminal";
    const std::string name = ::ptsname(terminal);
    const int kept = ::open(name.c_str(), O_RDWR | O_NOCTTY);  // so that what was shown outlives the program
    const int status = RunShell(Quoted(TRADEBILL_PROGRAM) + " " + arguments(name) + " </dev/null");
    std::array<char, 4096> buffer{};
    std::string shown;
    ::fcntl(terminal, F_SETFL, O_NONBLOCK);
    for (ssize_t size = 0; (size = ::read(terminal, buffer.data(), buffer.size())) > 0;) {
        shown.append(buffer.data(), static_cast<std::size_t>(size));
    }
    ::close(kept);
    ::close(terminal);
    return status == 0 ? shown : "failed: " + shown;
}

/// What it shows on one that takes its standard error; its output goes to `out`.
std::string ShownOnTerminal(const std::string& arguments, const std::string& out) {
    return ShownOnTerminal(
        [&](const std::string& terminal) { return arguments + " >" + Quoted(out) + " 2>" + terminal; });
}

TEST_F(Program, ShowsItsProgressOnATerminal) {
    const std::string shown = ShownOnTerminal(Report(), folder_.Path("out"));
    EXPECT_TRUE(Says(shown, "day 1 of 35")) << shown;
    EXPECT_TRUE(Says(shown, "day 35 of 35")) << shown;
    EXPECT_TRUE(Says(shown, "page")) << shown;
    EXPECT_TRUE(shown.ends_with("\r\x1B[K")) << shown;
    EXPECT_FALSE(Says(ReadFile(folder_.Path("out")), "\r"));
}

// A terminal ends the lines that it is sent in its own way.
TEST_F(Program, ShowsTheBytesOfAPictureOnATerminal) {
    const std::string chart =
        "chart equity --size 1x1 --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini") + " -o ";
    const std::string shown = ShownOnTerminal([&](const std::string& terminal) { return chart + terminal; });
    EXPECT_TRUE(shown.starts_with("\\x89PNG\\r\r\n\\u001a\r\n\\u0000")) << shown;
    EXPECT_FALSE(Says(shown, "\x1A"));
}

TEST_F(Program, ShowsNoProgressOnATerminalIfQuiet) {
    EXPECT_EQ(ShownOnTerminal(Report("--quiet"), folder_.Path("out")), "");
}

}  // namespace
}  // namespace tradebill::linux_terminal_test
