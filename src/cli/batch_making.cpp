#include "cli/batch_making.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "cli/report_arguments.h"
#include "cli/trading_days.h"
#include "export/sqlite_export.h"
#include "platform/paths.h"
#include "requests/report_options.h"
#include "requests/report_settings.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

struct NamedPart {
    std::string_view name;
    bool MadeParts::*part;
};

constexpr NamedPart kParts[] = {
    {"page", &MadeParts::page},
    {"json", &MadeParts::json},
    {"explore", &MadeParts::explore},
    {"csv", &MadeParts::csv},
};

}  // namespace

MadeParts PartsOf(const std::string& makes) {
    MadeParts parts;
    for (std::string_view rest = makes;;) {
        const std::string_view name = rest.substr(0, rest.find(','));
        const auto* const known = std::ranges::find(kParts, name, &NamedPart::name);
        if (known == std::end(kParts)) {
            throw CUsageError("--make: expected " + OneOf(kParts, [](const NamedPart& part) { return part.name; }) +
                              ", or several with commas between, found \"" + makes + "\"");
        }
        parts.*known->part = true;
        if (name.size() == rest.size()) return parts;
        rest.remove_prefix(name.size() + 1);
    }
}

std::string NamesOf(const MadeParts& parts) {
    std::string names;
    for (const NamedPart& part : kParts) {
        if (parts.*part.part) names.append(names.empty() ? "" : ",").append(part.name);
    }
    return names;
}

void DeclareMaking(CLI::App& app, BatchMaking& making) {
    DeclareReportOptions(app, making.options);
    app.add_option("--make", making.makes,
                   "What is made of each account: page, json, explore, csv (default: page,json)")
        ->type_name("LIST");
    CLI::Option* const sqlite =
        app.add_option("--sqlite", making.sqliteFile, "SQLite database for the tables of all accounts");
    sqlite->type_name("FILE");
    if (!HasSqlite()) sqlite->group("");  // not in the help
    AddTradingDaysOption(app, making.tradingDays);
}

std::vector<std::string> ArgumentsOf(const BatchMaking& making) {
    constexpr std::string_view kFlag = "--margin-offset";
    std::vector<std::string> arguments;
    for (const ReportSetting& setting : kReportSettings) {
        const auto& value = making.options.*setting.value;
        if (!value) continue;
        if (setting.option == kFlag) {
            if (*value == "1") arguments.emplace_back(kFlag);
        } else {
            arguments.push_back(std::string(setting.option) + "=" + Utf8Path(*value));
        }
    }
    arguments.push_back("--make=" + making.makes);
    if (making.sqliteFile) arguments.push_back("--sqlite=" + Utf8Path(*making.sqliteFile));
    arguments.push_back("--trading-days=" + std::to_string(making.tradingDays));
    return arguments;
}

ReportOptions OptionsOf(const ReportOptions& ofBatch, const std::map<std::string, std::string>& settings) {
    ReportOptions options = ofBatch;
    for (const ReportSetting& setting : kReportSettings) {
        const auto found = settings.find(std::string(setting.key));
        if (found != settings.end()) options.*setting.value = PathOfUtf8(found->second);
    }
    return options;
}

}  // namespace tradebill
