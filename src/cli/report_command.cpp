#include "cli/report_command.h"

#include <filesystem>
#include <fstream>
#include <iomanip>
#include <ios>
#include <iostream>
#include <memory>
#include <sstream>

#include "base/number.h"
#include "base/report_error.h"
#include "cli/json_writer.h"
#include "cli/progress_line.h"
#include "cli/usage_error.h"
#include "driver/report_run.h"
#include "platform/terminal.h"
#include "statement/report_document.h"
#include "statement/request_copy.h"
#include "statement/stores.h"

namespace tradebill {
namespace {

void Warn(const std::string& text) {
    std::cerr << "tradebill: warning: " << text << "\n";
}

void CheckJsonFile(const std::optional<std::string>& path) {
    if (!path) return;
    std::error_code error;
    const auto folder = std::filesystem::absolute(*path, error).parent_path();
    if (path->empty() || std::filesystem::is_directory(*path, error) || !std::filesystem::is_directory(folder, error)) {
        throw CUsageError("--json: expected a file in a folder that is there, found \"" + *path + "\"");
    }
}

/// Written beside its place first, so that nobody meets half a file. False if it can't be written.
bool SaveJson(const std::string& path) {
    const std::string unfinished = path + ".part";
    {
        std::ofstream out(unfinished, std::ios::binary);
        WriteJson(out);
        out.close();
        if (!out) return false;
    }
    std::error_code error;
    std::filesystem::rename(unfinished, path, error);
    return !error;
}

std::string CurrencyText() {
    const std::size_t currencies = CurrencyMoneyStore.Names.size();
    return currencies == 0 ? std::string() : ", " + std::to_string(currencies) + " currencies";
}

std::string DaysText(int days) {
    return std::to_string(days) + (days == 1 ? " day" : " days");
}

/// The foreign family keeps no closed rows: they are only tallied.
int ClosedRows() {
    int rows = PingDetailStore.Count();
    if (!IsForeign()) return rows;
    for (const auto& offset : ReportDocument.Offsets) rows += offset->LONG_COUNT + offset->SHORT_COUNT;
    return rows;
}

void ShowSummary(const RunResult& result) {
    std::cout << "Report from " << MoneyStore.StartDateText << " to " << MoneyStore.EndDateText << "\n"
              << "  statements read   " << result.statementsRead << " ("
              << DaysText(result.days - result.statementsRead) << " without a file)\n"
              << "  records           " << MoneyStore.Count() << " money, " << MatchStore.Count() << " trades, "
              << ClosedRows() << " closed, " << OpiDetailStore.Count() << " positions, " << OpiSumStore.Count()
              << " position sums" << CurrencyText() << "\n"
              << "  closing equity    " << CNumberText(MoneyStore.ClosingEquity).View() << "\n"
              << "  page              " << result.pagePath << "\n";
}

void WarnOfEmptyReport(const RunResult& result) {
    if (result.statementsRead == 0) {
        Warn("no statement was found in the whole range");
    } else if (MoneyStore.Count() + MatchStore.Count() + OpiDetailStore.Count() == 0) {
        Warn("nothing was recognised in " + std::to_string(result.statementsRead) +
             " statements: is --format right? tradebill explain shows what is seen in one of them");
    }
}

int Fail(const std::string& text) {
    std::cerr << "tradebill: " << text << "\n";
    return kExitFailed;
}

RunResult Run(const GenerateBillRequest& request, bool quiet) {
    std::unique_ptr<CProgressLine> progress;
    if (!quiet && IsErrorOutputTerminal()) progress = std::make_unique<CProgressLine>();
    return RunReport(request, progress.get());
}

std::string CodeText(std::uint32_t code) {
    std::ostringstream text;
    text << "0x" << std::hex << std::uppercase << std::setw(8) << std::setfill('0') << code;
    return text.str();
}

}  // namespace

int RunReportCommand(const ReportCommand& command) {
    CheckJsonFile(command.jsonFile);
    const PreparedRequest prepared = PrepareRequest(command.options);
    for (const std::string& warning : prepared.warnings) Warn(warning);
    if (!command.quiet) {
        for (const std::string& note : prepared.notes) std::cerr << "tradebill: " << note << "\n";
    }

    RunResult result;
    try {
        result = Run(prepared.request, command.quiet);
    } catch (const CReportError& error) {
        return Fail("the run failed with code " + CodeText(error.Code()) + ": " + error.what());
    }
    WarnOfEmptyReport(result);
    if (command.jsonFile && !SaveJson(*command.jsonFile)) return Fail("can't write " + *command.jsonFile);
    if (!result.pageWritten) return Fail("can't write the page " + result.pagePath);
    if (!command.quiet) ShowSummary(result);
    return kExitDone;
}

}  // namespace tradebill
