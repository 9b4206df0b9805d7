// The user's configuration as the program finds it.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/program_fixture.h"

namespace tradebill::linux_configuration_test {
namespace {

class ConfiguredProgram : public Program {
protected:
    ConfiguredProgram() { folder_.Write("request.ini", "[REQUEST]\naccount=90010002\nformat=1\nto=2024-01-03\n"); }

    /// Runs the program with an environment of the shell's form.
    [[nodiscard]] Answer RunIn(const std::string& environment, const std::string& arguments) const {
        const int exit = RunWithOutputs("env " + environment + " " + Quoted(TRADEBILL_PROGRAM) + " " + arguments,
                                        folder_.Path("out"), folder_.Path("err"));
        return {.exit = exit, .out = ReadFile(folder_.Path("out")), .err = ReadFile(folder_.Path("err"))};
    }
    [[nodiscard]] std::string Check() const { return "check --request " + Quoted(request_); }

    std::string request_ = folder_.Path("request.ini");
    std::string home_ = "-u XDG_CONFIG_HOME HOME=" + Quoted(folder_.Path("home"));
};

TEST_F(ConfiguredProgram, FindsItInTheUsersFolder) {
    const Answer without = RunIn(home_, Check());
    EXPECT_TRUE(IsWrongUse(without, "--root is missing"));
    fs::create_directories(folder_.Path("home/.config/tradebill"));
    folder_.Write("home/.config/tradebill/config.ini", "[OPTIONS]\nroot=~/../sample/root\nuser=demo\n");
    EXPECT_EQ(RunIn(home_, Check()).exit, 0);
    EXPECT_TRUE(IsWrongUse(RunIn(home_, Check() + " --config none"), "--root is missing"));
    EXPECT_TRUE(IsWrongUse(RunIn(home_, Check() + " --root nowhere"), "--root: expected a folder"));
}

TEST_F(ConfiguredProgram, FindsItWhereTheEnvironmentSays) {
    fs::create_directories(folder_.Path("settings/tradebill"));
    folder_.Write("settings/tradebill/config.ini", "[OPTIONS]\nroot=../../sample/root\n");
    const std::string settings = "XDG_CONFIG_HOME=" + Quoted(folder_.Path("settings"));
    EXPECT_EQ(RunIn(settings, Check()).exit, 0);
    EXPECT_EQ(RunIn(settings + " HOME=relative", Check()).exit, 0);
    EXPECT_TRUE(IsWrongUse(RunIn("XDG_CONFIG_HOME=settings HOME=relative", Check()), "--root is missing"));
}

TEST_F(ConfiguredProgram, ImportsToWhatItSays) {
    const std::string file = folder_.Path("config.ini");
    folder_.Write("config.ini", "[OPTIONS]\nroot=imported\nuser=me\n");
    const std::string statement = Quoted(root_ + "/Users/demo/Data/Bill/D90010002.20240102o.txt");
    EXPECT_EQ(Run("import " + statement + " --config " + Quoted(file)).exit, 0);
    EXPECT_TRUE(fs::exists(folder_.Path("imported/Users/me/Data/Bill/D90010002.20240102o.txt")));
    EXPECT_TRUE(IsWrongUse(Run("import " + statement + " --config none"), "--root is missing"));
    EXPECT_TRUE(IsWrongUse(
        Run("import " + statement + " --root " + Quoted(folder_.Path("other")) + " --config " + Quoted(file)),
        "--user is missing"));
}

TEST_F(ConfiguredProgram, IsNotHeededByAReportOfFiles) {
    const std::string file = folder_.Path("config.ini");
    folder_.Write("config.ini", "[OPTIONS]\nroot=nowhere\nuser=nobody\n");
    const std::string statements = Quoted(root_ + "/Users/demo/Data/Bill");
    EXPECT_EQ(Run("report " + statements + " --out " + Quoted(folder_.Path("made")) + " --config " + Quoted(file)).exit,
              0);
}

}  // namespace
}  // namespace tradebill::linux_configuration_test
