// What a report is asked for: options of the command line, the keys of a request file, and the request made of both.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/product_tables.h"
#include "driver/present_day.h"
#include "driver/report_request.h"
#include "export/run_json.h"
#include "readers/statement_limit.h"
#include "report/request_copy.h"

namespace CLI {
class App;
}

namespace tradebill {

/// Each as it was given, or nothing.
struct ReportOptions {
    std::optional<std::string> root;
    std::optional<std::string> user;
    std::optional<std::string> account;
    std::optional<std::string> from;
    std::optional<std::string> to;
    std::optional<std::string> today;  ///< the day that counts as the present one
    std::optional<std::string> format;
    std::optional<std::string> kind;
    std::optional<std::string> templateName;
    std::optional<std::string> dpi;
    std::optional<std::string> marginOffset;  ///< "0" or "1"
    std::optional<std::string> requestFile;
    std::optional<std::string> unitFile;  ///< or "none"
    std::optional<std::string> productFile;
    std::optional<std::string> liveFile;
    std::optional<std::string> maxStatement;  ///< "512M"
};

/// Declares the options on `command`; they are stored in `options` when the command line is parsed.
void DeclareReportOptions(CLI::App& command, ReportOptions& options);

/// A request that is ready to run, and what the user should know about it.
struct PreparedRequest {
    GenerateBillRequest request = ClearedRequest();
    std::string rootFolder;
    StatementLimit statementLimit = {};
    std::unique_ptr<CProductTables> products = std::make_unique<CProductTables>();  ///< never null
    std::vector<InputRead> inputs;                                                  ///< the files that it is made of
    std::vector<std::string> warnings;
    std::vector<std::string> notes;  ///< what was chosen for the user
    PresentDay present = {};
    std::string_view carriedTemplate = {};  ///< text of the request's template, unless the root has one of its name
};

/// Checks everything and fills a request. What the command line doesn't say is taken from the request file, and what
/// that doesn't say either is found: the only account below the root, the first and last day of its statements, and the
/// format by their marks. Throws CUsageError, where there are several with a list of them, and CUnreadableInput.
[[nodiscard]] PreparedRequest PrepareRequest(const ReportOptions& given);

/// Throws CUsageError if the request goes by a template that isn't there, and CUnreadableInput if it can't be read.
void RequireTemplate(const PreparedRequest& prepared);

}  // namespace tradebill
