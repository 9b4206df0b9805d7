// The report behind the interface's handle: what it is asked, what was read, and what has been said of it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/analysis.h"
#include "driver/report_run.h"
#include "export/run_json.h"
#include "export/table.h"
#include "findings/finding.h"
#include "hosts/host_request.h"
#include "hosts/tradebill.h"
#include "report/report.h"
#include "requests/prepared_run.h"
#include "requests/report_options.h"

namespace tradebill {

class CHostReport {
public:
    /// Makes or reads the report, by `run`. Returns a TradeBillResult; nothing is thrown.
    [[nodiscard]] std::int32_t Run(const TradeBillRequest* request, RunFunction* run) noexcept;

    /// Has `ask` look at a report that is there. Returns a TradeBillResult: that of `ask`, or why it wasn't asked.
    [[nodiscard]] std::int32_t Ask(const std::function<std::int32_t()>& ask) noexcept;

    [[nodiscard]] bool IsBusy() const { return isBusy_; }
    [[nodiscard]] const char* Error() const { return error_; }
    [[nodiscard]] const char* Notes() const { return notes_.c_str(); }
    [[nodiscard]] const char* Page() const { return page_.c_str(); }

    // REQUIRES: the report is there.
    [[nodiscard]] const CReport& Report() const { return *report_; }
    [[nodiscard]] const RunResult& Result() const { return result_; }
    [[nodiscard]] const RunFacts& Facts() const { return facts_; }
    /// Valid until the next run.
    [[nodiscard]] ExportSource Source() const;

private:
    std::int32_t Fail(std::int32_t result, const char* error) noexcept;
    std::int32_t Fail(std::int32_t result, const std::string& error);
    void Empty();
    [[nodiscard]] std::int32_t Guarded(const std::function<std::int32_t()>& work) noexcept;
    [[nodiscard]] std::int32_t RunAsked(const HostRequest& asked, RunFunction* run);

    // Products are asked as long as the report is: they live in the request.
    PreparedRequest prepared_;
    std::unique_ptr<CReport> report_;  // null: none is there
    RunResult result_;
    RunFacts facts_;
    Analysis analysis_;
    std::vector<Finding> findings_;
    std::string errorText_;
    const char* error_ = "";
    std::string notes_;
    std::string page_;
    bool isBusy_ = false;
};

}  // namespace tradebill

/// The handle of the interface.
struct TradeBillReport {
    tradebill::CHostReport report;
};
