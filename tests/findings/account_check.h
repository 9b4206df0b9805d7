// Checks of made-up accounts: their statements as files of a run, and what is found as "code@day".
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "findings/account_findings.h"
#include "findings/account_maker.h"
#include "findings/account_pages.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "findings/statement_watch.h"
#include "readers/statement_loader.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "statistics/money_identity.h"
#include "support/gbk_text.h"

namespace tradebill {

/// What lies under the name of a day's statement.
struct DayFile {
    std::string day;
    std::string bytes;
    StatementState state = StatementState::Read;
};

/// What a request asks for.
struct AskedLayout {
    int format = 1;
    bool isForeign = false;
    std::string templatePath = {};
};

inline AskedLayout AskedFor(MadeLayout layout) {
    constexpr int kFormats[] = {1, 2, 3};
    return {kFormats[static_cast<std::size_t>(layout)]};
}

/// A run over files that lie in memory.
class CCheckedRun {
public:
    CCheckedRun(const std::vector<DayFile>& files, const AskedLayout& asked, std::string_view account = "90010002") {
        report.Request = ClearedRequest();
        report.Request.StatementFormat = asked.format;
        report.Request.StatementKind = asked.isForeign ? kForeignKind : 1;
        CopyField(report.Request.Account, account);
        report.TemplatePath = asked.templatePath;
        watch.ReadSideRows();
        CStatementLoader loader(report);
        for (const DayFile& file : files) {
            const std::string_view bytes = file.bytes;
            StatementFile found{.state = file.state};
            if (file.state == StatementState::Read) {
                found.bytes = bytes;
                found.text = bytes.substr(0, bytes.find('\0'));
            }
            watch.OnStatement(file.day, "Bill/" + NameFor(file.day), found);
            if (file.state != StatementState::Read) continue;
            loader.Read(file.day, found.text, &watch);
            watch.OnStatementEnd();
        }
        FindMoneyIdentity(report);
        findings = FindingsOf(report, watch);
    }

    [[nodiscard]] static std::string NameFor(const std::string& day) { return "D90010002." + day + "o.txt"; }

    CReport report;
    CStatementWatch watch{report};
    std::vector<Finding> findings;
};

/// "totals@20240110", "gap(note)@20240112".
inline std::string KeyOf(std::string_view code, const std::string& day, bool isNote = false) {
    return std::string(code) + (isNote ? "(note)@" : "@") + day;
}

using FindingKeys = std::set<std::string>;

inline FindingKeys KeysOf(const std::vector<Finding>& findings) {
    FindingKeys keys;
    for (const Finding& finding : findings) {
        keys.insert(KeyOf(KindOf(finding.code).name, finding.day, finding.severity == Severity::Note));
    }
    return keys;
}

inline FindingKeys KeysOf(const std::vector<DayFile>& files, MadeLayout layout) {
    return KeysOf(CCheckedRun(files, AskedFor(layout)).findings);
}

/// The weekdays between two days of an account of January and February 2024.
inline std::vector<std::string> WeekdaysMissing(const std::string& before, const std::string& after) {
    std::vector<std::string> missing;
    const auto number = [](const std::string& day) {
        return std::stoi(day.substr(6)) - 1 + (day.substr(4, 2) == "02" ? 31 : 0);
    };
    for (int day = number(before) + 1; day < number(after); ++day) {
        if (day % 7 > 4) continue;
        missing.push_back(DayText({2024, day < 31 ? 1 : 2, day < 31 ? day + 1 : day - 30}));
    }
    return missing;
}

/// What two statements of made-up days, one behind the other, must be found to contradict each other in.
inline void AddPairKeys(const MadeAccount& account, const MadeDay& before, const MadeDay& after, FindingKeys& keys,
                        const std::string& afterDay = {}, const std::string& beforeDay = {}) {
    const std::string& day = afterDay.empty() ? after.day : afterDay;
    const auto missing = WeekdaysMissing(beforeDay.empty() ? before.day : beforeDay, day);
    const bool isBroken = before.closing != after.opening;
    if (!missing.empty()) keys.insert(KeyOf("gap", missing.front(), !isBroken));
    if (!missing.empty() && isBroken) return;
    if (isBroken) keys.insert(KeyOf("continuity", day));
    const MadeLots expected = LotsBehind(LotsOf(before), after);
    const MadeLots found = LotsOf(after);
    for (std::size_t contract = 0; contract < account.contracts.size(); ++contract) {
        const bool isTraded =
            std::ranges::any_of(after.trades, [&](const MadeTrade& trade) { return trade.contract == contract; });
        for (const bool isLong : {true, false}) {
            const auto lots = [&](const MadeLots& all) {
                const auto at = all.find({contract, isLong});
                return at == all.end() ? 0 : at->second;
            };
            if (lots(expected) == lots(found)) continue;
            const bool isVanished = account.contracts[contract].isOption && !isTraded && lots(found) == 0;
            keys.insert(KeyOf("lots", day, isVanished));
        }
    }
}

/// An account with its pages, ready to be damaged.
struct MadeStatements {
    MadeLayout layout;
    AccountWishes wishes;
    MadeAccount account;
    std::vector<MadePage> pages;

    MadeStatements(unsigned seed, MadeLayout madeLayout, const AccountWishes& wished)
        : layout(madeLayout), wishes(wished), account(CAccountMaker(seed, wished).Make()) {
        for (const MadeDay& day : account.days) pages.push_back(Print(day));
    }

    [[nodiscard]] MadePage Print(const MadeDay& day) const {
        return CPagePrinter(layout, account, wishes.leavesOutEmptyTables).Print(day);
    }
    /// Prints a day again that was changed.
    void Reprint(std::size_t day) { pages[day] = Print(account.days[day]); }

    [[nodiscard]] std::vector<DayFile> Files() const {
        std::vector<DayFile> files;
        for (std::size_t i = 0; i < pages.size(); ++i) files.push_back({account.days[i].day, pages[i].Bytes()});
        return files;
    }
    [[nodiscard]] const std::string& Day(std::size_t day) const { return account.days[day].day; }

    /// What its days as they are must be found to contradict each other in: gaps over holidays, mostly. One that can't
    /// be read is left to what is told of it.
    [[nodiscard]] FindingKeys PairKeys(std::optional<std::size_t> unread = std::nullopt) const {
        FindingKeys keys;
        for (std::size_t i = 1; i < account.days.size(); ++i) {
            if (i == unread || i - 1 == unread) {
                const auto missing = WeekdaysMissing(Day(i - 1), Day(i));
                if (!missing.empty()) keys.insert(KeyOf("gap", missing.front(), true));
            } else {
                AddPairKeys(account, account.days[i - 1], account.days[i], keys);
            }
        }
        return keys;
    }
    [[nodiscard]] FindingKeys Keys() const { return KeysOf(Files(), layout); }
};

}  // namespace tradebill
