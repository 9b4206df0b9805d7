// Any bytes as a host's request: the copy of it is within its bounds whatever stands in it, and a run of few days over
// an account without statements comes to its end.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/report_error.h"
#include "base/text.h"
#include "driver/report_days.h"
#include "driver/report_request.h"
#include "driver/report_run.h"
#include "fuzz_target.h"
#include "report/record_fields.h"
#include "report/report.h"
#include "report/request_copy.h"

namespace tradebill {
namespace {

constexpr int kMostDays = 40;

std::int32_t AnyUnit(const char* /*account*/, const char* /*contract*/, const char* /*delivery*/) {
    return -1;
}

template <std::size_t N>
void TakeField(char (&field)[N], CFuzzInput& input) {
    const std::string_view text = input.Text();
    std::memcpy(field, text.data(), std::min(text.size(), N));  // a full field has no terminator
}

void TakeMoney(MoneyRecord& money, CFuzzInput& input) {
    for (const auto& field : kMoneyFields) {
        const std::string_view text = input.Text();
        const auto bytes = field.bytes(money);
        std::memcpy(bytes.data(), text.data(), std::min(text.size(), bytes.size()));
    }
    money.EXCHANGE_RATE = input.Amount();
}

/// Handles and callbacks are the host's own: they are right or null.
void TakeRequest(GenerateBillRequest& request, CFuzzInput& input) {
    request.Dpi = input.Integer();
    request.StatementFormat = input.Integer();
    request.StatementKind = static_cast<std::int32_t>(input.Choice(3));
    request.MarginOffsetFlag = static_cast<std::int32_t>(input.Choice(3));
    request.CurrencyCount = static_cast<std::int8_t>(input.Byte());
    request.ContractUnitCallback = input.Choice(2) == 1 ? AnyUnit : nullptr;
    TakeField(request.StartDate, input);
    TakeField(request.EndDate, input);
    TakeField(request.Account, input);
    TakeField(request.UserFolder, input);
    TakeField(request.TemplateName, input);
    TakeMoney(request.BaseMoney, input);
    for (std::size_t i = 0; !input.IsEmpty() && i < std::size(request.CurrencyMoney); ++i) {
        TakeMoney(request.CurrencyMoney[i], input);
    }
}

template <std::size_t N>
bool IsEnded(const char (&field)[N]) {
    return std::memchr(field, '\0', N) != nullptr;
}

bool IsEnded(const MoneyRecord& money) {
    return std::ranges::all_of(kMoneyFields, [&](const auto& field) {
        const auto bytes = field.bytes(const_cast<MoneyRecord&>(money));  // only looked at
        return std::ranges::find(bytes, '\0') != bytes.end();
    });
}

void RequireCopy(const GenerateBillRequest& copy) {
    Require(IsEnded(copy.StartDate) && IsEnded(copy.EndDate) && IsEnded(copy.Account) && IsEnded(copy.UserFolder) &&
                IsEnded(copy.TemplateName) && IsEnded(copy.BaseMoney),
            "every text of a copy is terminated");
    Require(std::ranges::all_of(copy.CurrencyMoney, [](const MoneyRecord& money) { return IsEnded(money); }),
            "every text of a currency is terminated");
    Require(copy.CurrencyCount >= 0 && copy.CurrencyCount <= kCurrencyMoneyCapacity, "currencies are 0 to 100");
}

std::optional<ReportRange> DaysOf(const GenerateBillRequest& request) {
    try {
        return ReportDaysOf(request);
    } catch (const CReportError&) {
        return std::nullopt;
    }
}

const std::string& Root() {
    static const std::string root = [] {
        std::filesystem::create_directories(FuzzFolder() + "/empty/Users");
        return FuzzFolder() + "/empty";
    }();
    return root;
}

void RequireEnd(const GenerateBillRequest& request, const std::optional<ReportRange>& days) {
    CReport report;
    report.RootFolder = Root();
    const RunResult result = ReadStatements(report, request, nullptr);
    if (!days) {
        Require(!result.problems.IsEmpty(), "a date that is none is told");
        return;
    }
    Require(result.end == RunEnd::Finished || !result.problems.IsEmpty(), "a run without statements comes to its end");
    Require(result.statementsRead == 0, "there is nothing to read");
}

}  // namespace

void FuzzHost(std::string_view bytes) {
    CFuzzInput input(bytes);
    GenerateBillRequest request = ClearedRequest();
    TakeRequest(request, input);
    const GenerateBillRequest copy = CopyRequest(request);
    RequireCopy(copy);
    const std::optional<ReportRange> days = DaysOf(copy);
    if (!days || CountDays(*days) <= kMostDays) RequireEnd(request, days);
}

}  // namespace tradebill
