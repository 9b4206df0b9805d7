// What a report is asked for: options of the command line, the keys of a request file, and the request made of both.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/product_tables.h"
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
    bool lacksLiveFigures = false;   ///< the report ends today, and has no live figures
};

/// Checks everything and fills a request. What the command line doesn't say is taken from the request file. Throws
/// CUsageError.
[[nodiscard]] PreparedRequest PrepareRequest(const ReportOptions& given);

/// Throws CUsageError if the request goes by a template that isn't there, and CUnreadableInput if it can't be read.
void RequireTemplate(const PreparedRequest& prepared);

}  // namespace tradebill
