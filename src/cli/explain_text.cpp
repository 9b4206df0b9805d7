#include <cstddef>
#include <iomanip>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/explain_command.h"
#include "cli/explain_words.h"
#include "cli/scan_report.h"
#include "cli/usage_error.h"
#include "readers/scan_listener.h"

namespace tradebill {
namespace {

constexpr std::size_t kMostRowsShown = 20;  // a wrong layout passes over every row, and the first ones tell why

std::string Join(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
    return text;
}

std::string Plural(int count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

void PrintTemplate(const CScanReport& report) {
    if (!report.Template() || report.Template()->outcome == TemplateSeen::Outcome::NoFile) return;
    const TemplateReport& seen = *report.Template();
    std::cout << "Template    " << (seen.newScheme ? "its new description" : "its old description") << ": ";
    switch (seen.outcome) {
        case TemplateSeen::Outcome::Incomplete:
            std::cout << "declined at section [" << seen.section << "], which lacks " << seen.missingKey
                      << "; a fixed reader reads the whole statement again\n";
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
        if (section.endLine) std::cout << " to line " << *section.endLine << " (" << section.terminatorWord << ")";
    } else if (section.titleLine) {
        std::cout << "not found: its title stands at line " << *section.titleLine << ", but no row that ends it ("
                  << section.terminatorWord << ")";
    } else if (section.unseenTitleLine) {
        std::cout << "not found: its title stands at line " << *section.unseenTitleLine
                  << ", above where this reader looks; sections must come in the layout's order";
    } else {
        std::cout << "not found: no row contains its title \"" << section.titleWord << "\"";
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
        std::cout << "    money record" << (money.currency.empty() ? "" : " " + money.currency) << ":";
        for (const auto& [name, value] : money.fields) std::cout << " " << name << "=" << value;
        std::cout << "\n";
    }
}

void PrintSection(const SectionReport& section) {
    std::cout << "  " << std::left << std::setw(18) << KindText(section.kind);
    PrintWhere(section);
    if (!section.IsFound()) return;
    std::cout << "    " << Plural(section.rowsRead, "row read", "rows read") << ", " << section.passedOver.size()
              << " passed over, " << Plural(section.records, "record", "records") << "\n";
    PrintPassedOver(section);
    PrintMoney(section);
}

void PrintPass(const ReaderPass& pass) {
    std::cout << "\nRead as " << pass.layout << "\n";
    if (!pass.dateWord.empty()) {
        const bool found = !pass.date.empty();
        std::cout << "  date              " << (found ? "\"" + pass.date + "\" behind" : std::string("none behind"))
                  << " \"" << pass.dateWord << "\"\n";
    }
    for (const SectionReport& section : pass.sections) PrintSection(section);
}

void PrintVerdict(const Explanation& explanation, const CScanReport& report) {
    std::cout << "\n";
    if (!explanation.stop.empty()) {
        std::cout << "The reading stopped with an error, and so would a report: " << explanation.stop << ".\n";
    } else if (explanation.exitCode == kExitNothingRecognised) {
        std::cout << "Nothing was recognised.\n";
    } else {
        std::cout << Plural(report.FoundSections(), "section", "sections") << " found, "
                  << (report.MoneyRecords() > 0 ? Plural(report.MoneyRecords(), "money record", "money records")
                                                : std::string("but no money record: the report won't have this day"))
                  << ".\n";
    }
    if (explanation.looksLike.empty()) {
        if (explanation.exitCode != kExitDone) std::cout << "No layout's mark stands in the text.\n";
    } else {
        std::string options;
        for (const std::string& option : explanation.looksLike) options += (options.empty() ? "" : " or ") + option;
        std::cout << "This looks like " << options << ".\n";
    }
}

/// Where nothing tells the day, one that is guessed decides between layouts that change with it.
std::string_view DayHint(const Explanation& explanation) {
    return explanation.daySource == "today" ? "; --day says another" : "";
}

}  // namespace

void PrintExplanation(const Explanation& explanation, const CScanReport& report) {
    std::cout << "Statement   " << explanation.file << ", " << Plural(report.LineCount(), "line", "lines") << "\n"
              << "Day         " << explanation.day << " (" << explanation.daySource << DayHint(explanation) << ")\n"
              << "Layout      " << explanation.format;
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
