// Outputs that go elsewhere than into a new file: to standard output, devices and pipes, and through links.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "cli/linux/redirected_program.h"

namespace tradebill::linux_output_places_test {
namespace {

constexpr const char* kPngMark = "\x89PNG";
constexpr const char* kJpegMark = "\xFF\xD8\xFF";

class OutputPlace : public RedirectedProgram {
protected:
    [[nodiscard]] std::string Chart(const std::string& output) const {
        return "chart equity --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini") + " -o " +
               Quoted(output);
    }
    /// What a file of the test's folder holds.
    [[nodiscard]] std::string Held(const std::string& name) const { return ReadFile(folder_.Path(name)); }
    [[nodiscard]] std::string ReportTo(const std::string& option, const std::string& output) const {
        return Report("--quiet " + option + " " + Quoted(output));
    }
    /// The same output as an ordinary file.
    [[nodiscard]] std::string Expected(const std::string& call) const {
        EXPECT_EQ(RunTo("", call + " " + Quoted(folder_.Path("expected"))), 0) << Messages();
        return Held("expected");
    }
    [[nodiscard]] std::string ExpectedJson() const { return Expected(Report("--quiet --json")); }
    [[nodiscard]] std::string ExpectedPage() const { return Expected(Report("--quiet --standalone")); }

