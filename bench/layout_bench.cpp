#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bare_pass.h"
#include "driver/bill_folders.h"
#include "driver/report_days.h"
#include "kept_records.h"
#include "measured_process.h"
#include "readers/statement_loader.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "report_bench.h"
#include "sample_days.h"
#include "timing.h"

namespace tradebill {
namespace {

constexpr double kMillisecond = 1e-3;
constexpr double kMostRatio = 2.5;
constexpr std::size_t kManyDays = 1000;

struct ReadingCost {
    double seconds;
    double rows;
    double bytes;  ///< of the records
};

/// The statements of a repeated sample as files, named for their days.
std::vector<std::filesystem::path> FilesIn(const std::string& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

void WriteDays(const std::vector<SampleDay>& days, const std::string& folder) {
    std::filesystem::create_directories(folder);
    for (const auto& [day, text] : days) std::ofstream(folder + "/" + day, std::ios::binary) << text;
}

ReadingCost ReadAndKeep(const std::string& samples, const std::string& name, const std::string& folder) {
    const auto files = FilesIn(folder);
    CReport report;
    report.RootFolder = samples + "/" + name + "/root";
    report.Request = SampleRequest(samples + "/" + name);
    report.TemplatePath = TemplatePath(report);
    report.ReportDays = ReportDaysOf(report.Request);
    const double seconds = SecondsOf([&] {
        CStatementLoader loader(report);
        for (const auto& file : files) loader.Load(file.filename().string(), file.string());
    });
    if (KeptRows(report) == 0) throw std::runtime_error("nothing was read of " + name);
    return {seconds, KeptRows(report), KeptBytes(report)};
}

/// A pass over all files that finds their newlines, and the first touch of as many bytes as the records take.
double BarePass(const std::string& folder, double recordBytes) {
    const auto files = FilesIn(folder);
    std::vector<char> buffer;
    std::size_t lines = 0;
    const double seconds = SecondsOf([&] {
        for (const auto& file : files) lines += CountLines(file.c_str(), buffer);
        constexpr std::size_t kPage = 4096;
        const auto size = static_cast<std::size_t>(recordBytes);
        const auto memory = std::make_unique_for_overwrite<volatile char[]>(size);
        for (std::size_t at = 0; at < size; at += kPage) memory[at] = 1;
    });
    if (lines == 0) throw std::runtime_error("no lines in " + folder);
    return seconds;
}

void ShowLayout(const std::string& samples, const std::string& name, const BenchSettings& settings) {
    const std::string folder = settings.folder + "/layout";
    const std::size_t days = settings.isTiny ? 1 : kManyDays;
    InChild([&] {
        WriteDays(RepeatSample(samples + "/" + name, days), folder);
        return 0;
    });
    CMeasurements bare;
    CMeasurements ratio;
    ReadingCost reading{};
    for (int run = 0; run < settings.runs; ++run) {
        reading = InChild([&] { return ReadAndKeep(samples, name, folder); });
        const double least = InChild([&] { return BarePass(folder, reading.bytes); });
        bare.Add(least);
        ratio.Add(reading.seconds / least);
    }
    std::printf("  %-24s %5.2f (%.2f to %.2f)   %.1f ms bare, %.0f rows, %.1f MB of records\n", name.c_str(),
                ratio.Median(), ratio.Least(), ratio.Greatest(), bare.Median() / kMillisecond, reading.rows,
                reading.bytes / 1e6);
    std::filesystem::remove_all(folder);
}

}  // namespace

void ShowLayouts(const BenchSettings& settings) {
    std::printf("reading and keeping / (bare pass over the files and first touch of the records), each at most %.1f\n",
                kMostRatio);
    for (const std::string& name : SampleNames(TRADEBILL_SAMPLES)) ShowLayout(TRADEBILL_SAMPLES, name, settings);
}

}  // namespace tradebill
