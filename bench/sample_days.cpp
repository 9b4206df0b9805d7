#include "sample_days.h"

#include <algorithm>
#include <filesystem>

#include "base/day.h"
#include "base/ini_file.h"
#include "base/text.h"
#include "platform/file.h"
#include "platform/local_time.h"
#include "report/request_copy.h"

namespace tradebill {
namespace {

constexpr std::size_t kDayLength = 8;
constexpr std::string_view kChangeDate = "20240119";  // of the samples whose layout changes
constexpr int kDaysApart = 400;                       // more than any sample spans

/// The day of a statement in a later round: further and further away from the change date, on its own side of it.
std::string DayInRound(const std::string& own, int round) {
    const std::time_t noon = MidnightOf(ParsePackedDay(own)) + kSecondsPerDay / 2;
    const std::time_t shift = kSecondsPerDay * kDaysApart * round;
    return DayText(LocalDayOf(own < kChangeDate ? noon - shift : noon + shift));
}

/// The statement with `day` in all places where it says its own.
std::string Redated(std::string text, const std::string& own, const std::string& day) {
    for (std::size_t at = text.find(own); at != std::string::npos; at = text.find(own, at + kDayLength)) {
        text.replace(at, kDayLength, day);
    }
    return text;
}

std::vector<std::filesystem::path> StatementsIn(const std::filesystem::path& root) {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / "Users")) {
        if (entry.path().extension() == ".txt") paths.push_back(entry.path());
    }
    std::ranges::sort(paths);
    return paths;
}

}  // namespace

std::vector<std::string> SampleNames(const std::string& samples) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(samples)) {
        if (std::filesystem::exists(entry.path() / "request.ini")) names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

GenerateBillRequest SampleRequest(const std::filesystem::path& folder) {
    GenerateBillRequest request = ClearedRequest();
    const CIniFile ini = LoadIniFile((folder / "request.ini").string()).file;
    request.StatementFormat = ini.Integer("REQUEST", "format", 0);
    request.StatementKind = ini.Text("REQUEST", "kind") == "foreign" ? kForeignKind : 1;
    CopyField(request.TemplateName, ini.Text("REQUEST", "template"));
    return request;
}

std::vector<SampleDay> RepeatSample(const std::filesystem::path& folder, std::size_t leastDays) {
    std::vector<SampleDay> originals;
    CFileBuffer buffer;
    for (const auto& path : StatementsIn(folder / "root")) {
        const std::string name = path.filename().string();
        originals.push_back(
            {name.substr(name.find('.') + 1, kDayLength), std::string(ReadWholeFile(path, buffer).bytes)});
    }
    std::vector<SampleDay> all;
    for (int round = 0; all.size() < leastDays; ++round) {
        for (const SampleDay& own : originals) {
            const std::string day = DayInRound(own.day, round);
            all.push_back({day, Redated(own.text, own.day, day)});
        }
    }
    return all;
}

}  // namespace tradebill