    /// A device of the test's own, in a folder of its own; a link to the system's where none may be made.
    [[nodiscard]] std::string OwnDevice(const std::string& name, unsigned minor) const {
        const std::string device = folder_.Path("devices/" + name);
        fs::create_directories(folder_.Path("devices"));
        constexpr unsigned kMemoryDevices = 1;
        const bool isMade = ::mknod(device.c_str(), S_IFCHR | 0666, ::makedev(kMemoryDevices, minor)) == 0;
        if (isMade && ::access(device.c_str(), W_OK) == 0) return device;
        fs::remove(device);
        fs::create_symlink("/dev/" + name, device);
        return device;
    }
    [[nodiscard]] std::string NullDevice() const { return OwnDevice("null", 3); }
    [[nodiscard]] std::string FullDevice() const { return OwnDevice("full", 7); }
    /// Whether the devices are as they were made, and nothing was put beside them.
    [[nodiscard]] bool IsAlone(const std::string& device) const {
        return fs::is_character_file(device) && Files("devices") == 1;
    }
    [[nodiscard]] std::ptrdiff_t Files(const std::string& folder) const {
        return std::distance(fs::directory_iterator(folder_.Path(folder)), {});
    }
};

TEST_F(OutputPlace, OfJsonMayBeStandardOutput) {
    const std::string json = ExpectedJson();
    ASSERT_TRUE(nlohmann::json::accept(json));
    EXPECT_EQ(RunTo(">out", Report("--json -")), 0);
    EXPECT_EQ(Held("out"), json);
    EXPECT_TRUE(Messages().starts_with("Report from")) << Messages();
    EXPECT_FALSE(fs::exists(folder_.Path("-")));
    EXPECT_EQ(RunTo("| cat >out", Report("--quiet --json -")), 0);
    EXPECT_EQ(Held("out"), json);
    EXPECT_EQ(Messages(), "");
}

TEST_F(OutputPlace, OfAStandalonePageMayBeStandardOutput) {
    const std::string page = ExpectedPage();
    ASSERT_TRUE(page.ends_with("</html>\r\n"));
    EXPECT_EQ(RunTo("| cat >out", Report("--standalone -")), 0);
    EXPECT_EQ(Held("out"), page);
    EXPECT_TRUE(Messages().starts_with("Report from")) << Messages();
}

TEST_F(OutputPlace, OfAChartMayBeStandardOutput) {
    ASSERT_EQ(RunTo("", Chart("c.png")), 0) << Messages();
    ASSERT_TRUE(Held("c.png").starts_with(kPngMark));
    EXPECT_EQ(RunTo("| cat >out", Chart("-")), 0);
    EXPECT_EQ(Held("out"), Held("c.png"));
}

TEST_F(OutputPlace, IsAFileOfTheStreamsNameBehindItsFolder) {
    EXPECT_EQ(RunTo(">out", Report("--json ./-")), 0);
    EXPECT_TRUE(nlohmann::json::accept(Held("-")));
    EXPECT_TRUE(Held("out").starts_with("Report from"));
}

TEST_F(OutputPlace, IsTakenByOneOutput) {
    const auto refusal = [this](const std::string& json, const std::string& page) {
        return Run(Report("--json " + Quoted(json) + " --standalone " + Quoted(page)));
    };
    const std::string file = folder_.Path("a");
    EXPECT_TRUE(IsWrongUse(refusal("-", "-"), "--standalone"));
    EXPECT_TRUE(IsWrongUse(refusal("/dev/stdout", "-"), "--standalone"));
    EXPECT_TRUE(IsWrongUse(refusal(file, folder_.Path("./a")), "--standalone"));
    fs::create_symlink("a", folder_.Path("link"));
    EXPECT_TRUE(IsWrongUse(refusal(folder_.Path("link"), file), "--standalone"));
    EXPECT_FALSE(fs::exists(file));
    EXPECT_EQ(refusal(NullDevice(), NullDevice()).exit, 0);
    EXPECT_EQ(refusal(file, folder_.Path("A")).exit, 0);
}

TEST_F(OutputPlace, FailsWithAFullOrClosedStandardOutput) {
    for (const std::string redirection : {">/dev/full", ">&-"}) {
        for (const std::string& call : {ReportTo("--json", "-"), ReportTo("--standalone", "-"), Chart("-")}) {
            EXPECT_EQ(RunTo(redirection, call), 1) << redirection << call;
            EXPECT_EQ(Messages(), "tradebill: can't write standard output\n") << redirection << call;
        }
    }
}

TEST_F(OutputPlace, LeavesThePageAsItIsIfStandardOutputIsClosed) {
    ASSERT_EQ(RunTo("", Report("--quiet")), 0);
    const std::string page = ReadFile(PageFile());
    EXPECT_EQ(RunTo(">&-", ReportTo("--standalone", "-")), 1);
    EXPECT_EQ(ReadFile(PageFile()), page);
    EXPECT_EQ(RunTo("<&- >&- 2>&-", ReportTo("--standalone", "-")), 1);
    EXPECT_EQ(ReadFile(PageFile()), page);
}

// The next file to be opened gets the place of a closed stream: notes on the run would stand in it.
TEST_F(OutputPlace, IsntWhatTakesThePlaceOfAClosedStream) {
    const std::string page = ExpectedPage();
    const std::string call = Report("--format auto --standalone page");
    ASSERT_EQ(RunTo(">out", call), 0);
    ASSERT_TRUE(Says(Messages(), "reading format 1")) << Messages();
    EXPECT_EQ(RunTo(">out 2>&-", call), 0);
    EXPECT_EQ(Held("page"), page);
    EXPECT_EQ(RunTo("<&- >&- 2>&-", call), 1);
    EXPECT_EQ(Held("page"), page);
}

TEST_F(OutputPlace, OfAPageWithoutReaderLeavesTheReportWhole) {
    ASSERT_EQ(RunTo("", Report("--quiet")), 0);
    const std::string page = ReadFile(PageFile());
    fs::remove(PageFile());
    EXPECT_EQ(RunWithoutReader({"report", "--root", root_, "--request", sample_ + "/request.ini", "--standalone", "-"}),
              1);
    EXPECT_EQ(Messages(), "tradebill: can't write standard output\n");
    EXPECT_EQ(ReadFile(PageFile()), page);
}

TEST_F(OutputPlace, MayBeADevice) {
    const std::string device = NullDevice();
    for (const std::string& call : {ReportTo("--json", device), ReportTo("--standalone", device), Chart(device)}) {
        EXPECT_EQ(RunTo("", call), 0) << call;
        EXPECT_EQ(Messages(), "") << call;
        EXPECT_TRUE(IsAlone(device)) << call;
    }
}

TEST_F(OutputPlace, FailsWithAFullDeviceAndLeavesIt) {
    const std::string device = FullDevice();
    for (const std::string& call : {ReportTo("--json", device), ReportTo("--standalone", device), Chart(device)}) {
        EXPECT_EQ(RunTo("", call), 1) << call;
        EXPECT_EQ(Messages(), "tradebill: can't write " + device + "\n") << call;
        EXPECT_TRUE(IsAlone(device)) << call;
    }
    EXPECT_TRUE(ReadFile(PageFile()).ends_with("</html>\r\n"));
}

TEST_F(OutputPlace, OfAPageIsNoDevice) {
    const std::string device = NullDevice();
    EXPECT_TRUE(IsWrongUse(Run(Report("--out " + Quoted(device))), "--out"));
    EXPECT_TRUE(IsAlone(device));
}

TEST_F(OutputPlace, MayBeALinkToADevice) {
    const std::string device = FullDevice();
    fs::create_symlink("devices/full", folder_.Path("link"));
    EXPECT_EQ(RunTo("", ReportTo("--json", "link")), 1);
    EXPECT_EQ(Messages(), "tradebill: can't write link\n");
    EXPECT_TRUE(fs::is_symlink(folder_.Path("link")));
    EXPECT_TRUE(IsAlone(device));
}

TEST_F(OutputPlace, MayBeAPipe) {
    const std::string json = ExpectedJson();
    const std::string pipe = folder_.Path("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(RunShell("cd " + Quoted(folder_.Path()) + " && { cat pipe >got & } && " + Quoted(TRADEBILL_PROGRAM) +
                       " " + ReportTo("--json", "pipe") + " && wait"),
              0);
    EXPECT_EQ(Held("got"), json);
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_FALSE(fs::exists(pipe + ".part"));
}

