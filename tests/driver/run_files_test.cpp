// How page and pictures come to their places: all at once, the page last.
#include "driver/run_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

#include "driver/bill_folders.h"
#include "driver/run_fixture.h"
#include "driver/run_folder.h"
#include "report/request_copy.h"

namespace tradebill::run_files_test {
namespace {

namespace fs = std::filesystem;

/// A callback of a host has no context.
std::function<void()>& OnSizes() {
    static std::function<void()> action;
    return action;
}

void TakeSizes(const ChartSizeReport* /*report*/) {
    if (OnSizes()) OnSizes()();
}

class RunFiles : public RunFixture {
protected:
    RunFiles() {
        PutBothDays();
        request_.HostWindow = window_.Handle();
        request_.ChartSizeCallback = TakeSizes;
    }
    ~RunFiles() override { OnSizes() = {}; }

    /// What a run makes page and pictures with; their result is `made`.
    CRunFiles FilesOfRun() {
        report.Request = CopyRequest(request_);
        return {report, PrepareBillFolders(report), made};
    }

    /// All files below the page's folder.
    [[nodiscard]] std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(Folder())) {
            if (entry.is_regular_file()) {
                files[entry.path().lexically_relative(Folder()).generic_string()] = ReadFile(entry.path().string());
            }
        }
        return files;
    }
    /// Those that are looked for, of which one may be replaced meanwhile.
    [[nodiscard]] std::map<std::string, std::string> ShownFiles() const {
        std::map<std::string, std::string> files{{"TradeBill.html", ReadFile(PageFile())}};
        for (const std::string_view name : ReportPictureNames()) {
            files["Image_files/" + std::string(name)] = ReadFile(Picture(std::string(name)));
        }
        return files;
    }
    [[nodiscard]] std::string Folder() const { return root_.Path("Users/u/Data/Bill/Image"); }
    [[nodiscard]] std::string Picture(const std::string& name) const { return Folder() + "/Image_files/" + name; }
    /// Another account's report than that of both days.
    std::map<std::string, std::string> MakeOlderReport() {
        Put("D10086.20240103o.txt", FundsOf("20240103", "7.00"));
        Run();
        PutBothDays();
        return Files();
    }

    CMessageWindow window_;
    RunResult made;
};

TEST_F(RunFiles, LieAtTheirPlacesAloneInTheEnd) {
    const RunResult result = Run();
    EXPECT_TRUE(result.pageWritten);
    EXPECT_EQ(result.picturesSaved, 14);
    EXPECT_TRUE(result.problems.IsEmpty());
    EXPECT_EQ(Files().size(), 15U);
    for (const auto& [name, content] : Files()) EXPECT_NE(content, "") << name;
}

TEST_F(RunFiles, AreThoseOfBeforeUntilAllAreMade) {
    const auto older = MakeOlderReport();
    std::map<std::string, std::string> seen;
    OnSizes() = [&] { seen = ShownFiles(); };
    Run();
    EXPECT_EQ(seen, older);
    EXPECT_NE(Files(), older);
}

TEST_F(RunFiles, AreAllThereForTheMessage) {
    std::map<std::string, std::string> seen;
    window_.onMessage = [&] { seen = Files(); };
    Run();
    EXPECT_EQ(seen, Files());
    EXPECT_EQ(seen.size(), 15U);
}

