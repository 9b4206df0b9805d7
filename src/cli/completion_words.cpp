#include "cli/completion_words.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/completion_scripts.h"
#include "cli/program_outline.h"
#include "cli/typed_line.h"
#include "driver/present_day.h"
#include "images/chart_kinds.h"
#include "platform/paths.h"
#include "report/account_key.h"
#include "report/statement_format.h"
#include "requests/account_files.h"
#include "requests/carried_templates.h"
#include "requests/format_choice.h"
#include "requests/kept_accounts.h"
#include "requests/layout_readings.h"

namespace tradebill {
namespace {

using OfferedWords = std::vector<OfferedWord>;

OfferedWords UserWords(const TypedLine& line) {
    OfferedWords words;
    if (!line.root) return words;
    for (std::string& user : UsersBelow(*line.root)) {
        if (IsFolder(*line.root + "/Users/" + user)) words.push_back({std::move(user)});
    }
    return words;
}

/// Each number once, with whose it is.
OfferedWords AccountWords(const TypedLine& line) {
    if (!line.root) return {};
    std::map<std::string, std::string> users;
    for (const KeptAccount& kept : FindKeptAccounts(*line.root, {.user = line.user}, PresentDay().day)) {
        std::string& shown = users[kept.key.account];
        if (shown.empty()) {
            shown = kept.key.user;
        } else if (shown != kept.key.user) {
            shown += ", " + kept.key.user;
        }
    }
    OfferedWords words;
    for (const auto& [account, of] : users) words.push_back({account, of});
    return words;
}

/// The root's own first, then those that the program has.
OfferedWords TemplateWords(const TypedLine& line) {
    OfferedWords words;
    if (line.root) {
        for (std::string& name : OwnTemplates(*line.root)) words.push_back({std::move(name)});
    }
    for (const CarriedTemplate& carried : CarriedTemplates()) words.push_back({std::string(carried.name)});
    return words;
}

OfferedWords FormatWords(const TypedLine& /*line*/) {
    OfferedWords words{{std::string(kAutoFormat)}};
    for (const StatementFormat& format : StatementFormats()) words.push_back({std::to_string(format.number)});
    return words;
}

OfferedWords KindWords(const TypedLine& /*line*/) {
    return {{std::string(KindName(false))}, {std::string(KindName(true))}};
}

OfferedWords ChartWords(const TypedLine& /*line*/) {
    OfferedWords words;
    for (const AccountChart* const chart : AccountCharts()) words.push_back({std::string(chart->name)});
    return words;
}

OfferedWords ShellWords(const TypedLine& /*line*/) {
    OfferedWords words;
    for (const CompletionScript& script : CompletionScripts()) words.push_back({std::string(script.shell)});
    return words;
}

/// What a value is, by the option that takes it and by what the help calls it.
struct ValueRow {
    std::string_view name;  ///< of an option, or of a command's word; empty: any
    std::string_view value;
    Offer offer;
    OfferedWords (*words)(const TypedLine& line) = nullptr;
};

// clang-format off
constexpr ValueRow kValues[] = {
    {"", "FILE",      Offer::Files},
    {"", "FILE.ini",  Offer::Files},
    {"", "STATEMENT", Offer::Files},
    {"", "DIR",       Offer::Folders},
    {"", "NO",        Offer::Words, AccountWords},
    {"", "KIND",      Offer::Words, KindWords},
    {"--user",     "NAME", Offer::Words, UserWords},
    {"--template", "NAME", Offer::Words, TemplateWords},
    {"--format",   "N",    Offer::Words, FormatWords},
    {"FILE",  "", Offer::Files},
    {"A",     "", Offer::Files},
    {"B",     "", Offer::Files},
    {"PAGE",  "", Offer::Files},
    {"ROOT",  "", Offer::Folders},
    {"DIR",   "", Offer::Folders},
    {"CHART", "", Offer::Words, ChartWords},
    {"SHELL", "", Offer::Words, ShellWords},
};
// clang-format on

/// Nothing is offered of what no row tells.
Completion CompleteValue(const OutlinedOption& option, const TypedLine& line) {
    const auto* const row = std::ranges::find_if(kValues, [&](const ValueRow& known) {
        return known.value == option.value && (known.name.empty() || known.name == option.names.back());
    });
    if (row == std::end(kValues)) return {};
    return {.offer = row->offer, .words = row->words == nullptr ? OfferedWords{} : row->words(line)};
}

OfferedWords OptionWords(const ProgramOutline& program, const TypedLine& line) {
    OfferedWords words;
    for (const OutlinedOption& option : line.command == nullptr ? program.options : line.command->options) {
        words.push_back({option.names.back(), option.help});
    }
    return words;
}

/// The commands of the group that the line has come to, or all that stand first.
OfferedWords CommandWords(const ProgramOutline& program, const TypedLine& line) {
    OfferedWords words;
    for (const OutlinedCommand& command : program.commands) {
        if (command.path.size() != line.path.size() + 1) continue;
        if (std::equal(line.path.begin(), line.path.end(), command.path.begin())) {
            words.push_back({command.path.back(), command.help});
        }
    }
    if (!line.path.empty()) return words;
    for (const auto* const more : {&program.groups, &program.extraWords}) {
        for (const OutlinedWord& word : *more) words.push_back({word.name, word.help});
    }
    return words;
}

Completion CompleteWord(const OutlinedCommand& command, const TypedLine& line) {
    const auto& words = command.words;
    if (line.wordsGiven < words.size()) return CompleteValue(words[line.wordsGiven], line);
    if (!words.empty() && words.back().isRepeated) return CompleteValue(words.back(), line);
    return {};
}

/// The value in a word like "--kind=for"; nothing if it is none.
std::optional<Completion> CompleteJoined(const ProgramOutline& program, const TypedLine& line,
                                         const std::string& begun) {
    const std::size_t end = begun.find('=');
    if (end == std::string::npos) return std::nullopt;
    const OutlinedOption* const option = FindOption(program, line, begun.substr(0, end));
    if (option == nullptr || option->value.empty()) return Completion{};
    Completion completion = CompleteValue(*option, line);
    completion.before = begun.substr(0, end + 1);
    return completion;
}

}  // namespace

Completion Complete(const ProgramOutline& program, std::span<const std::string> words) {
    if (words.empty()) return {};
    const std::string& begun = words.back();
    const TypedLine line = ReadTypedLine(program, words.first(words.size() - 1));
    if (line.open != nullptr) return CompleteValue(*line.open, line);
    if (begun.starts_with('-') && !line.isBehindMark) {
        if (auto joined = CompleteJoined(program, line, begun)) return *std::move(joined);
        return {.words = OptionWords(program, line)};
    }
    return line.command == nullptr ? Completion{.words = CommandWords(program, line)}
                                   : CompleteWord(*line.command, line);
}

}  // namespace tradebill
