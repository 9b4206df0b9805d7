#include "hosts/host_request.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "analysis/analysis.h"
#include "hosts/tradebill.h"
#include "platform/paths.h"
#include "requests/out_folder.h"
#include "requests/report_options.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

using Text = const char* TradeBillRequest::*;
using Setting = std::optional<std::string> ReportOptions::*;

constexpr std::int32_t kLongestWait = 24 * 60 * 60;
constexpr std::int32_t kDaysOfAYear = 366;

/// A text of the request. Names and paths come as UTF-8, and are what the system makes of it.
struct TextSetting {
    Text text;
    Setting setting;
    bool isPath;
    std::string_view option;  ///< as messages on options name it
    std::string_view field;
};

// clang-format off
constexpr TextSetting kTexts[] = {
    {&TradeBillRequest::RootUtf8,         &ReportOptions::root,         true,  "--root",          "RootUtf8"},
    {&TradeBillRequest::UserUtf8,         &ReportOptions::user,         true,  "--user",          "UserUtf8"},
    {&TradeBillRequest::AccountUtf8,      &ReportOptions::account,      true,  "--account",       "AccountUtf8"},
    {&TradeBillRequest::From,             &ReportOptions::from,         false, "--from",          "From"},
    {&TradeBillRequest::To,               &ReportOptions::to,           false, "--to",            "To"},
    {&TradeBillRequest::Today,            &ReportOptions::today,        false, "--today",         "Today"},
    {&TradeBillRequest::Format,           &ReportOptions::format,       false, "--format",        "Format"},
    {&TradeBillRequest::Kind,             &ReportOptions::kind,         false, "--kind",          "Kind"},
    {&TradeBillRequest::TemplateUtf8,     &ReportOptions::templateName, true,  "--template",      "TemplateUtf8"},
    {&TradeBillRequest::RequestUtf8,      &ReportOptions::requestFile,  true,  "--request",       "RequestUtf8"},
    {&TradeBillRequest::UnitsUtf8,        &ReportOptions::unitFile,     true,  "--units",         "UnitsUtf8"},
    {&TradeBillRequest::ProductsUtf8,     &ReportOptions::productFile,  true,  "--products",      "ProductsUtf8"},
    {&TradeBillRequest::LiveUtf8,         &ReportOptions::liveFile,     true,  "--live",          "LiveUtf8"},
    {&TradeBillRequest::LargestStatement, &ReportOptions::maxStatement, false, "--max-statement", "LargestStatement"},
};
// clang-format on

/// Other words of messages.
struct OtherWord {
    std::string_view option;
    std::string_view field;
};
constexpr OtherWord kOtherWords[] = {{"--dpi", "Dpi"}, {"margin_offset", "OffsetsMargins"}, {"--out", "OutUtf8"}};

void Replace(std::string& text, std::string_view word, std::string_view by) {
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + by.size())) {
        text.replace(at, word.size(), by);
    }
}

/// A number as an option, unless it is 0.
std::optional<std::string> NumberSetting(std::int32_t number) {
    return number == 0 ? std::nullopt : std::optional(std::to_string(number));
}

/// A host has no standard input to read: a file of that name is meant.
std::string FileOf(const std::string& path) {
    return path == "-" ? "./-" : path;
}

void RequireWithin(const std::string& field, std::int32_t number, std::int32_t most) {
    if (number >= 0 && number <= most) return;
    throw CUsageError(field + ": expected 0 to " + std::to_string(most) + ", found " + std::to_string(number));
}

}  // namespace

bool IsRequestSize(std::uint32_t size) {
    return size >= offsetof(TradeBillRequest, UserUtf8);
}

HostRequest HostRequestOf(const TradeBillRequest& given) {
    TradeBillRequest request{};
    std::memcpy(&request, &given, std::min<std::size_t>(given.Size, sizeof request));
    HostRequest asked{
        .options = {},
        .outFolder = {},
        .waitSeconds = request.WaitSeconds,
        .tradingDays = request.TradingDays == 0 ? static_cast<int>(kUsualTradingDays) : request.TradingDays,
        .progress = request.Progress,
        .context = request.Context};
    for (const TextSetting& text : kTexts) {
        const char* const value = request.*text.text;
        if (value == nullptr) continue;
        asked.options.*text.setting = text.isPath ? PathOfUtf8(value) : std::string(value);
    }
    if (asked.options.requestFile) asked.options.requestFile = FileOf(*asked.options.requestFile);
    asked.options.dpi = NumberSetting(request.Dpi);
    asked.options.marginOffset = NumberSetting(request.OffsetsMargins);
    if (request.OutUtf8 != nullptr) asked.outFolder = OutFolderOf(PathOfUtf8(request.OutUtf8));
    RequireWithin("WaitSeconds", request.WaitSeconds, kLongestWait);
    RequireWithin("TradingDays", request.TradingDays, kDaysOfAYear);
    return asked;
}

std::string InHostsWords(std::string text) {
    for (const TextSetting& word : kTexts) Replace(text, word.option, word.field);
    for (const OtherWord& word : kOtherWords) Replace(text, word.option, word.field);
    return text;
}

}  // namespace tradebill
