// The options that say what a report is of, each with the name that it has in files. A table, so that request files,
// manifests and commands that are shown to the user know the same ones.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "requests/report_options.h"

namespace tradebill {

/// How the user's configuration says it.
enum class Configured {
    Never,
    AsText,
    AsPath,        ///< below the file's own folder
    AsPathOrNone,  ///< the same, or the word "none"
};

struct ReportSetting {
    std::string_view key;     ///< in files
    std::string_view option;  ///< on the command line
    std::optional<std::string> ReportOptions::*value;
    bool isOfRequest;  ///< a request file may say it
    bool isOfReading;  ///< it changes what is read, and with that what is found
    Configured configured = Configured::Never;
};

// clang-format off
inline constexpr ReportSetting kReportSettings[] = {
    {"root",          "--root",          &ReportOptions::root,         false, true, Configured::AsPath},
    {"request",       "--request",       &ReportOptions::requestFile,  false, true},
    {"user",          "--user",          &ReportOptions::user,         true,  true, Configured::AsText},
    {"account",       "--account",       &ReportOptions::account,      true,  true},
    {"from",          "--from",          &ReportOptions::from,         true,  true},
    {"to",            "--to",            &ReportOptions::to,           true,  true},
    {"today",         "--today",         &ReportOptions::today,        false, true},
    {"format",        "--format",        &ReportOptions::format,       true,  true},
    {"kind",          "--kind",          &ReportOptions::kind,         true,  true},
    {"template",      "--template",      &ReportOptions::templateName, true,  true},
    {"dpi",           "--dpi",           &ReportOptions::dpi,          true,  false},
    {"margin_offset", "--margin-offset", &ReportOptions::marginOffset, true,  false},
    {"units",         "--units",         &ReportOptions::unitFile,     false, true, Configured::AsPathOrNone},
    {"products",      "--products",      &ReportOptions::productFile,  false, true, Configured::AsPath},
    {"live",          "--live",          &ReportOptions::liveFile,     false, true},
    {"max_statement", "--max-statement", &ReportOptions::maxStatement, false, true, Configured::AsText},
};
// clang-format on

}  // namespace tradebill
