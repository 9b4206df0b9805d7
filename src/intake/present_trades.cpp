#include "intake/present_trades.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "intake/opening_trades.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "report/statement_name.h"

namespace tradebill {

CPresentTrades::CPresentTrades(std::string folder) : folder_(std::move(folder)) {}

std::optional<std::string> CPresentTrades::DayOf(const std::string& account, const OpeningTrade& trade,
                                                 const std::string& day) {
    const Account& known = AccountOf(account);
    if (!known.failure.empty()) failedAccount_ = account;
    return known.trades.DayOf(trade, day);
}

void CPresentTrades::OnWritten(const std::string& account, const std::string& day, std::string_view text) {
    const auto known = accounts_.find(account);
    if (known != accounts_.end()) known->second.trades.SetDay(day, text);
}

void CPresentTrades::OnPlanned(const std::string& account, const std::string& day, std::string_view text) {
    AccountOf(account).trades.SetDay(day, text);
}

std::string CPresentTrades::TakeFailure() {
    const auto failed = accounts_.find(std::exchange(failedAccount_, {}));
    if (failed == accounts_.end()) return {};
    std::string failure = std::move(failed->second.failure);
    accounts_.erase(failed);
    return failure;
}

CPresentTrades::Account& CPresentTrades::AccountOf(const std::string& name) {
    const auto [known, isNew] = accounts_.try_emplace(name);
    if (isNew) known->second.failure = ReadTrades(name, known->second.trades);
    return known->second;
}

/// Returns what can't be read; empty if all can. Nothing lies in a folder that isn't there.
std::string CPresentTrades::ReadTrades(const std::string& account, COpeningTrades& trades) {
    const auto failureAt = [](const std::string& path, const std::string& reason) {
        return "can't read what is at " + Utf8Path(path) + (reason.empty() ? "" : ": " + reason);
    };
    ForgetSystemError();
    const auto names = NamesIn(folder_);
    if (!names) {
        const std::string reason = SystemErrorText(LastSystemError());
        return MayBeFolder(folder_) ? failureAt(folder_, reason) : std::string();
    }
    for (const std::string& name : *names) {
        const auto parts = PartsOfStatementName(name);
        if (!parts || parts->isForeign || parts->account != account || parts->ending != kFinishedEnding) continue;
        const std::string path = folder_ + "/" + name;
        const FileContent content = ReadWholeFile(path, buffer_);
        if (content.state == FileState::Unreadable) return failureAt(path, content.reason);
        if (content.state == FileState::Read) trades.SetDay(parts->day, content.bytes);
    }
    return {};
}

}  // namespace tradebill
