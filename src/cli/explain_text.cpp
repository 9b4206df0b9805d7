#include <cstddef>
#include <iomanip>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/explain_command.h"
#include "cli/explain_words.h"
#include "cli/shown_text.h"
#include "readers/scan_listener.h"
#include "requests/scan_report.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr std::size_t kMostRowsShown = 20;  // a wrong layout passes over every row, and the first ones tell why
constexpr std::size_t kMostAmountsShown = 5;
constexpr std::size_t kLongestCell = 60;  // bytes; where a delimiter is wrong, a cell is a whole row

std::string Join(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : ", ") + ShownText(word);
    return text;
}

std::string Plural(int count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

/// A cell, which is UTF-8, cut between two characters if it is long.
std::string Shortened(const std::string& cell) {
    if (cell.size() <= kLongestCell) return ShownText(cell);
    std::size_t size = kLongestCell;
    while ((static_cast<unsigned char>(cell[size]) & 0xC0) == 0x80) --size;
    return ShownText(cell.substr(0, size)) + "...";
}

std::string NamedValues(const NamedTexts& fields) {
    std::string text;
    for (const auto& [name, value] : fields) text.append(" ").append(name).append("=").append(ShownText(value));
    return text;
}

/// What a template that declines leaves behind.
void PrintDeclined(const TemplateReport& seen, const CScanReport& report) {
    const bool isReadAgain = !report.IsReadAs(kTemplatePass);
    std::cout << "declined at section [" << ShownText(seen.section) << "], which lacks " << seen.missingKey << "; "
              << (isReadAgain ? "a fixed reader reads the whole statement again" : "no fixed reader serves this format")
              << "\n";
    std::string sections;
    for (const SectionKind kind : report.ReadBeforeDeclining()) {
        sections += (sections.empty() ? "" : ", ") + std::string(KindText(kind));
    }
    if (!sections.empty()) std::cout << "            what it had read before stays in the report: " << sections << "\n";
}

void PrintTemplate(const CScanReport& report) {
    if (!report.Template() || report.Template()->outcome == TemplateSeen::Outcome::NoFile) return;
    const TemplateReport& seen = *report.Template();
    std::cout << "Template    " << (seen.newScheme ? "its new description" : "its old description") << ": ";
    switch (seen.outcome) {
        case TemplateSeen::Outcome::Incomplete:
            PrintDeclined(seen, report);
            break;
        case TemplateSeen::Outcome::KnownDay:
            std::cout << "a statement of this date has been read, this one is passed over\n";
            break;
        default:
            std::cout << "reads the statement\n";
    }
}

void PrintWhere(const SectionReport& section) {
    if (section.IsFound()) {
        std::cout << "from line " << *section.titleLine;
        if (section.endLine)
            std::cout << " to line " << *section.endLine << " (" << ShownText(section.terminatorWord) << ")";
    } else if (section.titleLine) {
        std::cout << "not found: its title stands at line " << *section.titleLine << ", but no row that ends it ("
                  << ShownText(section.terminatorWord) << ")";
    } else if (section.unseenTitleLine) {
        std::cout << "not found: its title stands at line " << *section.unseenTitleLine
                  << ", above where this reader looks; sections must come in the layout's order";
    } else {
        std::cout << "not found: no row contains its title \"" << ShownText(section.titleWord) << "\"";
    }
    std::cout << "\n";
}

void PrintPassedOver(const SectionReport& section) {
    std::size_t shown = 0;
    for (const PassedOverRow& row : section.passedOver) {
        if (++shown > kMostRowsShown) break;
        std::cout << "    line " << row.line << " passed over: " << FateText(row) << "\n";
    }
    if (section.passedOver.size() > kMostRowsShown) {
        std::cout << "    ... and " << section.passedOver.size() - kMostRowsShown << " more\n";
    }
}

void PrintMoney(const SectionReport& section) {
    if (!section.labelsMet.empty()) std::cout << "    labels met: " << Join(section.labelsMet) << "\n";
    if (!section.labelsNotMet.empty()) std::cout << "    labels not met: " << Join(section.labelsNotMet) << "\n";
    for (const MoneySeen& money : section.money) {
        std::cout << "    money record" << (money.currency.empty() ? "" : " " + ShownText(money.currency)) << ":";
        std::cout << NamedValues(money.fields) << "\n";
    }
}

void PrintWrongAmounts(const SectionReport& section) {
    std::size_t shown = 0;
    for (const WrongAmount& amount : section.wrongAmounts) {
        if (++shown > kMostAmountsShown) break;
        std::cout << "    line " << amount.line << ": " << amount.field << " is \"" << Shortened(amount.text)
                  << "\", no amount; it is read as " << amount.readAs << "\n";
    }
    if (section.wrongAmounts.size() > kMostAmountsShown) {
        std::cout << "    ... and " << section.wrongAmounts.size() - kMostAmountsShown << " more that are no amounts\n";
    }
}

void PrintLackedColumns(const SectionReport& section) {
    for (const LackedColumn& column : section.columns) {
        const std::string name = "column " + std::to_string(column.column) + " (" + column.field + ")";
        if (column.lacking == column.rows) {
            std::cout << "    no row has " << name << ": the longest has " << section.widestRow
                      << " columns, counted from 0\n";
        } else {
            std::cout << "    " << column.lacking << " of " << column.rows << " rows lack " << name
                      << ", the first at line " << column.firstLine << "\n";
        }
    }
}

void PrintSection(const SectionReport& section) {
    std::cout << "  " << std::left << std::setw(18) << KindText(section.kind);
    PrintWhere(section);
    if (!section.IsFound()) return;
    std::cout << "    " << Plural(section.rowsRead, "row read", "rows read") << ", " << section.passedOver.size()
              << " passed over, " << Plural(section.records, "record", "records") << "\n";
    PrintPassedOver(section);
    if (section.firstRecord) {
        const FirstRecord& first = *section.firstRecord;
        std::cout << "    first record" << (first.line ? ", line " + std::to_string(*first.line) : std::string()) << ":"
                  << NamedValues(first.fields) << "\n";
    }
    PrintMoney(section);
    PrintWrongAmounts(section);
    PrintLackedColumns(section);
}

void PrintPass(const ReaderPass& pass) {
    std::cout << "\nRead as " << pass.layout << "\n";
    if (!pass.dateWord.empty()) {
        const bool found = !pass.date.empty();
        std::cout << "  date              "
                  << (found ? "\"" + ShownText(pass.date) + "\" behind" : std::string("none behind")) << " \""
                  << ShownText(pass.dateWord) << "\"\n";
    }
    for (const SectionReport& section : pass.sections) PrintSection(section);
}

std::string WhereItStopped(const std::optional<ReadingPlace>& place) {
    if (!place) return {};
    const std::string section = " in the section " + std::string(KindText(place->section));
    return section +
           (place->line ? ", at line " + std::to_string(*place->line) : ", at a row that the text doesn't have");
}

void PrintHint(const Explanation& explanation, const CScanReport& report) {
    const LayoutHint& hint = explanation.hint;
    if (!hint.needsTemplate.empty()) {
        std::cout
            << "The marks in the text are those of " << hint.needsTemplate
            << ", which needs its template: --template FILE.ini, with BILLFORMAT_NEWDATE at this day or before.\n";
    }
    if (!hint.looksLike.empty()) {
        std::string options;
        for (const std::string& option : hint.looksLike) options += (options.empty() ? "" : " or ") + option;
        std::cout << "This looks like " << options << ".\n";
    } else if (explanation.exitCode == kExitDone) {
        return;
    } else if (hint.bearsOwnMark) {
        std::cout
            << "The mark of this layout stands in the text: the statement is damaged, or of a variant that only a "
               "template can describe (--template FILE.ini).\n";
    } else {
        std::cout << "No layout's mark stands in the text.\n";
        if (report.Template() && report.Template()->outcome == TemplateSeen::Outcome::NoFile) {
            std::cout << "A layout that only a template describes needs --template FILE.ini and its --format N.\n";
        }
    }
}

void PrintVerdict(const Explanation& explanation, const CScanReport& report) {
    std::cout << "\n";
    if (!explanation.stop.empty()) {
        std::cout << "The reading stopped with an error" << WhereItStopped(report.Place())
                  << ", and so would a report: " << explanation.stop << ".\n";
    } else if (explanation.exitCode == kExitNothingRecognised) {
        std::cout << "Nothing was recognised.\n";
    } else {
        std::cout << Plural(report.FoundSections(), "section", "sections") << " found, "
                  << (report.MoneyRecords() > 0 ? Plural(report.MoneyRecords(), "money record", "money records")
                                                : std::string("but no money record: the report won't have this day"))
                  << ".\n";
    }
    PrintHint(explanation, report);
}

/// Where nothing tells the day, one that is guessed decides between layouts that change with it.
std::string_view DayHint(const Explanation& explanation) {
    return explanation.daySource == "today" ? "; --day says another" : "";
}

}  // namespace

void PrintExplanation(const Explanation& explanation, const CScanReport& report) {
    std::cout << "Statement   " << ShownText(explanation.file) << ", " << Plural(report.LineCount(), "line", "lines")
              << "\n"
              << "Day         " << explanation.day << " (" << explanation.daySource << DayHint(explanation) << ")\n"
              << "Layout      " << ShownText(explanation.format);
    for (const ReaderPass& pass : report.Passes()) {
        const std::string why = ReasonText(pass.layout);
        if (!why.empty()) std::cout << ", " << why;
    }
    std::cout << "\n";
    PrintTemplate(report);
    for (const ReaderPass& pass : report.Passes()) PrintPass(pass);
    PrintVerdict(explanation, report);
}

}  // namespace tradebill
