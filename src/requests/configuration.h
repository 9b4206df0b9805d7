// The user's file of what is typed every day: options that count where nothing else says them.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "requests/report_options.h"

namespace tradebill {

/// tradebill/config.ini in the folder of the user's settings; empty if the user has no such folder.
[[nodiscard]] std::string UsualConfigurationPath();

/// The options of the file `given`, of none at all if that is "none"; without it, of the usual file, if it is there. It
/// is UTF-8 with a section [OPTIONS] of the keys root, user, units, products and max_statement. Relative paths start at
/// the file's own folder,
/// "~/" at the user's. Null if there is no file. Throws as LoadInputIni, and CUsageError with the line of a key that
/// isn't known.
[[nodiscard]] std::shared_ptr<const ReportOptions> LoadConfiguration(const std::optional<std::string>& given);

}  // namespace tradebill
