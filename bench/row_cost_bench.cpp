#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "driver/report_request.h"
#include "driver/report_run.h"
#include "kept_records.h"
#include "measured_process.h"
#include "report/report.h"
#include "report_bench.h"
#include "timing.h"

namespace tradebill {
namespace {

constexpr TradingShape kShape{.trades = 20, .positions = 10};
constexpr double kMicrosecond = 1e-6;

struct RunCost {
    double seconds;
    double rows;
};

template <class Run>
RunCost CostOf(const BenchAccount& account, std::size_t days, Run run) {
    return InChild([&] {
        CReport report;
        report.RootFolder = account.root;
        const double seconds = SecondsOf([&] { run(report, RequestFor(account, days)); });
        return RunCost{seconds, KeptRows(report)};
    });
}

void ReadOnly(CReport& report, const GenerateBillRequest& request) {
    ReadAccount(report, request, nullptr);
}

void RunWhole(CReport& report, const GenerateBillRequest& request) {
    RunReport(report, request, nullptr);
}

}  // namespace

void ShowRowCosts(const BenchSettings& settings) {
    const std::vector<std::size_t> dayCounts =
        settings.isTiny ? std::vector<std::size_t>{2, 5} : std::vector<std::size_t>{250, 1000, 2500, 5000};
    const std::string root = settings.folder + "/rows";
    const BenchAccount account = MakeBenchAccount(root, static_cast<int>(dayCounts.back()), kShape);
    std::printf("cost of a row with %d trades a day, what a report of one day costs taken off (flat)\n", kShape.trades);
    for (const std::size_t days : dayCounts) {
        CMeasurements reading;
        CMeasurements report;
        double rows = 0;
        for (int run = 0; run < settings.runs; ++run) {
            const RunCost read = CostOf(account, days, ReadOnly);
            rows = read.rows;
            reading.Add(read.seconds / rows);
            const double oneDay = CostOf(account, 1, RunWhole).seconds;
            report.Add((CostOf(account, days, RunWhole).seconds - oneDay) / rows);
        }
        std::printf("  %5zu days, %7.0f rows: reading %6.2f us, report %6.2f us\n", days, rows,
                    reading.Median() / kMicrosecond, report.Median() / kMicrosecond);
    }
    std::filesystem::remove_all(root);
}

}  // namespace tradebill
