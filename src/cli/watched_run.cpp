#include "cli/watched_run.h"

#include <iomanip>
#include <ios>
#include <iostream>
#include <memory>
#include <sstream>

#include "base/report_error.h"
#include "cli/font_warning.h"
#include "cli/progress_line.h"
#include "cli/usage_error.h"
#include "platform/terminal.h"
#include "report/stores.h"

namespace tradebill {
namespace {

void WarnOfEmptyAccount(const RunResult& result) {
    if (result.statementsRead == 0) {
        Warn("no statement was found in the whole range");
    } else if (MoneyStore.Count() + MatchStore.Count() + OpiDetailStore.Count() == 0) {
        Warn("nothing was recognised in " + std::to_string(result.statementsRead) +
             " statements: is --format right? tradebill explain shows what is seen in one of them");
    }
}

std::string CodeText(std::uint32_t code) {
    std::ostringstream text;
    text << "0x" << std::hex << std::uppercase << std::setw(8) << std::setfill('0') << code;
    return text.str();
}

}  // namespace

void Warn(const std::string& text) {
    std::cerr << "tradebill: warning: " << text << "\n";
}

int Fail(const std::string& text) {
    std::cerr << "tradebill: " << text << "\n";
    return kExitFailed;
}

std::optional<RunResult> RunWatched(const PreparedRequest& prepared, bool quiet, RunFunction* run) {
    for (const std::string& warning : prepared.warnings) Warn(warning);
    if (!quiet) {
        for (const std::string& note : prepared.notes) std::cerr << "tradebill: " << note << "\n";
    }
    WarnWithoutFonts();
    RunResult result;
    try {
        std::unique_ptr<CProgressLine> progress;
        if (!quiet && IsErrorOutputTerminal()) progress = std::make_unique<CProgressLine>();
        result = run(prepared.request, progress.get());
    } catch (const CReportError& error) {
        Fail("the run failed with code " + CodeText(error.Code()) + ": " + error.what());
        return std::nullopt;
    }
    WarnOfEmptyAccount(result);
    return result;
}

}  // namespace tradebill
