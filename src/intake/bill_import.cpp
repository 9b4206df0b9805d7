#include "intake/bill_import.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "findings/finding.h"
#include "findings/statement_texts.h"
#include "intake/file_plan.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "readers/statement_limit.h"
#include "report/account_key.h"
#include "report/statement_name.h"

namespace tradebill {
namespace {

/// "20240102", "20240102 and 3 more days"
std::string DaysText(const std::vector<std::string>& days) {
    const std::size_t more = days.size() - 1;
    if (more == 0) return days.front();
    return days.front() + " and " + std::to_string(more) + (more == 1 ? " more day" : " more days");
}

/// Of a place where something is that can't be read.
std::string WhyNotComparable(const std::string& path, const FileContent& present) {
    if (present.state == FileState::NotAFile) return "can't write " + Utf8Path(path) + ": something else is there";
    return "can't read what is at " + Utf8Path(path) + (present.reason.empty() ? "" : ": " + present.reason);
}

std::string UnwrittenText(const std::string& path) {
    const std::string reason = SystemErrorText(LastSystemError());
    return "can't write " + Utf8Path(path) + (reason.empty() ? "" : ": " + reason);
}

}  // namespace

std::string WhyUnread(const FileContent& content) {
    switch (content.state) {
        case FileState::Missing:
            return "it isn't there";
        case FileState::NotAFile:
            return "it is no file";
        default:
            return "it can't be read" + (content.reason.empty() ? "" : ": " + content.reason);
    }
}

std::string_view OutcomeName(ImportOutcome outcome) {
    switch (outcome) {
        case ImportOutcome::Imported:
            return "imported";
        case ImportOutcome::Equal:
            return "equal";
        default:
            return "refused";
    }
}

CBillImport::CBillImport(ImportSettings settings)
    : settings_(std::move(settings)),
      folder_(settings_.root + "/Users/" + settings_.user + "/Data/Bill"),
      trades_(folder_) {}

ImportedFile CBillImport::Import(const std::string& path) {
    const FilePlan plan = PlanOf(path);
    ImportedFile result{.file = path,
                        .layout = plan.layout,
                        .encoding = plan.encoding,
                        .account = plan.account,
                        .text = plan.refusal,
                        .isUnreadable = plan.isUnreadable};
    std::vector<Target> targets;
    const AccountKey account{.user = settings_.user, .account = plan.account, .isForeign = plan.layout.isForeign};
    for (const PlannedStatement& statement : plan.statements) {
        result.days.push_back(statement.day);
        targets.push_back({&statement, folder_ + "/" + StatementName(account, statement.day, kFinishedEnding)});
    }
    if (!result.text.empty()) return result;
    result.text = trades_.TakeFailure();
    result.isUnwritten = !result.text.empty();
    if (result.text.empty()) result.text = WhyTaken(targets);
    if (!result.text.empty()) return result;
    result.text = LookAtTargets(targets);
    result.isUnwritten = !result.text.empty();
    if (!result.isUnwritten) result.text = WhyKept(targets);
    if (!result.text.empty()) return result;
    const bool writes = !settings_.isDryRun && !std::ranges::all_of(targets, &Target::isEqual);
    if (writes && !isFolderHeld_) {
        result.text = HoldFolder();
        if (result.text.empty()) result.text = LookAtTargets(targets);  // another may have written while this waited
        result.isUnwritten = !result.text.empty();
        if (!result.isUnwritten) result.text = WhyKept(targets);
        if (!result.text.empty()) return result;
    }
    if (!settings_.isDryRun) result.text = WriteTargets(targets, result.to);
    result.isUnwritten = !result.text.empty();
    if (result.isUnwritten) return result;
    result.to.clear();
    for (const Target& target : targets) result.to.push_back(target.path);
    Remember(result, targets);
    result.findings = plan.findings;
    for (Finding& finding : result.findings) finding.file = FileNameOf(result.to.front());
    result.outcome = std::ranges::all_of(targets, &Target::isEqual) ? ImportOutcome::Equal : ImportOutcome::Imported;
    result.text = plan.note;
    return result;
}

FilePlan CBillImport::PlanOf(const std::string& path) {
    if (auto tooLarge = WhyTooLarge(path, {.mostBytes = kMostBytes})) {
        return {.refusal = "it is " + *tooLarge};
    }
    const FileContent content = ReadWholeFile(path, source_);
    if (content.state != FileState::Read) return {.refusal = WhyUnread(content)};
    return PlanFile(content.bytes, FileNameOf(path), settings_.account,
                    {.openings = &trades_, .units = settings_.units, .otherLayouts = settings_.otherLayouts});
}

/// Keeps what later files are held against: what was taken for each day, and its trades.
void CBillImport::Remember(const ImportedFile& file, const std::vector<Target>& targets) {
    for (const Target& target : targets) {
        const std::string_view text = target.statement->text;
        taken_.try_emplace(target.path, TakenDay{HashOf(text), text.size(), file.file});
        if (file.layout.isForeign) continue;
        if (settings_.isDryRun) {
            trades_.OnPlanned(file.account, target.statement->day, text);
        } else {
            trades_.OnWritten(file.account, target.statement->day, text);
        }
    }
}

/// Whether an earlier file brought another content for one of the days.
std::string CBillImport::WhyTaken(const std::vector<Target>& targets) const {
    for (const Target& target : targets) {
        const auto taken = taken_.find(target.path);
        if (taken == taken_.end()) continue;
        const std::string_view text = target.statement->text;
        if (taken->second.size == text.size() && taken->second.hash == HashOf(text)) continue;
        return "its statement of " + target.statement->day + " differs from that in " + Utf8Path(taken->second.file);
    }
    return {};
}

/// Sees which targets are there. Returns why that can't be told of one.
std::string CBillImport::LookAtTargets(std::vector<Target>& targets) {
    for (Target& target : targets) {
        if (settings_.isDryRun && taken_.contains(target.path)) {
            target.isThere = target.isEqual = true;
            continue;
        }
        const FileContent present = ReadWholeFile(target.path, present_);
        if (present.state == FileState::Missing) continue;
        if (present.state != FileState::Read) return WhyNotComparable(target.path, present);
        target.isThere = true;
        target.isEqual = present.bytes == target.statement->text;
    }
    return {};
}

/// Which days have other content that isn't to be replaced.
std::string CBillImport::WhyKept(const std::vector<Target>& targets) const {
    std::vector<std::string> others;
    for (const Target& target : targets) {
        if (target.isThere && !target.isEqual) others.push_back(target.statement->day);
    }
    if (others.empty() || settings_.replaces) return {};
    return "of " + DaysText(others) + " other content is there already (--force replaces it)";
}

std::string CBillImport::HoldFolder() {
    ForgetSystemError();
    if (!MakeFolders(folder_)) return UnwrittenText(folder_);
    std::string why = settings_.holdFolder ? settings_.holdFolder(folder_) : std::string();
    isFolderHeld_ = why.empty();
    return why;
}

/// Writes those that aren't there yet. Returns why one can't be written; `written` has those that are there.
std::string CBillImport::WriteTargets(const std::vector<Target>& targets, std::vector<std::string>& written) {
    for (const Target& target : targets) {
        ForgetSystemError();
        if (!target.isEqual) {
            const auto write = [&](CFile& file) { return file.Write(target.statement->text); };
            if (!SaveInOneStep(target.path, write)) return UnwrittenText(target.path);
        }
        written.push_back(target.path);
    }
    return {};
}

}  // namespace tradebill
