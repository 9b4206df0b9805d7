#include "cli/batch_progress.h"

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "batch/account_result.h"
#include "batch/batch_run.h"
#include "cli/shown_text.h"
#include "platform/terminal.h"
#include "requests/kept_accounts.h"

namespace tradebill {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::string_view kEraseLine = "\r\x1B[K";

std::string TimeText(double seconds) {
    constexpr std::int64_t kMinute = 60;
    constexpr std::int64_t kHour = 3600;
    const auto whole = static_cast<std::int64_t>(seconds + 0.5);
    char text[48];
    if (whole < kHour) {
        std::snprintf(text, sizeof text, "%d:%02d", static_cast<int>(whole / kMinute),
                      static_cast<int>(whole % kMinute));
    } else {
        std::snprintf(text, sizeof text, "%lld:%02d:%02d", static_cast<long long>(whole / kHour),
                      static_cast<int>(whole % kHour / kMinute), static_cast<int>(whole % kMinute));
    }
    return text;
}

std::string RateText(double rate) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", rate);
    return text;
}

}  // namespace

std::string BatchProgressText(const BatchCounts& counts, double seconds) {
    std::string text = "done " + std::to_string(counts.kept + counts.done) + " of " + std::to_string(counts.accounts) +
                       ", " + std::to_string(counts.failed) + " failed";
    if (counts.done == 0 || seconds <= 0) return text;
    const double rate = static_cast<double>(counts.done) / seconds;
    text += ", " + RateText(rate) + " accounts/s";
    return counts.Left() == 0 ? text : text + ", " + TimeText(static_cast<double>(counts.Left()) / rate) + " left";
}

CBatchProgress::CBatchProgress(bool quiet)
    : isQuiet_(quiet), isTerminal_(IsErrorOutputTerminal()), begun_(Clock::now()), shown_(begun_) {}

CBatchProgress::~CBatchProgress() {
    TakeAway();
}

bool CBatchProgress::IsDue(bool isLast) {
    constexpr auto kOnTerminal = std::chrono::milliseconds(200);
    constexpr auto kElsewhere = std::chrono::seconds(30);
    const auto now = Clock::now();
    const auto wait = isTerminal_ ? Clock::duration(kOnTerminal) : Clock::duration(kElsewhere);
    if (isQuiet_ || (now - shown_ < wait && !(isLast && isTerminal_))) return false;
    shown_ = now;
    return true;
}

void CBatchProgress::Show(const std::string& text) {
    if (!isTerminal_) {
        std::cerr << "tradebill: " << text << "\n";
        return;
    }
    TakeAway();
    std::cerr << text << std::flush;
    isShown_ = true;
}

void CBatchProgress::TakeAway() {
    if (!isShown_) return;
    SendOrders(std::cerr, kEraseLine);
    std::cerr << std::flush;
    isShown_ = false;
}

void CBatchProgress::OnChecked(std::int64_t checked, std::int64_t toCheck) {
    if (IsDue(false)) Show("looked through " + std::to_string(checked) + " of " + std::to_string(toCheck));
    begun_ = Clock::now();
}

void CBatchProgress::OnAccount(const AccountResult& result, const std::vector<std::string>& told,
                               const BatchCounts& counts) {
    const std::string name = "tradebill: " + AccountOptions(result.account) + ": ";
    const bool hasNews = !told.empty() || !result.reason.empty();
    if (hasNews) TakeAway();
    for (const std::string& line : told) std::cerr << name << "warning: " << ShownText(line) << "\n";
    if (!result.reason.empty())
        std::cerr << name << StatusName(result.status) << ": " << ShownText(result.reason) << "\n";
    const double seconds = std::chrono::duration<double>(Clock::now() - begun_).count();
    if (IsDue(counts.Left() == 0) || (hasNews && isTerminal_ && !isQuiet_)) Show(BatchProgressText(counts, seconds));
}

}  // namespace tradebill
