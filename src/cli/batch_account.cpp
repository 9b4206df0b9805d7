#include "cli/batch_account.h"

#include <cstddef>
#include <exception>
#include <fstream>
#include <functional>
#include <ios>
#include <map>
#include <new>
#include <optional>
#include <ostream>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "analysis/analysis.h"
#include "analysis/compensated_sum.h"
#include "analysis/day_results.h"
#include "batch/account_result.h"
#include "batch/account_work.h"
#include "batch/batch_places.h"
#include "batch/folder_tree.h"
#include "cli/batch_making.h"
#include "cli/findings_text.h"
#include "cli/shown_text.h"
#include "cli/told_lines.h"
#include "cli/voice.h"
#include "cli/watched_run.h"
#include "driver/report_counts.h"
#include "driver/report_run.h"
#include "driver/run_problems.h"
#include "explore/explore_page.h"
#include "explore/viewer_template.h"
#include "export/csv_set.h"
#include "export/json_writer.h"
#include "export/run_json.h"
#include "export/sqlite_export.h"
#include "export/table.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "platform/file.h"
#include "platform/memory_use.h"
#include "platform/paths.h"
#include "platform/sha256.h"
#include "platform/system_error.h"
#include "report/account_key.h"
#include "report/report.h"
#include "requests/format_choice.h"
#include "requests/report_options.h"
#include "requests/report_settings.h"
#include "requests/run_facts.h"
#include "requests/run_findings.h"
#include "requests/run_inputs.h"

namespace tradebill {
namespace {

constexpr const char* kNoStatement = "no statement was found in the whole range";
constexpr int kDatabaseWait = 600;  // seconds, for the other workers

/// What keeps an account from being whole, in words.
class CNotMade : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

[[noreturn]] void ThrowUnwritten(const std::string& path) {
    const std::string reason = SystemErrorText(LastSystemError());
    throw CNotMade("can't write " + Utf8Path(NativePath(path)) + (reason.empty() ? "" : ": " + reason));
}

/// A folder that is gone with all in it, unless it was given its name.
class CWorkFolder {
public:
    explicit CWorkFolder(std::string path) : path_(std::move(path)) {
        if (!MakeFolder(path_)) ThrowUnwritten(path_);
    }
    ~CWorkFolder() { RemoveTree(path_); }
    CWorkFolder(const CWorkFolder&) = delete;
    CWorkFolder& operator=(const CWorkFolder&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }

private:
    std::string path_;
};

void WriteFile(const std::string& path, const std::function<bool(std::ostream&)>& write) {
    ForgetSystemError();
    std::ofstream file(path, std::ios::binary);
    const bool isWritten = file.is_open() && write(file);
    file.close();
    if (!isWritten || !file) ThrowUnwritten(path);
}

void CountFindings(std::span<const Finding> findings, AccountResult& result) {
    constexpr std::size_t kMostTold = 5;
    for (const Finding& finding : findings) {
        switch (finding.severity) {
            case Severity::Error:
                ++result.errors;
                break;
            case Severity::Warning:
                ++result.warnings;
                break;
            case Severity::Note:
                ++result.notes;
                continue;
        }
        if (result.worst.size() == kMostTold) continue;
        result.worst.push_back(std::string(KindOf(finding.code).name) + ": " + FindingLine(finding));
    }
}

void TakeFigures(const CReport& report, const Analysis& analysis, AccountResult& result) {
    result.trades = report.MatchStore.Count();
    result.closed = CountClosedRows(report);
    result.positions = report.OpiDetailStore.Count();
    result.marginUse = analysis.margin.max;
    if (!analysis.days.empty()) {
        result.firstDay = analysis.days.front().day;
        result.lastDay = analysis.days.back().day;
        result.equity = analysis.days.back().equity;
        result.drawdown = analysis.drawdowns.empty() ? 0.0 : analysis.drawdowns.front().depth;
    }
    CCompensatedSum pl;
    bool hasPl = false;
    for (const DayResult& day : analysis.days) {
        if (!day.pl) continue;
        pl.Add(*day.pl);
        hasPl = true;
    }
    if (hasPl) result.pl = pl.Total();
}

/// Whether what failed is in the findings and leaves the page whole, or the page and what belongs to it isn't.
bool IsPageWhole(const RunProblems& problems) {
    return problems.names.empty() && problems.folders.empty() && problems.pictures.empty() && problems.fonts.empty() &&
           !problems.page && !problems.taken && !problems.leftover && !problems.error;
}

/// Gives `folder` the name `place`; what bears it is moved to `older` and removed.
void PutFolder(const std::string& folder, const std::string& place, const std::string& older) {
    ForgetSystemError();
    if (!MakeFolders(FolderOf(place))) ThrowUnwritten(FolderOf(place));
    if (ExchangeFolders(folder, place)) {  // at no moment is there none
        RemoveTree(folder);
        return;
    }
    ForgetSystemError();
    const bool hasOlder = MoveOver(place, older);
    if (!MoveOver(folder, place)) {
        const auto error = LastSystemError();
        if (hasOlder) static_cast<void>(MoveOver(older, place));
        const std::string reason = SystemErrorText(error);
        throw CNotMade("can't write " + Utf8Path(NativePath(place)) + (reason.empty() ? "" : ": " + reason));
    }
    RemoveTree(older);
}

std::string Joined(const std::vector<std::string>& lines) {
    constexpr std::size_t kLongest = 2000;
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : "; ") + line;
        if (text.size() > kLongest) break;
    }
    return text;
}

}  // namespace

