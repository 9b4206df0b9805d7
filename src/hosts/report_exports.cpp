// The functions of the interface on versions, results and reports.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <sstream>
#include <string>
#include <utility>

#include "base/source_id.h"
#include "driver/report_counts.h"
#include "driver/report_run.h"
#include "driver/run_problems.h"
#include "export/json_writer.h"
#include "findings/finding.h"
#include "hosts/host_buffer.h"
#include "hosts/host_report.h"
#include "hosts/result_table.h"
#include "hosts/tradebill.h"
#include "readers/statement_loader.h"

namespace tradebill {
namespace {

template <class Number>
std::uint32_t Counted(Number count) {
    return static_cast<std::uint32_t>(count);
}

TradeBillTotals TotalsOf(const CHostReport& report) {
    const RunResult& result = report.Result();
    const auto unreadable = std::ranges::count_if(result.problems.statements, [](const UnreadStatement& statement) {
        return statement.state != StatementState::Missing;
    });
    TradeBillTotals totals{};
    totals.Size = sizeof totals;
    totals.Days = Counted(result.days);
    totals.Statements = Counted(result.statementsRead);
    totals.Unreadable = Counted(unreadable);
    totals.Records = Counted(CountRecords(report.Report()));
    totals.Pictures = Counted(result.picturesSaved);
    for (const Finding& finding : report.Source().findings) {
        switch (finding.severity) {
            case Severity::Error:
                ++totals.Errors;
                break;
            case Severity::Warning:
                ++totals.Warnings;
                break;
            case Severity::Note:
                ++totals.Notes;
                break;
        }
    }
    return totals;
}

/// Fills the fields of `to` that lie within its size: half a field is none.
void CopyWithin(const TradeBillTotals& from, TradeBillTotals& to) {
    TradeBillTotals copy = from;
    copy.Size = to.Size;
    const std::size_t size = std::min<std::size_t>(to.Size, sizeof copy);
    std::memcpy(&to, &copy, size / sizeof(std::uint32_t) * sizeof(std::uint32_t));
}

std::string JsonOf(const CHostReport& report) {
    std::ostringstream json;
    const ExportSource source = report.Source();
    WriteJson(source.report, {.run = report.Facts(), .analysis = source.analysis, .findings = source.findings}, json);
    return std::move(json).str();
}

}  // namespace
}  // namespace tradebill

int32_t TradeBillVersion(void) {
    return TRADEBILL_VERSION_NUMBER;
}

const char* TradeBillVersionText(void) {
    return TRADEBILL_VERSION;
}

const char* TradeBillSourceId(void) {
    return tradebill::kSourceId;
}

const char* TradeBillResultName(int32_t result) {
    return tradebill::ResultName(result);
}

int32_t TradeBillOpen(TradeBillReport** report) {
    if (report == nullptr) return TRADEBILL_WRONG_ARGUMENT;
    *report = new (std::nothrow) TradeBillReport;
    return *report == nullptr ? TRADEBILL_OUT_OF_MEMORY : TRADEBILL_DONE;
}

void TradeBillClose(TradeBillReport* report) {
    delete report;
}

int32_t TradeBillMake(TradeBillReport* report, const TradeBillRequest* request) {
    return report == nullptr ? TRADEBILL_WRONG_ARGUMENT : report->report.Run(request, tradebill::RunReport);
}

int32_t TradeBillRead(TradeBillReport* report, const TradeBillRequest* request) {
    return report == nullptr ? TRADEBILL_WRONG_ARGUMENT : report->report.Run(request, tradebill::ReadAccount);
}

const char* TradeBillErrorUtf8(const TradeBillReport* report) {
    return report == nullptr ? "" : report->report.Error();
}

const char* TradeBillNotesUtf8(const TradeBillReport* report) {
    return report == nullptr ? "" : report->report.Notes();
}

const char* TradeBillPageUtf8(const TradeBillReport* report) {
    return report == nullptr ? "" : report->report.Page();
}

int32_t TradeBillTotal(TradeBillReport* report, TradeBillTotals* totals) {
    if (report == nullptr) return TRADEBILL_WRONG_ARGUMENT;
    return report->report.Ask([&] {
        if (totals == nullptr || totals->Size < sizeof totals->Size) return std::int32_t{TRADEBILL_WRONG_ARGUMENT};
        tradebill::CopyWithin(tradebill::TotalsOf(report->report), *totals);
        return std::int32_t{TRADEBILL_DONE};
    });
}

int32_t TradeBillJson(TradeBillReport* report, char** jsonUtf8, size_t* bytes) {
    if (jsonUtf8 != nullptr) *jsonUtf8 = nullptr;
    if (report == nullptr) return TRADEBILL_WRONG_ARGUMENT;
    return report->report.Ask([&] {
        if (jsonUtf8 == nullptr) return std::int32_t{TRADEBILL_WRONG_ARGUMENT};
        const std::string json = tradebill::JsonOf(report->report);
        *jsonUtf8 = static_cast<char*>(tradebill::BufferOf(json));
        if (bytes != nullptr) *bytes = json.size();
        return std::int32_t{TRADEBILL_DONE};
    });
}

void TradeBillFree(void* buffer) {
    std::free(buffer);
}