TEST_F(RunFiles, AreAllThereWhenAStopIsAcknowledged) {
    MakeOlderReport();
    const UniqueEvent stop(CreateHostEvent(kAutoReset));
    const UniqueEvent acknowledge(CreateHostEvent(kManualReset));
    request_.StopEvent = stop.get();
    request_.AckEvent = acknowledge.get();
    std::map<std::string, std::string> seen;
    std::thread host([&] {
        if (WaitForHostEvent(acknowledge.get(), 60'000) == 1) seen = ShownFiles();
    });
    watcher_.onStage = [&](const std::string& stage) {
        if (stage == "page") SignalHostEvent(stop.get());
    };
    Run();
    host.join();
    ASSERT_EQ(seen.size(), 15U);
    const auto last = Files();
    for (const auto& [name, content] : seen) {  // the page may have been finished when the host looks
        EXPECT_TRUE(name == "TradeBill.html" || content == last.at(name)) << name;
    }
}

/// The page that a section has made so far, and what is added to it when others look.
TEST_F(RunFiles, ShowAPageAsItIsAndGoOn) {
    MakeOlderReport();
    const std::string older = ReadFile(PageFile());
    {
        CRunFiles files = FilesOfRun();
        const std::string work = files.WorkPage();
        EXPECT_NE(work, PageFile());
        std::ofstream(work) << "first";
        EXPECT_EQ(ReadFile(PageFile()), older);
        files.ShowPage();
        EXPECT_EQ(ReadFile(PageFile()), "first");
        std::ofstream(work, std::ios::app) << " and second";
        EXPECT_EQ(ReadFile(PageFile()), "first");
        files.ShowPage();
        EXPECT_EQ(ReadFile(PageFile()), "first and second");
        std::ofstream(work, std::ios::app) << " and third";
        files.Finish(std::nullopt);
    }
    EXPECT_TRUE(made.pageWritten);
    EXPECT_TRUE(made.problems.IsEmpty());
    EXPECT_EQ(ReadFile(PageFile()), "first and second and third");
    EXPECT_FALSE(fs::exists(Folder() + "/.tradebill.lock"));
}

TEST_F(RunFiles, KeepThePageThatWasShownIfALaterOneFails) {
    CRunFiles files = FilesOfRun();
    std::ofstream(files.WorkPage()) << "first";
    files.ShowPage();
    std::ofstream(files.WorkPage(), std::ios::app) << " and ha";
    files.Finish("the disk is full");
    EXPECT_FALSE(made.pageWritten);
    ASSERT_TRUE(made.problems.page);
    EXPECT_EQ(made.problems.page->reason, "the disk is full");
    EXPECT_EQ(ReadFile(PageFile()), "first");
}

TEST_F(RunFiles, StayShownAsTheyAreWhileThePageCantBeCopied) {
    MakeOlderReport();
    const std::string older = ReadFile(PageFile());
    CRunFiles files = FilesOfRun();
    const fs::path work = files.WorkPage();
    std::ofstream(work) << "first";
    fs::create_directory(work.parent_path() / kPageCopy);
    files.ShowPage();
    EXPECT_EQ(ReadFile(PageFile()), older);
    fs::remove(work.parent_path() / kPageCopy);
    files.Finish(std::nullopt);
    EXPECT_TRUE(made.pageWritten);
    EXPECT_EQ(ReadFile(PageFile()), "first");
}

TEST_F(RunFiles, LackAPictureThatCantBeMade) {
    MakeOlderReport();
    const std::string bar = Picture("RiskFigure.jpg");
    fs::remove(bar);
    root_.Write("Users/u/Data/Bill/Image/Image_files/RiskFigure.jpg/in the way", "");
    const RunResult result = Run();
    EXPECT_TRUE(result.pageWritten);
    EXPECT_EQ(result.picturesSaved, 13);
    ASSERT_EQ(result.problems.pictures.size(), 1U);
    EXPECT_TRUE(fs::is_directory(bar));
}

TEST_F(RunFiles, StayThoseOfBeforeIfThePageCantComeToItsPlace) {
    Run();
    fs::remove(PageFile());
    fs::create_directory(PageFile());
    const RunResult result = Run();
    EXPECT_FALSE(result.pageWritten);
    ASSERT_TRUE(result.problems.page);
    EXPECT_EQ(result.problems.page->path, PageFile());
    EXPECT_NE(result.problems.page->reason, "");
    EXPECT_TRUE(fs::is_empty(PageFile()));
    EXPECT_EQ(Files().size(), 14U);  // nothing of the run's own is left
}

TEST_F(RunFiles, ClearWhatADeadRunLeft) {
    root_.Write("Users/u/Data/Bill/Image/.tradebill-dead/lock", "");
    root_.Write("Users/u/Data/Bill/Image/.tradebill-dead/page.html", "half");
    Run();
    EXPECT_EQ(Files().size(), 15U);
}

// Where the page's folder can't be made nothing is written anywhere.
TEST_F(RunFiles, AreNowhereWithoutTheirFolder) {
    root_.Write("Users/u/Data/Bill/Image", "a file in its place");
    const RunResult result = Run();
    EXPECT_FALSE(result.pageWritten);
    EXPECT_EQ(result.picturesSaved, 0);
    EXPECT_EQ(result.problems.folders.size(), 1U);
    EXPECT_EQ(result.problems.pictures.size(), 14U);
    EXPECT_EQ(window_.messages.size(), 1U);
    EXPECT_EQ(ReadFile(root_.Path("Users/u/Data/Bill/Image")), "a file in its place");
}

TEST_F(RunFiles, StayNowhereIfAnErrorEndsTheRun) {
    root_.Write("Users/u/Data/Bill/Image", "a file in its place");
    report.Request = CopyRequest(request_);
    const BillFolders folders = PrepareBillFolders(report);
    RunResult result;
    CRunFiles files(report, folders, result);
    files.Images().failures.push_back({.name = "RiskFigure.jpg", .path = "", .reason = ""});
    files.FinishPictures();
    EXPECT_EQ(result.picturesSaved, 0);
    ASSERT_EQ(result.problems.pictures.size(), 1U);  // older ones aren't looked for
    EXPECT_EQ(result.problems.pictures[0].reason, folders.reason);
    EXPECT_EQ(ReadFile(root_.Path("Users/u/Data/Bill/Image")), "a file in its place");
}

#if !defined(_WIN32)
TEST_F(RunFiles, AreNeverWrittenThroughLinks) {
    const CTempFolder outside;
    const std::string other = outside.Write("other.html", "somebody else's");
    fs::create_directories(Folder() + "/Image_files");
    fs::create_symlink(other, PageFile());
    for (const std::string_view name : {"RiskFigure.jpg", "BillShrink.png"}) {
        fs::create_symlink(other, Picture(std::string(name)));
    }
    const RunResult result = Run();
    EXPECT_TRUE(result.problems.IsEmpty());
    EXPECT_EQ(ReadFile(other), "somebody else's");
    EXPECT_FALSE(fs::is_symlink(PageFile()));
    EXPECT_FALSE(fs::is_symlink(Picture("RiskFigure.jpg")));
}

TEST_F(RunFiles, AreRefusedALinkInPlaceOfTheirFolder) {
    const CTempFolder outside;
    outside.Write("RiskFigure.jpg", "somebody else's");
    for (const std::string folder : {"Users/u/Data/Bill/Image", "Users/u/Data/Bill/Image/Image_files"}) {
        fs::remove_all(Folder());
        fs::create_directories(fs::path(root_.Path(folder)).parent_path());
        fs::create_directory_symlink(outside.Path(), root_.Path(folder));
        const RunResult result = Run();
        EXPECT_EQ(std::distance(fs::directory_iterator(outside.Path()), {}), 1) << folder;
        EXPECT_EQ(ReadFile(outside.Path("RiskFigure.jpg")), "somebody else's");
        ASSERT_EQ(result.problems.folders.size(), 1U);
        EXPECT_EQ(result.problems.folders[0].path, root_.Path(folder));
        EXPECT_EQ(result.problems.folders[0].reason, "it is a link");
        EXPECT_EQ(result.problems.pictures.size(), 14U);
        EXPECT_FALSE(result.pageWritten);  // it would show the pictures behind the link
        EXPECT_FALSE(fs::exists(PageFile()));
    }
}

// A page without pictures is worth more than none, as long as it can't show older ones.
TEST_F(RunFiles, AreThePageAloneIfThePicturesFolderIsAFile) {
    root_.Write("Users/u/Data/Bill/Image/Image_files", "a file in its place");
    const RunResult result = Run();
    EXPECT_TRUE(result.pageWritten);
    EXPECT_EQ(result.problems.folders.size(), 1U);
    EXPECT_EQ(result.problems.pictures.size(), 14U);
    EXPECT_EQ(ReadFile(Folder() + "/Image_files"), "a file in its place");
}

TEST_F(RunFiles, FollowLinksAboveTheirFolder) {
    const CTempFolder outside;
    fs::rename(root_.Path("Users/u/Data"), outside.Path("Data"));
    fs::create_directory_symlink(outside.Path("Data"), root_.Path("Users/u/Data"));
    EXPECT_TRUE(Run().problems.IsEmpty());
    EXPECT_TRUE(fs::exists(outside.Path("Data/Bill/Image/TradeBill.html")));
}

TEST_F(RunFiles, FollowALinkToTheirOwnFolder) {
    const CTempFolder outside;
    fs::create_directory_symlink(outside.Path(), root_.Path("out"));
    EXPECT_TRUE(RunAlone({.outFolder = root_.Path("out")}).problems.IsEmpty());
    EXPECT_TRUE(fs::exists(outside.Path("TradeBill.html")));
}
#endif

}  // namespace
}  // namespace tradebill::run_files_test