CBatchAccounts::CBatchAccounts(const BatchMaking& making, std::string work)
    : making_(making), parts_(PartsOf(making.makes)), work_(std::move(work)) {}

std::string CBatchAccounts::PlaceOf(AccountKey key) const {
    key.user = PathOfUtf8(key.user);
    key.account = PathOfUtf8(key.account);
    return making_.outFolder + "/" + AccountFolder(key);
}

std::string CBatchAccounts::NewFolder() {
    return work_ + "/" + std::to_string(++made_);
}

std::string CBatchAccounts::OptionsDigest(const ReportOptions& options) const {
    CSha256 list;
    for (const ReportSetting& setting : kReportSettings) {
        const auto& value = options.*setting.value;
        const bool isUsual = setting.value == &ReportOptions::format && value == std::string(kAutoFormat);
        if (value && !isUsual) list.Add(std::string(setting.key) + "=" + Utf8Path(*value) + "\n");
    }
    list.Add("make=" + NamesOf(parts_) + "\n");
    list.Add("trading_days=" + std::to_string(making_.tradingDays) + "\n");
    if (making_.sqliteFile) list.Add("sqlite=" + Utf8Path(*making_.sqliteFile) + "\n");
    return list.Digest();
}

bool CBatchAccounts::IsAsMade(const AccountQuestion& question) const {
    const MadeFrom& made = *question.made;
    const ReportOptions options = OptionsOf(making_.options, question.settings);
    if (made.version != TRADEBILL_VERSION || made.options != OptionsDigest(options)) return false;
    if (making_.sqliteFile && !HasAccount(making_.databasePath, question.account)) return false;
    const auto outputs = DigestsIn(PlaceOf(question.account));
    if (!outputs) return false;
    const std::string folder = AccountFolder(question.account) + "/";
    std::map<std::string, std::string> there;
    for (const auto& [name, digest] : *outputs) there[folder + name] = digest;
    return there == made.outputs && made.inputs == InputsDigest(PrepareRequest(options));
}

/// Writes what was asked beside the page. Returns what was found.
void CBatchAccounts::WriteParts(const std::string& folder, const AccountParts& account) const {
    if (parts_.json) {
        WriteFile(folder + "/" + kJsonName, [&](std::ostream& out) {
            WriteJson(account.source.report,
                      {.run = account.facts, .analysis = account.source.analysis, .findings = account.source.findings},
                      out);
            return true;
        });
    }
    if (parts_.explore) {
        WriteFile(folder + "/" + kExploreName, [&](std::ostream& out) {
            return WriteExplorePage(ViewerTemplate(), {.source = account.source, .run = account.facts}, out);
        });
    }
    if (parts_.csv) {
        const std::string tables = folder + "/" + kCsvFolderName;
        if (!MakeFolder(tables)) ThrowUnwritten(tables);
        const CsvProblems problems = SaveCsvSet(tables, account.source);
        if (problems.unwritten)
            throw CNotMade("can't write " + problems.unwritten->path + ": " + problems.unwritten->reason);
    }
    if (!making_.sqliteFile) return;
    const DatabaseResult saved = SaveToDatabase(making_.databasePath, account.key, account.source, kDatabaseWait);
    if (saved.end != DatabaseEnd::Done) throw CNotMade("can't write " + *making_.sqliteFile + ": " + saved.reason);
}

