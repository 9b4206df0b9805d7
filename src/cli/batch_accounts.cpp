#include "cli/batch_accounts.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <iterator>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/day.h"
#include "base/utf8.h"
#include "batch/account_work.h"
#include "batch/manifest.h"
#include "batch/shard.h"
#include "cli/batch_making.h"
#include "cli/shown_text.h"
#include "driver/present_day.h"
#include "driver/request_names.h"
#include "platform/paths.h"
#include "report/account_key.h"
#include "report/request_copy.h"
#include "requests/account_files.h"
#include "requests/format_choice.h"
#include "requests/input_file.h"
#include "requests/kept_accounts.h"
#include "requests/report_options.h"
#include "requests/report_settings.h"
#include "requests/standard_input.h"
#include "requests/untold_options.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

using Settings = std::map<std::string, std::string>;

std::vector<std::string_view> ManifestColumns() {
    std::vector<std::string_view> columns;
    std::ranges::transform(kReportSettings, std::back_inserter(columns), &ReportSetting::key);
    return columns;
}

/// Looks for the accounts of each user once, whoever asks: a folder may hold the statements of thousands of accounts.
class CUserAccounts {
public:
    std::vector<KeptAccount> Find(const std::string& root, const WantedAccount& wanted, const CalendarDay& present) {
        const auto [place, isNew] = found_.try_emplace({root, wanted.user});
        Found& found = place->second;
        if (isNew) Look(root, wanted.user, present, found);
        if (!found.failure.empty()) throw CUsageError(found.failure);
        std::vector<KeptAccount> accounts;
        const auto take = [&](const KeptAccount& account) {
            if (IsWanted(account.key, wanted)) accounts.push_back(account);
        };
        if (wanted.account) {
            for (const bool isForeign : {false, true}) {
                const auto one = found.byNumber.find({*wanted.account, isForeign});
                if (one != found.byNumber.end()) std::ranges::for_each(one->second, take);
            }
        } else {
            for (const auto& [number, same] : found.byNumber) std::ranges::for_each(same, take);
        }
        return accounts;
    }

private:
    struct Found {
        std::map<std::pair<std::string, bool>, std::vector<KeptAccount>> byNumber;
        std::string failure;
    };

    static void Look(const std::string& root, const std::optional<std::string>& user, const CalendarDay& present,
                     Found& found) {
        try {
            for (KeptAccount& account : FindKeptAccounts(root, {.user = user}, present)) {
                found.byNumber[{account.key.account, account.key.isForeign}].push_back(std::move(account));
            }
        } catch (const CUnreadableInput& error) {
            found.failure = error.what();
        }
    }

    std::map<std::pair<std::string, std::optional<std::string>>, Found> found_;
};

/// Why names can't be those of an account; empty if they can.
std::string WhyNoAccount(const ReportOptions& options) {
    const auto why = [](const char* option, const std::string& name) {
        const std::string_view reason = name.empty() ? "is empty" : WhyNoName(Utf8Path(name));
        return reason.empty()
                   ? std::string()
                   : std::string(option) + ": expected a name, found \"" + name + "\", which " + std::string(reason);
    };
    std::string ofUser = why("user", *options.user);
    return ofUser.empty() ? why("account", *options.account) : ofUser;
}

/// What a worker has to know to make the account of `options`, whose user and account are told.
AccountWork WorkOf(const ReportOptions& options, Settings settings) {
    AccountWork work{.account = {.user = Utf8Path(*options.user),
                                 .account = Utf8Path(*options.account),
                                 .isForeign = options.kind == KindName(true)},
                     .settings = std::move(settings)};
    for (const char* const key : {"user", "account", "kind", "from", "to"}) {
        const auto* const setting = std::ranges::find(kReportSettings, std::string_view(key), &ReportSetting::key);
        const auto& value = options.*setting->value;
        if (value) work.settings[key] = Utf8Path(*value);
    }
    if (!IsUtf8(work.account.user) || !IsUtf8(work.account.account)) {
        work.account.user = ShownText(work.account.user);
        work.account.account = ShownText(work.account.account);
        work.refusal = "its name isn't UTF-8";
    }
    return work;
}

/// Reads a manifest row by row.
class CManifestReading {
public:
    CManifestReading(const ReportOptions& given, const Shard& shard) : given_(given), shard_(shard) {}

    void OnRow(std::size_t line, std::span<const ManifestCell> cells) {
        Settings settings;
        for (const ManifestCell& cell : cells) settings[std::string(cell.column)] = std::string(cell.text);
        if (settings.contains("request") && settings["request"] == kStandardStream) {
            Refuse(line, "request: expected a file, found \"-\"");
        }
        const bool isKindTold = given_.kind.has_value() || settings.contains("kind");
        AccountWork work = Resolved(line, std::move(settings));
        // Which kind is found may change with what lies in a folder, and the account would move to another task.
        const AccountKey shardKey = isKindTold ? work.account : AccountKey{work.account.user, work.account.account};
        const auto [place, isNew] = lines_.emplace(work.account, line);
        if (!isNew) {
            Refuse(line, "the account " + AccountOptions(work.account) + " stands in line " +
                             std::to_string(place->second) + " already");
        }
        if (shard_.Has(shardKey)) accounts_.push_back(std::move(work));
    }

    [[nodiscard]] bool HasRows() const { return !lines_.empty(); }
    [[nodiscard]] std::vector<AccountWork> Take() { return std::move(accounts_); }

private:
    [[noreturn]] static void Refuse(std::size_t line, const std::string& why) {
        throw CUsageError("--manifest: line " + std::to_string(line) + ": " + why);
    }

    static void CheckKind(std::size_t line, const ReportOptions& options) {
        try {
            static_cast<void>(KindNumber(options.kind));
        } catch (const CUsageError& error) {
            Refuse(line, error.what());
        }
    }

