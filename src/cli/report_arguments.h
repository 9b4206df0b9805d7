// The options that say what a report is of, as commands declare them.
#pragma once

#include <memory>
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

/// Declares --config. Once the command line is parsed, `configured` holds the options of the user's configuration, if
/// there is one. It must live until then; parsing throws as LoadConfiguration.
void DeclareConfiguration(CLI::App& command, std::shared_ptr<const ReportOptions>& configured);

/// Declares --max-statement on `command`.
void DeclareStatementLimit(CLI::App& command, std::optional<std::string>& given);

}  // namespace tradebill
