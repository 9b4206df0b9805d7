#include <cstdio>

#include "driver/report_request.h"
#include "driver/report_run.h"
#include "measured_process.h"
#include "report/report.h"
#include "report_bench.h"
#include "timing.h"

namespace tradebill {
namespace {

constexpr double kMostStopRatio = 1.05;

/// A report's time with an event that is never signalled over its time without, pair by pair.
double StopRatio(const BenchAccount& account, int runs) {
    CReport report;
    report.RootFolder = account.root;
    const GenerateBillRequest without = RequestFor(account);
    GenerateBillRequest with = without;
    with.StopEvent = CreateHostEvent(1);
    with.AckEvent = CreateHostEvent(1);
    const auto secondsOf = [&report](const GenerateBillRequest& request) {
        return SecondsOf([&] { RunReport(report, request, nullptr); });
    };
    secondsOf(without);
    CMeasurements ratio;
    for (int run = 0; run < runs; ++run) {
        const double least = secondsOf(without);
        ratio.Add(secondsOf(with) / least);
    }
    DestroyHostEvent(with.StopEvent);
    DestroyHostEvent(with.AckEvent);
    return ratio.Median();
}

}  // namespace

void ShowStopCost(const BenchAccount& account, const BenchSettings& settings) {
    const double ratio = InChild([&] { return StopRatio(account, settings.runs); });
    std::printf("report with a StopEvent / without, in one process: %.2f (at most %.2f)\n", ratio, kMostStopRatio);
}

}  // namespace tradebill
