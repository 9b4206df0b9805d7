#include "cli/layouts_command.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iomanip>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command_table.h"
#include "cli/explain_command.h"
#include "cli/statement_day.h"
#include "platform/text_encoding.h"
#include "readers/layout_table.h"
#include "report/account_key.h"
#include "requests/layout_readings.h"
#include "requests/statement_size.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

struct LayoutLine {
    std::string format;
    std::string kind;
    std::string sample;
    std::string premium;
    std::string mark;
};

/// The mark stands last: its width on a terminal isn't that of its bytes.
void Print(const LayoutLine& line) {
    std::cout << std::left << std::setw(8) << line.format << std::setw(10) << line.kind << std::setw(22) << line.sample
              << std::setw(9) << line.premium << line.mark << "\n";
}

using ReadingCells = std::array<std::string, 7>;

void PrintReading(const ReadingCells& cells) {
    constexpr int kWidths[] = {8, 10, 22, 10, 7, 9, 0};
    for (std::size_t i = 0; i < cells.size(); ++i) std::cout << std::left << std::setw(kWidths[i]) << cells[i];
    std::cout << "\n";
}

ReadingCells ReadingLine(const LayoutReading& reading) {
    return {reading.isForeign ? "-" : std::to_string(reading.format),
            std::string(KindName(reading.isForeign)),
            reading.name,
            std::to_string(reading.sections),
            std::to_string(reading.rows),
            std::to_string(reading.records),
            std::string(reading.hasMarks ? "yes" : "no") + (reading.isStopped ? ", reading stops with an error" : "")};
}

std::string_view PremiumText(PremiumRule rule) {
    switch (rule) {
        case PremiumRule::Any:
            return "any";
        case PremiumRule::Without:
            return "without";
        case PremiumRule::With:
            return "with";
    }
    return {};
}

}  // namespace

void PrintLayouts() {
    Print({"format", "kind", "layout and sample", "options", "mark in the text"});
    for (const Layout& layout : Layouts()) {
        Print({layout.isForeign ? "-" : std::to_string(layout.format), std::string(KindName(layout.isForeign)),
               std::string(layout.name), std::string(PremiumText(layout.premium)), GbkToUtf8(layout.marks.mark)});
    }
    Print({"any", "domestic", "template-pairs", "any", "whatever the template names (money as labels and values)"});
    Print({"any", "domestic", "template-row", "any", "whatever the template names (money in one row)"});
    std::cout << "\nOf two layouts of one format the one \"with\" options reads statements that speak of \""
              << GbkToUtf8(PremiumWord())
              << "\" anywhere.\nbilingual-new follows bilingual from the change date of the request's template on.\n";
}

int PrintReadings(const std::string& file) {
    const std::string day = DayOfStatement(std::nullopt, file).day;
    const std::string text = StatementTextAt(file, StatementLimitOf({}));
    const std::vector<LayoutReading> readings = ReadByEachLayout(text, day);
    PrintReading({"format", "kind", "layout", "sections", "rows", "records", "marks in the text"});
    for (const LayoutReading& reading : readings) PrintReading(ReadingLine(reading));
    const bool isRead =
        std::ranges::any_of(readings, [](const LayoutReading& reading) { return reading.sections > 0; });
    std::cout
        << (isRead ? "\nexplain FILE --format N shows what a layout sees, row by row.\n"
                   : "\nNo layout finds a section of its own. A template may describe this one (docs/templates.md).\n");
    return isRead ? kExitDone : kExitNothingRecognised;
}

CommandRun DeclareLayouts(CLI::App& app) {
    const auto file = std::make_shared<std::string>();
    app.add_option("FILE", *file, "A statement: what each layout would read of it; - for standard input")
        ->type_name("");
    return [file] {
        if (!file->empty()) return PrintReadings(*file);
        PrintLayouts();
        return kExitDone;
    };
}

}  // namespace tradebill
