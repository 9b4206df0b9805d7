// Any bytes as a statement of a fixed layout. Who listens changes nothing; what a listener is told stands in the text;
// readers that are asked for the trades alone give the same trades.
#include <algorithm>
#include <optional>
#include <string_view>

#include "base/report_error.h"
#include "cli/scan_report.h"
#include "fuzz_statement.h"
#include "fuzz_target.h"
#include "readers/layout_marks.h"
#include "readers/statement_loader.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr std::string_view kDay = "20240102";

void RequireLines(const SectionReport& section, int lines) {
    const auto isLine = [lines](const std::optional<int>& line) { return !line || (*line >= 1 && *line <= lines); };
    Require(isLine(section.titleLine) && isLine(section.endLine) && isLine(section.unseenTitleLine),
            "a section stands in the text");
    Require(std::ranges::all_of(section.passedOver, [&](const PassedOverRow& row) { return isLine(row.line); }),
            "a row that is passed over stands in the text");
    Require(!section.firstRecord || isLine(section.firstRecord->line), "a record's row stands in the text");
    Require(!section.titleLine || !section.endLine || *section.titleLine <= *section.endLine,
            "a section ends behind its title");
}

void RequireLines(const CScanReport& seen) {
    for (const ReaderPass& pass : seen.Passes()) {
        for (const SectionReport& section : pass.sections) RequireLines(section, seen.LineCount());
    }
}

/// REQUIRES: reading all of it met no error.
void RequireSameTrades(const StatementChoice& choice, std::string_view text, CReport& whole) {
    CFuzzReport trades(choice, false);
    CStatementLoader loader(trades.Get());
    loader.WantOnlyRows(SectionKind::Trades);
    loader.Read(kDay, text);
    const CReport& report = trades.Get();
    Require(report.MatchStore.Count() == whole.MatchStore.Count(), "trades that are read alone are all trades");
    Require(
        report.PingDetailStore.Count() == 0 && report.OpiDetailStore.Count() == 0 && report.OpiSumStore.Count() == 0,
        "trades that are read alone are nothing but trades");
}

}  // namespace

void FuzzReaders(std::string_view bytes) {
    CFuzzInput input(bytes);
    const StatementChoice choice = TakeStatementChoice(input);
    const bool asksProducts = input.Choice(2) == 1;
    const std::string_view text = input.Text();
    CFuzzReport told(choice, asksProducts);
    CScanReport seen(text);
    const bool isRead = ReadStatement(told.Get(), kDay, text, nullptr, &seen);
    seen.Finish();
    RequireLines(seen);
    CFuzzReport silent(choice, asksProducts);
    Require(ReadStatement(silent.Get(), kDay, text, nullptr, nullptr) == isRead,
            "an error is one whether somebody listens or not");
    RequireSameRows(told.Get(), silent.Get());
    if (isRead) RequireSameTrades(choice, text, silent.Get());
    static_cast<void>(LikelyLayouts(text));
}

}  // namespace tradebill
