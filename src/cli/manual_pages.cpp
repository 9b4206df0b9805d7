#include "cli/manual_pages.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command_table.h"
#include "cli/completion_command.h"
#include "cli/declared_commands.h"
#include "cli/manual_texts.h"
#include "cli/program_outline.h"
#include "cli/roff_text.h"

namespace tradebill {
namespace {

std::string Joined(const std::vector<std::string>& words, std::string_view separator) {
    std::string text;
    for (const std::string& word : words) text.append(text.empty() ? "" : separator).append(word);
    return text;
}

std::string Uppercase(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return text;
}

std::string Bold(std::string_view text) {
    return "\\fB" + RoffText(text) + "\\fR";
}

std::string Italic(std::string_view text) {
    return "\\fI" + RoffText(text) + "\\fR";
}

/// `body` is roff already.
std::string Section(std::string_view title, std::string_view body) {
    constexpr std::string_view kParagraph = ".PP\n";
    if (body.starts_with(kParagraph)) body.remove_prefix(kParagraph.size());  // a section begins with one
    return ".SH " + RoffArgument(title) + "\n" + std::string(body);
}

/// `tag` is roff already.
std::string Tagged(const std::string& tag, std::string_view text) {
    return ".TP\n" + tag + "\n" + RoffText(text) + "\n";
}

std::string Example(std::string_view call) {
    return ".PP\n.RS 4\n.nf\n" + RoffText(call) + "\n.fi\n.RE\n";
}

/// A paragraph a line; what is to be typed has two blanks in front.
std::string Paragraphs(std::string_view text) {
    constexpr std::string_view kTyped = "  ";
    std::string paragraphs;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        const bool isTyped = line.starts_with(kTyped);
        paragraphs += isTyped ? Example(line.substr(kTyped.size())) : ".PP\n" + RoffText(line) + "\n";
    }
    return paragraphs;
}

std::string PageName(const OutlinedCommand& command) {
    return std::string(kProgramName) + "-" + Joined(command.path, "-");
}

std::string Heading(const std::string& page, const ManualEdition& edition, std::string_view purpose) {
    return ".TH " + RoffArgument(Uppercase(page)) + " 1 \"" + edition.date + "\" " +
           RoffArgument(std::string(kProgramName) + " " + edition.version) + " \"User Commands\"\n" +
           Section("NAME", RoffText(page) + " \\- " + RoffText(purpose) + "\n");
}

/// "-o, --output FILE"
std::string OptionTag(const OutlinedOption& option) {
    std::string tag;
    for (const std::string& name : option.names) tag.append(tag.empty() ? "" : ", ").append(Bold(name));
    return option.value.empty() ? tag : tag + " " + Italic(option.value);
}

/// A sentence of its own behind what the help says.
void AddSentence(std::string& text, const std::string& sentence) {
    if (!text.empty() && !text.ends_with('.')) text += '.';
    text.append(text.empty() ? "" : " ").append(sentence).append(".");
}

std::string OptionText(const OutlinedOption& option) {
    std::string text = option.help;
    if (!option.range.empty()) AddSentence(text, "In the range " + option.range);
    if (!option.defaultValue.empty()) AddSentence(text, "Default: " + option.defaultValue);
    if (!option.needed.empty()) AddSentence(text, "Goes with " + Joined(option.needed, " and "));
    if (option.isRequired && option.names.front().starts_with('-')) AddSentence(text, "Required");
    return text;
}

std::string Options(std::string_view title, const std::vector<OutlinedOption>& options,
                    std::string (*tag)(const OutlinedOption&)) {
    if (options.empty()) return {};
    std::string text;
    for (const OutlinedOption& option : options) text += Tagged(tag(option), OptionText(option));
    return Section(title, text);
}

std::string WordTag(const OutlinedOption& word) {
    return Italic(word.names.front());
}

std::string Synopsis(const OutlinedCommand& command) {
    std::string text = Bold(std::string(kProgramName) + " " + Joined(command.path, " "));
    for (const OutlinedOption& option : command.options) {
        if (option.isRequired) text += " " + OptionTag(option);
    }
    text += " [" + Italic("OPTIONS") + "]";
    for (const OutlinedOption& word : command.words) {
        const std::string shown = WordTag(word) + (word.isRepeated ? " ..." : "");
        text += word.isRequired ? " " + shown : " [" + shown + "]";
    }
    return Section("SYNOPSIS", text + "\n");
}

/// Of "0 done; 1 something is missing" each code with what it says. What begins with no code stands alone.
std::string ExitCodes(std::string_view exits) {
    if (exits.empty()) return {};
    constexpr std::string_view kBetween = "; ";
    std::string text;
    while (!exits.empty()) {
        const std::string_view one = exits.substr(0, exits.find(kBetween));
        exits.remove_prefix(std::min(exits.size(), one.size() + kBetween.size()));
        const std::size_t digits = std::min(one.size(), one.find_first_not_of("0123456789"));
        if (digits == 0) {
            text += ".PP\n" + RoffText(one) + "\n";
        } else {
            text += Tagged(Bold(one.substr(0, digits)), one.substr(std::min(one.size(), digits + 1)));
        }
    }
    return Section("EXIT STATUS", text);
}

std::string References(const std::vector<std::string>& pages) {
    std::string text;
    for (const std::string& page : pages) {
        text += ".BR " + RoffText(page) + " (1)" + (&page == &pages.back() ? "\n" : ",\n");
    }
    return text;
}

std::string Description(const Command& row, const std::string& help) {
    std::string text = RoffText(help + ".") + "\n" + Paragraphs(row.notes);
    if (!row.guide.empty()) {
        text += Paragraphs("More is told in " + std::string(row.guide) + ", among the documents of the program.");
    }
    return Section("DESCRIPTION", text);
}

ManualPage PageOf(const OutlinedCommand& command, const ManualEdition& edition) {
    const std::string name = PageName(command);
    std::string text = Heading(name, edition, command.help) + Synopsis(command);
    text += Description(command.row, command.help);
    text += Options("WORDS", command.words, WordTag) + Options("OPTIONS", command.options, OptionTag);
    text += ExitCodes(command.row.exits);
    if (!command.row.example.empty()) {
        text += Section("EXAMPLE", Example(std::string(kProgramName) + " " + std::string(command.row.example)));
    }
    return {name, text + Section("SEE ALSO", References({kProgramName}))};
}

template <class Entries>
std::string EntrySection(std::string_view title, const Entries& entries) {
    std::string text;
    for (const ManualEntry& entry : entries) text += Tagged(Bold(entry.name), entry.text);
    return Section(title, text);
}

std::string CommandList(const ProgramOutline& program) {
    std::string text;
    for (const OutlinedCommand& command : program.commands) {
        text += Tagged(Bold(Joined(command.path, " ")), command.help);
    }
    for (const OutlinedWord& word : program.extraWords) text += Tagged(Bold(word.name), word.help);
    return Section("COMMANDS", text);
}

ManualPage PageOfProgram(const ProgramOutline& program, const ManualEdition& edition) {
    std::string text = Heading(kProgramName, edition, kManualPurpose);
    text += Section("SYNOPSIS", Bold(kProgramName) + " " + Italic("COMMAND") + " [" + Italic("OPTIONS") + "]\n");
    text += Section("DESCRIPTION", Paragraphs(kManualDescription));
    text += CommandList(program) + Options("OPTIONS", program.options, OptionTag);
    text += EntrySection("FILES", kManualFiles) + EntrySection("ENVIRONMENT", kManualEnvironment) +
            EntrySection("EXIT STATUS", kManualExits);
    text += Section("COMPLETION", Paragraphs(kCompletionNotes));
    std::vector<std::string> pages;
    pages.reserve(program.commands.size());
    for (const OutlinedCommand& command : program.commands) pages.push_back(PageName(command));
    return {kProgramName, text + Section("SEE ALSO", References(pages))};
}

}  // namespace

std::vector<ManualPage> ManualPages(const ProgramOutline& program, const ManualEdition& edition) {
    std::vector<ManualPage> pages{PageOfProgram(program, edition)};
    for (const OutlinedCommand& command : program.commands) pages.push_back(PageOf(command, edition));
    return pages;
}

}  // namespace tradebill
