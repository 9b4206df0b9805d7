#include "hosts/host_report.h"

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/analysis.h"
#include "base/shortage.h"
#include "driver/report_run.h"
#include "driver/run_problems.h"
#include "export/table.h"
#include "hosts/host_request.h"
#include "hosts/result_table.h"
#include "hosts/tradebill.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "report/report.h"
#include "requests/format_choice.h"
#include "requests/prepared_run.h"
#include "requests/report_options.h"
#include "requests/run_facts.h"
#include "requests/run_findings.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// Hands the steps of a run to the host's function, which may stop it.
class CHostWatcher final : public CRunWatcher {
public:
    explicit CHostWatcher(const HostRequest& asked) : progress_(asked.progress), context_(asked.context) {}

    void OnDay(int day, int days, std::string_view) override {
        days_ = days;
        Tell(day, "days");
    }
    void OnStage(std::string_view stage) override { Tell(0, std::string(stage).c_str()); }
    [[nodiscard]] bool WantsStop() const override { return wantsStop_; }

private:
    void Tell(std::int32_t day, const char* stage) {
        const TradeBillProgress progress{.Size = sizeof progress, .Day = day, .Days = days_, .Stage = stage};
        if (progress_ != nullptr && progress_(context_, &progress) != 0) wantsStop_ = true;
    }

    TradeBillProgressFunction progress_;
    void* context_;
    int days_ = 0;
    bool wantsStop_ = false;
};

/// Marks a report as being worked on.
class CBusy {
public:
    explicit CBusy(bool& isBusy) : isBusy_(isBusy) { isBusy_ = true; }
    ~CBusy() { isBusy_ = false; }
    CBusy(const CBusy&) = delete;
    CBusy& operator=(const CBusy&) = delete;

private:
    bool& isBusy_;
};

std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
    return text;
}

/// What to say of a run that ended ahead of a report, and its result.
struct EarlyEnd {
    std::int32_t result;
    std::string text;
};

EarlyEnd EndOf(const RunResult& result) {
    std::vector<std::string> lines = ProblemTexts(result.problems);
    switch (result.end) {
        case RunEnd::Stopped:
            lines.emplace_back("stopped");
            return {TRADEBILL_STOPPED, Lines(lines)};
        case RunEnd::NothingRead:
            lines.emplace_back("no statement could be read");
            return {TRADEBILL_NOTHING_READ, Lines(lines)};
        case RunEnd::PlaceTaken:
            return {TRADEBILL_PLACE_TAKEN, Lines(lines)};
        case RunEnd::Failed:
            if (result.problems.error) lines.insert(lines.begin(), ErrorText(*result.problems.error));
            return {TRADEBILL_FAILED, Lines(lines)};
        case RunEnd::Finished:
            break;
    }
    return {TRADEBILL_DONE, {}};
}

}  // namespace

ExportSource CHostReport::Source() const {
    return {.report = *report_, .analysis = analysis_, .findings = findings_};
}

/// `error` is static.
std::int32_t CHostReport::Fail(std::int32_t result, const char* error) noexcept {
    error_ = error;
    return result;
}

std::int32_t CHostReport::Fail(std::int32_t result, const std::string& error) {
    errorText_ = error;
    error_ = errorText_.c_str();
    return result;
}

void CHostReport::Empty() {
    report_.reset();
    result_ = {};
    facts_ = {};
    analysis_ = {};
    findings_.clear();
    notes_.clear();
    page_.clear();
    prepared_ = {};
}

std::int32_t CHostReport::Guarded(const std::function<std::int32_t()>& work) noexcept {
    const CBusy busy(isBusy_);
    error_ = "";
    try {
        try {
            return work();
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const CNoStatement& error) {
            return Fail(TRADEBILL_NOTHING_READ, InHostsWords(error.what()));
        } catch (const CNothingReadable& error) {
            return Fail(TRADEBILL_NOTHING_READ, InHostsWords(error.what()));
        } catch (const CUsageError& error) {
            return Fail(TRADEBILL_WRONG_REQUEST, InHostsWords(error.what()));
        } catch (const std::exception& error) {
            return Fail(TRADEBILL_FAILED, InHostsWords(error.what()));
        }
    } catch (const std::bad_alloc& shortage) {
        return Fail(TRADEBILL_OUT_OF_MEMORY, ShortageText(shortage));
    } catch (...) {
        return Fail(TRADEBILL_FAILED, "the report could not be made");
    }
}

std::int32_t CHostReport::Run(const TradeBillRequest* request, RunFunction* run) noexcept {
    if (isBusy_) return TRADEBILL_BUSY;
    if (request == nullptr) return Fail(TRADEBILL_WRONG_ARGUMENT, "the request is null");
    if (!IsRequestSize(request->Size)) {
        return Fail(TRADEBILL_WRONG_ARGUMENT, "the request's Size isn't that of a TradeBillRequest");
    }
    const std::int32_t result = Guarded([&] {
        Empty();
        return RunAsked(HostRequestOf(*request), run);
    });
    const bool isThere = result == TRADEBILL_DONE || result == TRADEBILL_INCOMPLETE;
    if (!isThere) report_.reset();
    return result;
}

std::int32_t CHostReport::Ask(const std::function<std::int32_t()>& ask) noexcept {
    if (isBusy_) return TRADEBILL_BUSY;
    if (!report_) return Fail(TRADEBILL_NO_REPORT, ResultMeaning(TRADEBILL_NO_REPORT));
    const std::int32_t result = Guarded(ask);
    return *error_ == '\0' ? Fail(result, ResultMeaning(result)) : result;
}

std::int32_t CHostReport::RunAsked(const HostRequest& asked, RunFunction* run) {
    prepared_ = PrepareRequest(asked.options);
    std::vector<std::string> notes = prepared_.notes;
    notes.insert(notes.end(), prepared_.warnings.begin(), prepared_.warnings.end());
    notes_ = InHostsWords(Lines(notes));
    RequireTemplate(prepared_);
    report_ = std::make_unique<CReport>();
    CRunFindings faults(*report_, prepared_);
    faults.ReadSideRows();
    CStatementLog log(*faults.Listener());
    CHostWatcher watcher(asked);
    result_ = RunPrepared(
        *report_, prepared_, &watcher, run,
        {.listener = &log, .outFolder = asked.outFolder, .needsStatement = true, .wait = asked.waitSeconds});
    if (result_.end != RunEnd::Finished) {
        const EarlyEnd end = EndOf(result_);
        return Fail(end.result, end.text);
    }
    if (result_.pageWritten) page_ = Utf8Path(NativePath(result_.pagePath));
    findings_ = faults.Collect(result_);
    analysis_ = Analyse(*report_, {.tradingDays = asked.tradingDays});
    std::vector<std::string> missing = ProblemTexts(result_.problems);
    if (result_.problems.error) missing.insert(missing.begin(), ErrorText(*result_.problems.error));
    std::vector<UnreadFile> unread;
    facts_ = FactsOf(*report_, prepared_, result_, log, unread);
    for (const UnreadFile& file : unread) missing.push_back(UnreadFileText(file));
    if (missing.empty() && faults.IsComplete()) return TRADEBILL_DONE;
    if (missing.empty()) missing.emplace_back("findings are missing: not all that they look at could be read");
    return Fail(TRADEBILL_INCOMPLETE, Lines(missing));
}

}  // namespace tradebill