void CBatchAccounts::Make(const AccountQuestion& question, AccountResult& result) {
    const ReportOptions options = OptionsOf(making_.options, question.settings);
    result.options = OptionsDigest(options);
    const PreparedRequest prepared = PrepareRequest(options);
    RequireTemplate(prepared);
    if (AccountOf(prepared.request) != question.account) throw CNotMade("its settings are another account's");
    result.inputs = InputsDigest(prepared);
    const CWorkFolder folder(NewFolder());
    CReport report;
    CRunFindings faults(report, prepared);
    faults.ReadSideRows();
    CStatementLog log(*faults.Listener());
    const RunOptions run{.listener = &log, .outFolder = folder.Path(), .needsStatement = true};
    const auto ran = RunWatched(report, prepared, nullptr, parts_.page ? RunReport : ReadStatements, run);
    if (!ran) throw CNotMade("");
    if (!parts_.page) {
        for (const UnreadStatement& statement : ran->problems.statements) Fail(UnreadStatementText(statement));
    }
    if (ran->end == RunEnd::NothingRead) {
        throw CNotMade(ran->problems.statements.empty() ? kNoStatement : "no statement could be read");
    }
    const std::vector<Finding> findings = faults.Collect(*ran);
    const Analysis analysis = Analyse(report, {.tradingDays = making_.tradingDays});
    CountFindings(findings, result);
    TakeFigures(report, analysis, result);
    result.statements = ran->statementsRead;
    std::vector<UnreadFile> unread;
    const RunFacts facts = FactsOf(report, prepared, *ran, log, unread);
    for (const UnreadFile& file : unread) Fail(UnreadFileText(file));
    if (!unread.empty() || !IsPageWhole(ran->problems)) throw CNotMade("");
    WriteParts(folder.Path(), {.source = {.report = report, .analysis = analysis, .findings = findings},
                               .facts = facts,
                               .key = question.account});
    Place(question, folder.Path(), result);
    const bool isWhole = ran->problems.IsEmpty() && faults.IsComplete();
    result.status = !isWhole                ? AccountStatus::Failed
                    : HasWarnings(findings) ? AccountStatus::Findings
                                            : AccountStatus::Ok;
}

/// Brings the folder of a whole account to its place.
void CBatchAccounts::Place(const AccountQuestion& question, const std::string& folder, AccountResult& result) {
    const auto digests = DigestsIn(folder);
    if (!digests) ThrowUnwritten(folder);
    PutFolder(folder, PlaceOf(question.account), NewFolder());
    const std::string place = AccountFolder(question.account) + "/";
    for (const auto& [name, digest] : *digests) result.outputs[place + name] = digest;
}

AccountAnswer CBatchAccounts::Answer(const AccountQuestion& question) {
    CToldLines told;
    AccountAnswer answer;
    if (question.made) {
        try {
            answer.isAsMade = IsAsMade(question);
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception&) {
            answer.isAsMade = false;  // it is made anew, and that tells why it can't be
        }
        return answer;
    }
    ForgetPeakMemory();
    AccountResult result{.account = question.account, .status = AccountStatus::Failed, .version = TRADEBILL_VERSION};
    std::string failure;
    try {
        Make(question, result);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const CNoStatement&) {
        failure = kNoStatement;
    } catch (const std::exception& error) {
        failure = error.what();
    }
    CToldLines::Lines lines = told.Take();
    if (!failure.empty()) lines.failures.push_back(ShownText(failure));
    if (result.status == AccountStatus::Failed) result.reason = Joined(lines.failures);
    result.peakMemory = PeakMemory();
    answer.result = std::move(result);
    answer.told = std::move(lines.warnings);
    return answer;
}

}  // namespace tradebill
