#include "batch/summary_table.h"

#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/address.h"
#include "batch/account_result.h"
#include "batch/result_order.h"
#include "batch/results_file.h"
#include "export/table.h"
#include "report/account_key.h"

namespace tradebill {
namespace {

// clang-format off
constexpr ExportColumn kColumns[] = {
    {"user"},
    {"account"},
    {"kind"},
    {"status"},
    {"reason"},
    {"first_day",   ColumnKind::Day},
    {"last_day",    ColumnKind::Day},
    {"statements",  ColumnKind::Count},
    {"trades",      ColumnKind::Count},
    {"closed",      ColumnKind::Count},
    {"positions",   ColumnKind::Count},
    {"errors",      ColumnKind::Count},
    {"warnings",    ColumnKind::Count},
    {"notes",       ColumnKind::Count},
    {"worst"},
    {"equity",      ColumnKind::Number},
    {"pl",          ColumnKind::Number},
    {"drawdown",    ColumnKind::Number},
    {"margin_use",  ColumnKind::Number},
    {"seconds",     ColumnKind::Number},
    {"peak_memory", ColumnKind::Count},
    {"page"},
    {"explore"},
    {"json"},
};
// clang-format on

ExportCell FigureCell(const std::optional<double>& figure) {
    return figure ? ExportCell(*figure) : ExportCell();
}

/// The path of the output that is named so; empty if there is none. A leading "./" keeps any text an address of a file
/// beside the page.
std::string LinkOf(const AccountResult& result, std::string_view fileName, SummaryReader reader) {
    for (const auto& [path, digest] : result.outputs) {
        const std::string_view name = std::string_view(path).substr(path.rfind('/') + 1);
        if (name == fileName) return reader == SummaryReader::Page ? "./" + AddressPath(path) : path;
    }
    return {};
}

std::string WorstOf(const AccountResult& result, SummaryReader reader) {
    std::string worst;
    for (const std::string& finding : result.worst) {
        if (!worst.empty()) worst += '\n';
        worst += finding;
        if (reader == SummaryReader::Spreadsheet) break;
    }
    return worst;
}

void PutRow(const AccountResult& result, SummaryReader reader, CRowSink& sink) {
    const std::string worst = WorstOf(result, reader);
    const std::string page = LinkOf(result, "TradeBill.html", reader);
    const std::string explore = LinkOf(result, "explore.html", reader);
    const std::string json = LinkOf(result, "report.json", reader);
    const ExportCell cells[] = {
        Utf8Cell{result.account.user},
        Utf8Cell{result.account.account},
        Utf8Cell{KindName(result.account.isForeign)},
        Utf8Cell{StatusName(result.status)},
        Utf8Cell{result.reason},
        DayCell{result.firstDay},
        DayCell{result.lastDay},
        result.statements,
        result.trades,
        result.closed,
        result.positions,
        result.errors,
        result.warnings,
        result.notes,
        Utf8Cell{worst},
        FigureCell(result.equity),
        FigureCell(result.pl),
        FigureCell(result.drawdown),
        FigureCell(result.marginUse),
        result.seconds,
        result.peakMemory,
        Utf8Cell{page},
        Utf8Cell{explore},
        Utf8Cell{json},
    };
    static_assert(std::size(cells) == std::size(kColumns));
    sink.OnRow(cells);
}

}  // namespace

std::span<const ExportColumn> SummaryColumns() {
    return kColumns;
}

void WalkSummary(const ResultsByAccount& results, SummaryReader reader, CRowSink& sink) {
    for (const AccountResult* result : FindingsFirst(results)) PutRow(*result, reader, sink);
}

}  // namespace tradebill
