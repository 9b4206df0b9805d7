#include "batch/account_result.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "report/account_key.h"

namespace tradebill {
namespace {

using Json = nlohmann::ordered_json;

struct NamedStatus {
    AccountStatus status;
    std::string_view name;
};

constexpr NamedStatus kStatuses[] = {
    {AccountStatus::Ok, "ok"},           {AccountStatus::Findings, "findings"}, {AccountStatus::Failed, "failed"},
    {AccountStatus::Crashed, "crashed"}, {AccountStatus::TimedOut, "timeout"},
};

struct NamedCount {
    const char* name;
    std::int64_t AccountResult::*count;
};

// clang-format off
constexpr NamedCount kCounts[] = {
    {"statements", &AccountResult::statements},
    {"trades",     &AccountResult::trades},
    {"closed",     &AccountResult::closed},
    {"positions",  &AccountResult::positions},
    {"errors",     &AccountResult::errors},
    {"warnings",   &AccountResult::warnings},
    {"notes",      &AccountResult::notes},
    {"peakMemory", &AccountResult::peakMemory},
};
// clang-format on

struct NamedFigure {
    const char* name;
    std::optional<double> AccountResult::*figure;
};

// clang-format off
constexpr NamedFigure kFigures[] = {
    {"equity",    &AccountResult::equity},
    {"pl",        &AccountResult::pl},
    {"drawdown",  &AccountResult::drawdown},
    {"marginUse", &AccountResult::marginUse},
};
// clang-format on

struct NamedText {
    const char* name;
    std::string AccountResult::*text;
};

// clang-format off
constexpr NamedText kTexts[] = {
    {"reason",   &AccountResult::reason},
    {"firstDay", &AccountResult::firstDay},
    {"lastDay",  &AccountResult::lastDay},
    {"options",  &AccountResult::options},
    {"inputs",   &AccountResult::inputs},
    {"version",  &AccountResult::version},
};
// clang-format on

/// Throws Json's own error for what is missing or of another type.
AccountResult ResultOf(const Json& line) {
    AccountResult result;
    line.at("user").get_to(result.account.user);
    line.at("account").get_to(result.account.account);
    const std::string kind = line.at("kind");
    result.account.isForeign = kind == KindName(true);
    const std::string status = line.at("status");
    const auto* const known = std::ranges::find(kStatuses, status, &NamedStatus::name);
    if (known == std::end(kStatuses) || kind != KindName(result.account.isForeign)) {
        throw nlohmann::json::other_error::create(501, "no status or kind", &line);
    }
    result.status = known->status;
    for (const NamedText& text : kTexts) line.at(text.name).get_to(result.*text.text);
    for (const NamedCount& count : kCounts) line.at(count.name).get_to(result.*count.count);
    for (const NamedFigure& figure : kFigures) {
        const Json& value = line.at(figure.name);
        if (!value.is_null()) result.*figure.figure = value.get<double>();
    }
    line.at("seconds").get_to(result.seconds);
    line.at("worst").get_to(result.worst);
    line.at("outputs").get_to(result.outputs);
    return result;
}

}  // namespace

std::string_view StatusName(AccountStatus status) {
    return std::ranges::find(kStatuses, status, &NamedStatus::status)->name;
}

std::string ResultLine(const AccountResult& result) {
    Json line = {{"user", result.account.user},
                 {"account", result.account.account},
                 {"kind", KindName(result.account.isForeign)},
                 {"status", StatusName(result.status)}};
    for (const NamedFigure& figure : kFigures) {
        const std::optional<double>& value = result.*figure.figure;
        line[figure.name] = value ? Json(*value) : Json();
    }
    for (const NamedCount& count : kCounts) line[count.name] = result.*count.count;
    line["worst"] = result.worst;
    line["seconds"] = result.seconds;
    for (const NamedText& text : kTexts) line[text.name] = result.*text.text;
    line["outputs"] = result.outputs;
    return line.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::optional<AccountResult> ParseResultLine(std::string_view line) {
    const Json parsed = Json::parse(line, nullptr, false);
    if (!parsed.is_object()) return std::nullopt;
    try {
        return ResultOf(parsed);
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

}  // namespace tradebill
