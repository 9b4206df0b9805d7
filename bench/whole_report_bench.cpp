#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "driver/report_run.h"
#include "kept_records.h"
#include "measured_process.h"
#include "report/report.h"
#include "report_bench.h"
#include "timing.h"

namespace tradebill {
namespace {

constexpr double kMillisecond = 1e-3;
constexpr double kMegabyte = 1e6;
constexpr double kMostMemoryBesideRecords = 15;  // megabytes
constexpr double kMostUnitPassRatio = 1.25;
constexpr double kMostStandaloneRatio = 1.5;
constexpr double kLeastJsonSpeed = 200;  // megabytes a second

struct ProcessCosts {
    CMeasurements wall;
    CMeasurements cpu;
    CMeasurements peak;

    void Add(const ProcessCost& cost) {
        wall.Add(cost.wall);
        cpu.Add(cost.cpu);
        peak.Add(cost.peak);
    }
    void Print(const char* name) const {
        std::printf("  %-18s %9.1f ms (%.1f to %.1f), %9.1f ms of processor, %7.1f MB\n", name,
                    wall.Median() / kMillisecond, wall.Least() / kMillisecond, wall.Greatest() / kMillisecond,
                    cpu.Median() / kMillisecond, peak.Median() / kMegabyte);
    }
};

/// Runs that take turns. Each finds no output of the one before.
class CTurns {
public:
    CTurns(const BenchAccount& account, const std::string& folder)
        : account_(account), out_(folder + "/out"), json_(folder + "/report.json"), page_(folder + "/alone.html") {}
    ~CTurns() { RemoveOutput(); }
    CTurns(const CTurns&) = delete;
    CTurns& operator=(const CTurns&) = delete;

    ProcessCost Report() { return Run(ReportCommand(TRADEBILL_PROGRAM, account_)); }
    ProcessCost ReportWithJson() { return ReportWith("--json", json_); }
    ProcessCost ReportWithStandalonePage() { return ReportWith("--standalone", page_); }
    /// Contract units by the account's trades: a pass over them comes before the run.
    ProcessCost ReportWithoutUnits() {
        std::vector<std::string> command = ReportCommand(TRADEBILL_PROGRAM, account_);
        const auto units = std::ranges::find(command, "--units");
        command.erase(units, units + 2);
        return Run(command);
    }
    ProcessCost UnavoidableWork(std::uintmax_t pageBytes) {
        return Run({UNAVOIDABLE_WORK, account_.BillFolder(), std::string(kBenchAccount), account_.days.front(),
                    account_.days.back(), std::to_string(pageBytes), out_});
    }

    /// Bytes that the last run has written as page or as JSON.
    [[nodiscard]] std::uintmax_t PageBytes() const { return std::filesystem::file_size(account_.PagePath()); }
    [[nodiscard]] std::uintmax_t JsonBytes() const { return std::filesystem::file_size(json_); }

private:
    ProcessCost Run(const std::vector<std::string>& command) {
        RemoveOutput();
        return RunCommand(command);
    }
    ProcessCost ReportWith(const char* option, const std::string& file) {
        std::vector<std::string> command = ReportCommand(TRADEBILL_PROGRAM, account_);
        command.insert(command.end(), {option, file});
        return Run(command);
    }
    void RemoveOutput() const {
        for (const std::string& path : {account_.PageFolder(), out_, json_, page_}) std::filesystem::remove_all(path);
    }

