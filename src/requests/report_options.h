// What a report is asked for: options, the keys of a request file, and the request made of both.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/day.h"
#include "driver/present_day.h"
#include "driver/report_request.h"
#include "export/run_json.h"
#include "readers/statement_limit.h"
#include "report/request_copy.h"
#include "requests/product_tables.h"

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

    /// Those that count where neither these nor the request file say anything; may be null.
    std::shared_ptr<const ReportOptions> configured = nullptr;
};

/// Options with what files say of those that aren't given.
struct SettledOptions {
    ReportOptions options;  ///< the root is a folder that is there
    PresentDay present = {};
    std::optional<CalendarDay> from = {};  ///< of the report
    std::optional<CalendarDay> to = {};
    std::vector<InputRead> inputs = {};  ///< the request file
};

/// Throws CUsageError and CUnreadableInput.
[[nodiscard]] SettledOptions Settle(const ReportOptions& given);

/// Whether accounts that share options may have some of their own, such as a root and a template.
enum class OwnOptions { None, Some };

/// Checks what can be known to be wrong with options that many accounts share, whichever they are. Throws CUsageError
/// and CUnreadableInput.
void CheckSharedOptions(const ReportOptions& given, OwnOptions own);

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
