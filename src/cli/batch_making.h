// What a batch makes of each account, and how: the options that a batch and its workers have in common.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "analysis/analysis.h"
#include "requests/report_options.h"

namespace CLI {
class App;
}

namespace tradebill {

struct MadeParts {
    bool page = false;     ///< with its pictures
    bool json = false;     ///< kJsonName
    bool explore = false;  ///< kExploreName
    bool csv = false;      ///< kCsvFolderName
};

// Beside the page in an account's folder.
inline constexpr const char* kJsonName = "report.json";
inline constexpr const char* kExploreName = "explore.html";
inline constexpr const char* kCsvFolderName = "csv";

struct BatchMaking {
    ReportOptions options;                         ///< of all accounts, where none of its own says otherwise
    std::string makes = "page,json";               ///< as the user names the parts
    std::optional<std::string> sqliteFile;         ///< for the tables of all accounts
    std::string outFolder;                         ///< of the batch
    std::string databasePath = {};                 ///< of sqliteFile, absolute
    std::int64_t tradingDays = kUsualTradingDays;  ///< of a year
};

/// Declares what a worker is told too, but for the output folder.
void DeclareMaking(CLI::App& app, BatchMaking& making);

/// The same as arguments of a command line, in UTF-8.
[[nodiscard]] std::vector<std::string> ArgumentsOf(const BatchMaking& making);

/// "page,json" in parts. Throws CUsageError.
[[nodiscard]] MadeParts PartsOf(const std::string& makes);

/// The parts in an order of their own: "page,json" whatever the order in which they were named.
[[nodiscard]] std::string NamesOf(const MadeParts& parts);

/// The options of one account: those of the batch, and over them its own settings, whose keys are those of
/// report_settings.h.
[[nodiscard]] ReportOptions OptionsOf(const ReportOptions& ofBatch, const std::map<std::string, std::string>& settings);

}  // namespace tradebill
