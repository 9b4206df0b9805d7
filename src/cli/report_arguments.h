// The options that say what a report is of, as commands declare them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "requests/report_options.h"

namespace CLI {
class App;
}

namespace tradebill {

/// Declares the options on `command`; they are stored in `options` when the command line is parsed. Where `accounts` is
/// given, --account may come several times and is stored there.
void DeclareReportOptions(CLI::App& command, ReportOptions& options, std::vector<std::string>* accounts = nullptr);

/// Declares --max-statement on `command`.
void DeclareStatementLimit(CLI::App& command, std::optional<std::string>& given);

}  // namespace tradebill