    /// The kind of an account whose row tells all else of it: foreign, if it has foreign statements alone.
    void FindKind(ReportOptions& options, const PresentDay& present) {
        if (options.kind || !options.user || !options.account) return;
        const WantedAccount wanted{.user = options.user, .account = options.account};
        const auto accounts = users_.Find(*options.root, wanted, present.day);
        if (accounts.size() == 1 && accounts.front().key.isForeign) options.kind = std::string(KindName(true));
    }

    AccountWork Resolved(std::size_t line, Settings settings) {
        ReportOptions options = OptionsOf(given_, settings);
        std::string refusal;
        CheckKind(line, options);
        try {
            SettledOptions settled = Settle(options);
            options = std::move(settled.options);
            FindKind(options, settled.present);
            FindUntold(options, settled.present,
                       [this](const std::string& root, const WantedAccount& wanted, const CalendarDay& present) {
                           return users_.Find(root, wanted, present);
                       });
        } catch (const std::exception& error) {
            if (!options.user || !options.account) Refuse(line, error.what());
            refusal = error.what();
        }
        if (const std::string why = WhyNoAccount(options); !why.empty()) Refuse(line, why);
        AccountWork work = WorkOf(options, std::move(settings));
        if (!refusal.empty()) work.refusal = std::move(refusal);
        return work;
    }

    const ReportOptions& given_;
    const Shard& shard_;
    CUserAccounts users_;
    std::map<AccountKey, std::size_t> lines_;
    std::vector<AccountWork> accounts_;
};

std::string ManifestText(const std::string& manifest) {
    if (manifest == kStandardStream) return StandardInputText();
    return InputFileText(manifest, "a manifest, as --manifest names it");
}

BatchAccounts ReadAccounts(const std::string& manifest, const ReportOptions& given, const Shard& shard) {
    const std::string text = ManifestText(manifest);
    const std::vector<std::string_view> columns = ManifestColumns();
    CManifestReading reading(given, shard);
    try {
        ReadManifest(text, columns,
                     [&](std::size_t line, std::span<const ManifestCell> cells) { reading.OnRow(line, cells); });
    } catch (const CNoManifest& error) {
        throw CUsageError(std::string("--manifest: ") + error.what());
    }
    if (!reading.HasRows()) throw CUsageError("--manifest: expected accounts, found none in \"" + manifest + "\"");
    return {.accounts = reading.Take()};
}

bool IsInRange(const KeptAccount& account, const SettledOptions& settled) {
    return (!settled.from || ParsePackedDay(account.lastDay) >= *settled.from) &&
           (!settled.to || ParsePackedDay(account.firstDay) <= *settled.to);
}

/// Adds the accounts of a user.
void AddAccountsOf(const std::string& user, const SettledOptions& settled, BatchAccounts& found) {
    WantedAccount wanted{.user = user, .account = settled.options.account};
    if (settled.options.kind) wanted.isForeign = KindNumber(settled.options.kind) == kForeignKind;
    for (const KeptAccount& account : FindKeptAccounts(*settled.options.root, wanted, settled.present.day)) {
        if (!IsInRange(account, settled)) {
            ++found.outOfRange;
            continue;
        }
        ReportOptions options = settled.options;
        options.user = account.key.user;
        options.account = account.key.account;
        options.kind = std::string(KindName(account.key.isForeign));
        if (!options.from) options.from = DashedDayText(ParsePackedDay(account.firstDay));
        if (!options.to) options.to = DashedDayText(ParsePackedDay(account.lastDay));
        found.accounts.push_back(WorkOf(options, {}));
    }
}

/// A link that leads nowhere, as to a volume that isn't mounted, may hide the accounts of a user.
void RequireFolders(std::string folder, const std::string& user) {
    for (const std::string& level : {user, std::string("Data"), std::string("Bill")}) {
        folder.append("/").append(level);
        const bool leadsNowhere = IsLink(folder) && !IsFolder(folder) && !IsPlainFile(folder);
        if (leadsNowhere) throw CUnreadableInput(folder, "it leads nowhere");
    }
}

BatchAccounts DiscoverAccounts(const ReportOptions& given) {
    const SettledOptions settled = Settle(given);
    const std::string& root = *settled.options.root;
    BatchAccounts found;
    for (const std::string& user : settled.options.user ? std::vector{*settled.options.user} : UsersBelow(root)) {
        try {
            RequireFolders(root + "/Users", user);
            AddAccountsOf(user, settled, found);
        } catch (const CUnreadableInput& error) {
            found.unreadable.emplace_back(error.what());
            found.unseenUsers.push_back(Utf8Path(user));
        }
    }
    if (found.accounts.empty() && found.unreadable.empty()) {
        const std::string ofUser = settled.options.user ? " of the user \"" + *settled.options.user + "\"" : "";
        const std::string ofAccount = settled.options.account ? " of the account " + *settled.options.account : "";
        throw CUsageError("--root: expected statements" + ofUser + ofAccount + " below \"" + root +
                          "/Users\", found none" + (found.outOfRange > 0 ? " of these days" : ""));
    }
    return found;
}

}  // namespace

BatchAccounts FindBatchAccounts(const AccountSource& source, const ReportOptions& given, const Shard& shard) {
    if (given.requestFile == kStandardStream) {
        throw CUsageError("--request: expected a file, which is read for each account, found \"-\"");
    }
    if (!source.discovers) return ReadAccounts(*source.manifest, given, shard);
    BatchAccounts found = DiscoverAccounts(given);
    std::erase_if(found.accounts, [&shard](const AccountWork& work) { return !shard.Has(work.account); });
    return found;
}

}  // namespace tradebill
