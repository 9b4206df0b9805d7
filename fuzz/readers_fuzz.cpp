// Any bytes as a statement of a fixed layout. Who listens changes nothing; what a listener is told stands in the text;
// readers that are asked for the trades alone give the same trades, and so does a text of other line ends, or one that
// is read behind another.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "fuzz_statement.h"
#include "fuzz_target.h"
#include "readers/layout_marks.h"
#include "readers/statement_loader.h"
#include "readers/statement_text.h"
#include "report/report.h"
#include "requests/scan_report.h"

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
    Require(seen.MoneyRecords() == 0 || seen.FoundSections() > 0, "money stands in a section");
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

std::string WithCarriageReturns(std::string_view text) {
    std::string result;
    for (const char byte : text) result += byte == '\n' ? "\r\n" : std::string(1, byte);
    return result;
}

/// REQUIRES: the text has no carriage return.
void RequireSameWithCarriageReturns(const StatementChoice& choice, bool asksProducts, std::string_view text,
                                    const CReport& whole) {
    CFuzzReport other(choice, asksProducts);
    static_cast<void>(ReadStatement(other.Get(), kDay, WithCarriageReturns(text), nullptr, nullptr));
    RequireSameRows(other.Get(), whole);
}

/// Whether the reader of `seen` passes over a statement that prints a day of `report`, as `text` does.
bool PassesOver(const CScanReport& seen, std::string_view text, const CReport& report) {
    const auto looksForDay = [](const ReaderPass& pass) { return pass.layout == "tabulated"; };
    return std::ranges::any_of(seen.Passes(), looksForDay) &&
           report.MoneyStore.HasDay(ScanDate(text, "制表时间："_gbk));
}

/// REQUIRES: `whole` is of a reading that met no error.
void RequireSameAgain(std::string_view text, const CScanReport& seen, CReport& whole) {
    const std::int32_t times = PassesOver(seen, text, whole) ? 1 : 2;
    const std::int32_t trades = whole.MatchStore.Count();
    const std::int32_t closed = whole.PingDetailStore.Count();
    const std::int32_t open = whole.OpiDetailStore.Count();
    const std::int32_t sums = whole.OpiSumStore.Count();
    Require(ReadStatement(whole, "20240103", text, nullptr, nullptr), "what was read without an error is so again");
    Require(whole.MatchStore.Count() == times * trades && whole.PingDetailStore.Count() == times * closed &&
                whole.OpiDetailStore.Count() == times * open && whole.OpiSumStore.Count() == times * sums,
            "a statement has as many rows behind another, or none if its reader looks for its day");
}

}  // namespace

void FuzzReaders(std::string_view bytes) {
    CFuzzInput input(bytes);
    const StatementChoice choice = TakeStatementChoice(input);
    const std::size_t settings = input.Byte();
    const bool asksProducts = (settings & 1) != 0;
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
    if ((settings & 2) != 0 && text.find('\r') == std::string_view::npos) {
        RequireSameWithCarriageReturns(choice, asksProducts, text, silent.Get());
    }
    if ((settings & 4) != 0 && isRead) RequireSameAgain(text, seen, silent.Get());
    static_cast<void>(LikelyLayouts(text));
}

}  // namespace tradebill
