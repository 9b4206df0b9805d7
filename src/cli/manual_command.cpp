#include "cli/manual_command.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <system_error>

#include "base/day.h"
#include "cli/command_table.h"
#include "cli/manual_pages.h"
#include "cli/program_outline.h"
#include "cli/voice.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

std::string EditionDate() {
    constexpr const char* kVariable = "SOURCE_DATE_EPOCH";
    const char* const told = std::getenv(kVariable);
    if (told == nullptr) return TRADEBILL_VERSION_DATE;
    const auto date = DateOfEpoch(told);
    if (!date) throw CUsageError(std::string(kVariable) + ": expected seconds since 1970, found \"" + told + "\"");
    return *date;
}

}  // namespace

std::optional<std::string> DateOfEpoch(const std::string& seconds) {
    constexpr std::int64_t kLatest = 253402300799;  // the last second of the year 9999
    std::int64_t number = 0;
    const char* const end = seconds.data() + seconds.size();
    const auto [behind, error] = std::from_chars(seconds.data(), end, number);
    if (error != std::errc{} || behind != end || number < 0 || number > kLatest) return std::nullopt;
    const std::chrono::year_month_day day{std::chrono::sys_days(std::chrono::days(number / kSecondsPerDay))};
    return DashedDayText({.year = static_cast<int>(day.year()),
                          .month = static_cast<int>(static_cast<unsigned>(day.month())),
                          .day = static_cast<int>(static_cast<unsigned>(day.day()))});
}

int RunManual(const std::string& folder) {
    const ManualEdition edition{.version = TRADEBILL_VERSION, .date = EditionDate()};
    if (!MakeFolders(folder)) return Fail("can't make the folder " + folder);
    for (const ManualPage& page : ManualPages(OutlineOfProgram(), edition)) {
        const std::string path = folder + "/" + page.name + ".1";
        if (!SaveInOneStep(path, [&page](CFile& file) { return file.Write(page.text); }))
            return Fail("can't write " + path);
    }
    return kExitDone;
}

CommandRun DeclareManual(CLI::App& app) {
    const auto folder = std::make_shared<std::string>();
    app.group("");  // not in the help
    app.add_option("DIR", *folder)->required();
    return [folder] { return RunManual(*folder); };
}

}  // namespace tradebill