// Their names end as they like.
TEST_F(OutputPlace, OfAChartIsJpegWhereTheNameSaysSo) {
    for (const auto& [name, beginning] : {std::pair("c.fifo", kPngMark), std::pair("c.jpg", kJpegMark)}) {
        ASSERT_EQ(::mkfifo(folder_.Path(name).c_str(), 0600), 0);
        EXPECT_EQ(RunShell("cd " + Quoted(folder_.Path()) + " && { cat " + name + " >got & } && " +
                           Quoted(TRADEBILL_PROGRAM) + " " + Chart(name) + " && wait"),
                  0);
        EXPECT_TRUE(Held("got").starts_with(beginning)) << name;
    }
}

TEST_F(OutputPlace, IsReplacedInOneStepBehindALink) {
    const std::string target = folder_.Write("targets/a", "old");
    fs::create_hard_link(target, folder_.Path("kept"));
    fs::create_symlink("targets/a", folder_.Path("second"));
    fs::create_symlink("second", folder_.Path("link"));
    EXPECT_EQ(RunTo("", ReportTo("--json", "link")), 0) << Messages();
    EXPECT_TRUE(fs::is_symlink(folder_.Path("link")));
    EXPECT_TRUE(fs::is_symlink(folder_.Path("second")));
    EXPECT_TRUE(nlohmann::json::accept(ReadFile(target)));
    EXPECT_EQ(Held("kept"), "old");  // another file came into its place
    EXPECT_EQ(Files("targets"), 1);
}

TEST_F(OutputPlace, IsMadeWhereALinkLeads) {
    fs::create_directories(folder_.Path("targets"));
    fs::create_symlink(folder_.Path("targets/a"), folder_.Path("link"));
    EXPECT_EQ(RunTo("", ReportTo("--standalone", "link")), 0) << Messages();
    EXPECT_TRUE(fs::is_symlink(folder_.Path("link")));
    EXPECT_TRUE(ReadFile(folder_.Path("targets/a")).ends_with("</html>\r\n"));
}

TEST_F(OutputPlace, IsRefusedWhereALinkLeadsNowhere) {
    fs::create_symlink("missing/a", folder_.Path("dangling"));
    fs::create_symlink("round", folder_.Path("circle"));
    fs::create_symlink("circle", folder_.Path("round"));
    fs::create_symlink(".", folder_.Path("folder"));
    for (const std::string name : {"dangling", "circle", "folder"}) {
        EXPECT_TRUE(IsWrongUse(Run(Report("--json " + Quoted(folder_.Path(name)))), "--json")) << name;
        EXPECT_TRUE(fs::is_symlink(folder_.Path(name))) << name;
    }
    EXPECT_FALSE(fs::exists(PageFile()));
}

TEST_F(OutputPlace, IsNeverThePage) {
    ASSERT_EQ(RunTo("", Report("--quiet")), 0);
    const std::string page = ReadFile(PageFile());
    fs::create_symlink(PageFile(), folder_.Path("link"));
    for (const std::string option : {"--json", "--standalone"}) {
        EXPECT_EQ(RunTo("", ReportTo(option, "link")), 1) << option;
        EXPECT_EQ(Messages(), "tradebill: can't write link\n") << option;
        EXPECT_EQ(ReadFile(PageFile()), page) << option;
    }
    for (const std::string option : {"--json", "--standalone"}) {
        EXPECT_EQ(RunTo(">" + Quoted(PageFile()), ReportTo(option, "-")), 1) << option;
        EXPECT_EQ(ReadFile(PageFile()), page) << option;
    }
}

TEST_F(OutputPlace, MayBeAStreamByItsPath) {
    const std::string json = ExpectedJson();
    fs::create_symlink("/dev/stdout", folder_.Path("link"));
    for (const std::string name : {"/dev/stdout", "/dev/fd/1", "/proc/self/fd/1", "link"}) {
        EXPECT_EQ(RunTo(">out", Report("--json " + name)), 0) << name;
        EXPECT_EQ(Held("out"), json) << name;
        EXPECT_TRUE(Messages().starts_with("Report from")) << Messages();
        EXPECT_EQ(RunTo("| cat >out", ReportTo("--json", name)), 0) << name;
        EXPECT_EQ(Held("out"), json) << name;
    }
    folder_.Write("log", "before\n");
    EXPECT_EQ(RunTo("3>>log", ReportTo("--json", "/dev/fd/3")), 0) << Messages();
    EXPECT_EQ(Held("log"), "before\n" + json);
}

// Or the summary would be lost with the file that standard output goes to.
TEST_F(OutputPlace, MayBeTheFileThatStandardOutputGoesTo) {
    const std::string json = ExpectedJson();
    EXPECT_EQ(RunTo(">out", Report("--json out")), 0);
    EXPECT_EQ(Held("out"), json);
    EXPECT_TRUE(Messages().starts_with("Report from")) << Messages();
}

}  // namespace
}  // namespace tradebill::linux_output_places_test