    const BenchAccount& account_;
    std::string out_;
    std::string json_;
    std::string page_;
};

double BytesOfRecords(const BenchAccount& account) {
    return InChild([&account] {
        CReport report;
        report.RootFolder = account.root;
        ReadAccount(report, RequestFor(account), nullptr);
        return KeptBytes(report);
    });
}

void ShowAgainstUnavoidableWork(const BenchSize& size, CTurns& turns, int runs, double recordBytes) {
    turns.Report();
    const std::uintmax_t pageBytes = turns.PageBytes();
    std::printf("  page %.1f MB, records %.1f MB\n", static_cast<double>(pageBytes) / kMegabyte,
                recordBytes / kMegabyte);
    turns.UnavoidableWork(pageBytes);
    ProcessCosts least;
    ProcessCosts report;
    CMeasurements ratio;
    CMeasurements cpuRatio;
    for (int run = 0; run < runs; ++run) {
        const ProcessCost unavoidable = turns.UnavoidableWork(pageBytes);
        const ProcessCost own = turns.Report();
        least.Add(unavoidable);
        report.Add(own);
        ratio.Add(own.wall / unavoidable.wall);
        cpuRatio.Add(own.cpu / unavoidable.cpu);
    }
    least.Print("unavoidable work");
    report.Print("report");
    std::printf("  report / unavoidable work %.2f (%.2f to %.2f), of processor time %.2f", ratio.Median(),
                ratio.Least(), ratio.Greatest(), cpuRatio.Median());
    std::printf(size.mostRatio > 0 ? " (at most %.1f)\n" : "\n", size.mostRatio);
    std::printf("  memory beside the records %.1f MB (at most %.0f at M and L)\n",
                (report.peak.Median() - recordBytes) / kMegabyte, kMostMemoryBesideRecords);
}

void ShowUnitPass(CTurns& turns, int runs) {
    turns.ReportWithoutUnits();
    CMeasurements more;
    CMeasurements ratio;
    for (int run = 0; run < runs; ++run) {
        const double report = turns.Report().wall;
        const double both = turns.ReportWithoutUnits().wall;
        more.Add(both - report);
        ratio.Add(both / report);
    }
    std::printf("  without --units %.1f ms more, / report %.2f (%.2f to %.2f; at most %.2f)\n",
                more.Median() / kMillisecond, ratio.Median(), ratio.Least(), ratio.Greatest(), kMostUnitPassRatio);
}

void ShowStandalonePage(CTurns& turns, int runs) {
    turns.ReportWithStandalonePage();
    ProcessCosts alone;
    CMeasurements ratio;
    for (int run = 0; run < runs; ++run) {
        const double report = turns.Report().wall;
        const ProcessCost both = turns.ReportWithStandalonePage();
        alone.Add(both);
        ratio.Add(both.wall / report);
    }
    alone.Print("with --standalone");
    std::printf("  with --standalone / report %.2f (%.2f to %.2f; at most %.1f)\n", ratio.Median(), ratio.Least(),
                ratio.Greatest(), kMostStandaloneRatio);
}

void ShowJson(CTurns& turns, int runs) {
    turns.ReportWithJson();
    const double megabytes = static_cast<double>(turns.JsonBytes()) / kMegabyte;
    CMeasurements more;
    for (int run = 0; run < runs; ++run) {
        const double report = turns.Report().wall;
        more.Add(turns.ReportWithJson().wall - report);
    }
    if (more.Median() <= 0) {
        std::printf("  --json: %.2f MB, too few to be measured\n", megabytes);
    } else {
        std::printf("  --json: %.1f MB in %.1f ms more: %.0f MB/s (at least %.0f)\n", megabytes,
                    more.Median() / kMillisecond, megabytes / more.Median(), kLeastJsonSpeed);
    }
}

}  // namespace

void ShowWholeReport(const BenchSize& size, const BenchAccount& account, const BenchSettings& settings) {
    std::printf("%s: %d days of %d trades, %.1f MB of statements, %d runs\n", std::string(size.name).c_str(), size.days,
                size.shape.trades, static_cast<double>(account.bytes) / kMegabyte, settings.runs);
    CTurns turns(account, settings.folder);
    ShowAgainstUnavoidableWork(size, turns, settings.runs, BytesOfRecords(account));
    ShowUnitPass(turns, settings.runs);
    if (!size.hasExports) return;
    ShowStandalonePage(turns, settings.runs);
    ShowJson(turns, settings.runs);
}

}  // namespace tradebill
