#include "cli/anonymise_run.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "anonymise/account_anonymiser.h"
#include "anonymise/identity_map.h"
#include "base/text.h"
#include "cli/anonymised_folder.h"
#include "cli/anonymised_settings.h"
#include "cli/awaited_work.h"
#include "cli/voice.h"
#include "driver/report_request.h"
#include "platform/file.h"
#include "readers/statement_limit.h"
#include "report/account_key.h"
#include "report/request_copy.h"
#include "report/statement_name.h"
#include "requests/account_files.h"
#include "requests/carried_templates.h"
#include "requests/format_choice.h"
#include "requests/usage_error.h"

namespace tradebill {

CAnonymiseRun::CAnonymiseRun(const AnonymiseCommand& command, const CopySettings& settings, CAnonymisedFolder& folder)
    : command_(command),
      settings_(settings),
      folder_(folder),
      accounts_(CDice(settings.anonymise.seed, "accounts").Next()) {}

bool CAnonymiseRun::CopyAll(const AccountFiles& files, CAwaitedWork& work) {
    std::set<std::string> users;
    for (const auto& [account, places] : files) {
        accounts_.Know(account.account);
        users.insert(account.user);
    }
    std::size_t begun = 0;
    for (const auto& [account, places] : files) {
        work.BeginStep("accounts", ++begun, files.size());
        const auto user = std::distance(users.begin(), users.find(account.user)) + 1;
        const AccountKey copy{"user" + std::to_string(user), accounts_.Of(account.account), account.isForeign};
        CopyAccount(account, copy, places);
    }
    work.Rest();
    return isWhole_;
}

void CAnonymiseRun::LeaveOut(const std::string& path, const std::string& reason) {
    isWhole_ = false;
    static_cast<void>(Fail("left out " + path + ": " + reason));
}

CAnonymiseRun::FoundStatements CAnonymiseRun::ReadAll(const std::vector<StatementPlace>& places) {
    FoundStatements found;
    CFileBuffer buffer;
    for (const StatementPlace& place : places) {
        if (const auto tooLarge = WhyTooLarge(place.path, settings_.limit)) {
            LeaveOut(place.path, "it is " + *tooLarge);
            continue;
        }
        const FileContent file = ReadWholeFile(place.path, buffer);
        if (file.state == FileState::NotAFile) {
            LeaveOut(place.path, "it isn't a file");
        } else if (file.state != FileState::Read) {
            LeaveOut(place.path, "it can't be read" + (file.reason.empty() ? "" : ": " + file.reason));
        } else if (!found.empty() && found.back().place.day == place.day) {
            LeaveOut(place.path, "there is a statement of the finished day, too");
        } else {
            found.push_back({place, std::string(file.bytes)});
        }
    }
    return found;
}

/// By the first statement that tells, unless it was told.
PickedFormat CAnonymiseRun::FormatOfAll(const FoundStatements& statements) const {
    const bool hasTemplate = command_.templateName && !command_.templateName->empty();
    if (command_.format && *command_.format != kAutoFormat)
        return {.format = FormatNumber(*command_.format, hasTemplate)};
    std::optional<CUsageError> why;
    for (const FoundStatement& statement : statements) {
        try {
            return FormatOfText(statement.text, {.day = statement.place.day,
                                                 .file = statement.place.path,
                                                 .rootFolder = settings_.root,
                                                 .hasTemplate = hasTemplate});
        } catch (const CUsageError& error) {
            if (!why) why = error;
        }
    }
    throw CUsageError(*why);
}

GenerateBillRequest CAnonymiseRun::RequestOf(const AccountKey& account) const {
    GenerateBillRequest request = ClearedRequest();
    CopyField(request.UserFolder, account.user);
    CopyField(request.Account, account.account);
    CopyField(request.TemplateName, command_.templateName.value_or(""));
    request.StatementKind = account.isForeign ? kForeignKind : KindNumber({});
    return request;
}

void CAnonymiseRun::CopyAccount(const AccountKey& account, const AccountKey& copy,
                                const std::vector<StatementPlace>& places) {
    GenerateBillRequest request = RequestOf(account);
    if (FieldText(request.Account) != account.account) {
        LeaveOut("account " + account.account + " of " + account.user, "its number is longer than those of reports");
        return;
    }
    const FoundStatements statements = ReadAll(places);
    if (statements.empty()) return;
    TemplateSource source{.path = settings_.TemplatePath(command_.templateName)};
    if (!account.isForeign) {
        try {
            const PickedFormat picked = FormatOfAll(statements);
            request.StatementFormat = picked.format;
            if (!picked.templateName.empty()) {
                CopyField(request.TemplateName, picked.templateName);
                source = {settings_.TemplatePath(picked.templateName), CarriedTemplateText(picked.templateName)};
            }
        } catch (const CUsageError& error) {
            LeaveOut("account " + account.account + " of " + account.user, error.what());
            return;
        }
    }
    CAccountAnonymiser anonymiser(request, std::move(source), settings_.anonymise, copy.account);
    try {
        for (const FoundStatement& statement : statements) anonymiser.Add({statement.place.day, statement.text});
        WriteCopies(copy, anonymiser.Make(), statements);
    } catch (const CLostTemplate& lost) {
        LeaveOut("account " + account.account + " of " + account.user, lost.what());
    }
}

void CAnonymiseRun::WriteCopies(const AccountKey& copy, const AnonymisedAccount& made,
                                const FoundStatements& statements) {
    const auto placeOf = [&](const std::string& day) -> const StatementPlace& {
        return std::ranges::find(statements, day, [](const FoundStatement& one) { return one.place.day; })->place;
    };
    for (const LeftOutStatement& left : made.leftOut) LeaveOut(placeOf(left.day).path, left.reason);
    const std::string folder = "Users/" + copy.user + "/Data/Bill/";
    for (const AnonymisedStatement& statement : made.statements) {
        folder_.Write(folder + StatementName(copy, statement.day, placeOf(statement.from).ending), statement.text);
        ++statements_;
    }
    if (made.statements.empty()) return;
    if (copied_ == 0) first_ = copy;
    ++copied_;
}

}  // namespace tradebill
