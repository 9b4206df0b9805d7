// Makes the reports of all samples on four threads at once, and compares every byte of them with what each comes to
// when it is made alone: no report may know of another. With ThreadSanitizer it also finds data that two of them share.
//
//     concurrent_reports SAMPLES [ROUNDS]
#include <algorithm>
#include <atomic>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "analysis/analysis.h"
#include "driver/report_run.h"
#include "export/json_writer.h"
#include "export/run_json.h"
#include "report/report.h"
#include "requests/report_options.h"
#include "support/work_folder.h"

namespace tradebill {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kThreads = 4;
constexpr int kRounds = 2;
constexpr const char* kResolutions[] = {"96", "120"};

/// All that a report leaves: its files and "JSON", with their bytes.
using Result = std::map<std::string, std::string>;

/// One report, made alone first and together with others then.
struct Job {
    fs::path sample;
    std::string dpi;
    Result alone;

    [[nodiscard]] std::string Name() const { return sample.filename().string() + " at " + dpi + " dpi"; }
};

std::string BytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

ReportOptions OptionsFor(const Job& job, const fs::path& folder) {
    ReportOptions options;
    options.root = (folder / "root").string();
    options.requestFile = (folder / "request.ini").string();
    if (fs::exists(folder / "units.ini")) options.unitFile = (folder / "units.ini").string();
    if (fs::exists(folder / "products.ini")) options.productFile = (folder / "products.ini").string();
    options.dpi = job.dpi;
    if (job.sample.filename() == "one-year") {  // two weeks of it say as much about threads
        options.from = "2024-03-04";
        options.to = "2024-03-15";
    }
    return options;
}

/// Makes a report of the sample in `folder`, which holds nothing else afterwards.
Result MakeReport(const Job& job, const fs::path& folder) {
    fs::remove_all(folder);
    fs::copy(job.sample, folder, fs::copy_options::recursive);
    fs::remove_all(folder / "root/Users/demo/Data/Bill/Image");  // of a report that somebody made in the sample itself
    const PreparedRequest prepared = PrepareRequest(OptionsFor(job, folder));
    CReport report;
    report.RootFolder = prepared.rootFolder;
    report.Products = prepared.products.get();
    const RunResult run = RunReport(report, prepared.request, nullptr);
    if (!run.pageWritten || run.statementsRead == 0) throw std::runtime_error("the report came to nothing");

    Result result;
    for (const auto& entry : fs::recursive_directory_iterator(report.ReportDocument.BillFolder)) {
        if (entry.is_regular_file()) result[entry.path().filename().string()] = BytesOf(entry.path());
    }
    std::ostringstream json;
    WriteJson(report, {.run = RunFacts{}, .analysis = Analyse(report)}, json);
    result["JSON"] = json.str();
    return result;
}

/// What differs, or an empty text.
std::string DifferenceOf(const Result& alone, const Result& together) {
    for (const auto& [name, bytes] : alone) {
        const auto found = together.find(name);
        if (found == together.end()) return name + " is missing";
        const std::string& other = found->second;
        const auto at = std::ranges::mismatch(bytes, other).in1;
        if (at != bytes.end() || other.size() != bytes.size()) {
            return name + " differs from byte " + std::to_string(at - bytes.begin()) + " on (" +
                   std::to_string(bytes.size()) + " bytes alone, " + std::to_string(other.size()) + " together)";
        }
    }
    for (const auto& [name, bytes] : together) {
        if (!alone.contains(name)) return name + " is there beside what was made alone";
    }
    return {};
}

/// Every sample at every resolution. Neighbours are of different samples.
std::vector<Job> JobsOf(const fs::path& samples) {
    std::vector<fs::path> folders;
    for (const auto& entry : fs::directory_iterator(samples)) {
        if (fs::exists(entry.path() / "request.ini")) folders.push_back(entry.path());  // an account in its place
    }
    std::ranges::sort(folders);
    std::vector<Job> jobs;
    for (const char* const dpi : kResolutions) {
        for (const fs::path& folder : folders) jobs.push_back({folder, dpi, {}});
    }
    return jobs;
}

/// Whether the report came out as when it was made alone; otherwise the line is told.
bool MakesTheSame(const Job& job, const fs::path& folder) {
    std::string difference;
    try {
        difference = DifferenceOf(job.alone, MakeReport(job, folder));
    } catch (const std::exception& error) {
        difference = error.what();
    }
    if (!difference.empty()) std::printf("%s: %s\n", job.Name().c_str(), difference.c_str());
    return difference.empty();
}

/// Takes all jobs `rounds` times from one queue. Returns how many came out differently.
int RunTogether(const std::vector<Job>& jobs, int rounds, const fs::path& work) {
    const std::size_t all = jobs.size() * static_cast<std::size_t>(rounds);
    std::atomic<std::size_t> next = 0;
    std::atomic<int> differing = 0;
    std::vector<std::thread> threads;
    for (std::size_t thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, folder = work / ("thread-" + std::to_string(thread))] {
            for (std::size_t i = next++; i < all; i = next++) {
                if (!MakesTheSame(jobs[i % jobs.size()], folder)) ++differing;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    return differing;
}

int CompareReports(const fs::path& samples, int rounds) {
    const CWorkFolder work(fs::temp_directory_path(), "concurrent-reports");
    std::vector<Job> jobs = JobsOf(samples);
    if (jobs.empty()) throw std::runtime_error("no samples in " + samples.string());
    for (Job& job : jobs) job.alone = MakeReport(job, work.Path() / "alone");
    const int differing = RunTogether(jobs, rounds, work.Path());
    std::printf("%zu reports made %d times on %zu threads, %d of them differently than alone\n", jobs.size(), rounds,
                kThreads, differing);
    return differing == 0 ? 0 : 1;
}

/// The number of rounds, or 0 for none that can be.
int RoundsOf(const char* text) {
    int rounds = 0;
    const char* const end = text + std::strlen(text);
    const auto [stop, error] = std::from_chars(text, end, rounds);
    return error == std::errc{} && stop == end ? std::max(rounds, 0) : 0;
}

}  // namespace
}  // namespace tradebill

int main(int argc, char** argv) {
    const int rounds = argc == 3 ? tradebill::RoundsOf(argv[2]) : tradebill::kRounds;
    if (argc < 2 || argc > 3 || rounds == 0) {
        std::fprintf(stderr, "usage: concurrent_reports SAMPLES [ROUNDS]\n");
        return 2;
    }
    // Without TZ each mktime() sets up the same zone again: under a lock, but one that ThreadSanitizer doesn't see.
    ::setenv("TZ", ":/etc/localtime", 0);
    try {
        return tradebill::CompareReports(argv[1], rounds);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "concurrent_reports: %s\n", error.what());
        return 1;
    }
}
