// A report without pictures, for callgrind to count its instructions: tests/house/check_instructions.py.
//
// Usage: counted_report make FOLDER      makes the account (size S) below a new folder
//        counted_report report FOLDER    reads it and writes its page
#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "bench_account.h"
#include "driver/bill_folders.h"
#include "driver/report_run.h"
#include "page/html_builder.h"
#include "page/page_sections.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr int kDays = 250;
constexpr TradingShape kShape{.trades = 20, .positions = 10};

/// The page goes into a file, in memory if the folder is.
void WritePage(const CReport& report, const std::string& path) {
    CHtmlBuilder page(path);
    AddPageSections(page, report);
    if (page.HasFailed()) throw std::runtime_error("can't write " + path);
}

/// From the statements below `root`, which may be none, to the page.
RunResult MakeReport(CReport& report, const std::string& root) {
    const BenchAccount account{root, BusinessDays(kDays)};
    report.RootFolder = root;
    const RunResult result = ReadAccount(report, RequestFor(account), nullptr);
    PrepareBillFolders(report);
    WritePage(report, PagePath(report));
    return result;
}

/// What is counted: callgrind is told to collect inside of this alone.
[[gnu::noinline]] RunResult CountedReport(CReport& report, const std::string& root) {
    return MakeReport(report, root);
}

void CountOnce(const std::string& root) {
    CReport empty;
    const std::string emptyRoot = root + "/empty";
    std::filesystem::create_directories(BenchAccount{emptyRoot, {}}.BillFolder());
    MakeReport(empty, emptyRoot);  // finds the fonts, which are other ones on each machine
    CReport report;
    const RunResult result = CountedReport(report, root);
    if (result.statementsRead != kDays || report.MatchStore.Count() != kDays * kShape.trades) {
        throw std::runtime_error("the account in " + root + " isn't read as it was made");
    }
}

}  // namespace
}  // namespace tradebill

int main(int count, char** arguments) {
    using namespace tradebill;
    const std::string mode = count == 3 ? arguments[1] : "";
    try {
        if (mode == "make") {
            static_cast<void>(MakeBenchAccount(arguments[2], kDays, kShape));
        } else if (mode == "report") {
            CountOnce(arguments[2]);
        } else {
            std::fprintf(stderr, "usage: counted_report make|report FOLDER\n");
            return 2;
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "counted_report: %s\n", error.what());
        return 1;
    }
    return 0;
}
