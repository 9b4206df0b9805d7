// What a host asks of a report, as the options that a request is made of.
#pragma once

#include <string>

#include "hosts/tradebill.h"
#include "requests/report_options.h"

namespace tradebill {

/// What is asked beside the options.
struct HostRequest {
    ReportOptions options;
    std::string outFolder;  ///< absolute; empty: beside the statements
    int waitSeconds = 0;
    int tradingDays = 0;
    TradeBillProgressFunction progress = nullptr;
    void* context = nullptr;
};

/// Takes the fields that lie within the request's size. Throws CUsageError for a value that can't be meant so; those
/// that options check are left to them.
[[nodiscard]] HostRequest HostRequestOf(const TradeBillRequest& given);

/// Whether `size` is that of a request of any age: it reaches behind the root.
[[nodiscard]] bool IsRequestSize(std::uint32_t size);

/// Words on options as a host knows them: "--account" becomes "AccountUtf8".
[[nodiscard]] std::string InHostsWords(std::string text);

}  // namespace tradebill
