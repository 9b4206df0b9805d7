#include "cli/command_line.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/declared_commands.h"
#include "cli/nearest_word.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

using Words = std::vector<std::string>;

/// "help report" is "report --help", and "version" is "--version".
Words WithoutHelpWords(Words words) {
    if (words.empty()) return words;
    if (words.front() == kVersionWord && words.size() == 1) return {"--version"};
    if (words.front() != kHelpWord) return words;
    words.erase(words.begin());
    words.emplace_back("--help");
    return words;
}

/// Those that somebody may type: what is hidden from the help isn't among them.
Words CommandNames(const CLI::App& app) {
    Words names;
    for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
        if (!command->get_group().empty()) names.push_back(command->get_name());
    }
    return names;
}

Words OptionNames(const CLI::App& app) {
    Words names;
    for (const CLI::Option* const option : app.get_options()) {
        if (option->get_group().empty()) continue;
        for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    }
    return names;
}

std::string Hint(std::string_view typed, const Words& names) {
    const std::string_view nearest = NearestWord(typed, names);
    return nearest.empty() ? std::string() : ", did you mean " + std::string(nearest) + "?";
}

/// "tradebill report" for the command at hand, as far as the command line got.
std::string HelpCommand(const CLI::App& app) {
    std::string name = app.get_name();
    for (const CLI::App* const command : app.get_subcommands()) name += " " + HelpCommand(*command);
    return name;
}

[[noreturn]] void Refuse(const std::string& why, const std::string& command) {
    throw CUsageError(why + " (" + command + " --help lists what is expected)");
}

[[noreturn]] void RefuseOption(const CLI::App& app, const std::string& typed, const std::string& command) {
    const std::string_view name = std::string_view(typed).substr(0, typed.find('='));
    Refuse("there is no option " + typed + Hint(name, OptionNames(app)), command);
}

/// Commands are words before anything else; the library itself would only say that one is missing.
void RequireCommand(const CLI::App& app, std::span<const std::string> words, const std::string& command) {
    const Words names = CommandNames(app);
    if (names.empty()) return;
    if (words.empty()) Refuse("expected a command", command);
    const std::string& word = words.front();
    if (word.starts_with("-")) {  // ahead of a command there are flags alone
        if (app.get_option_no_throw(word) == nullptr) RefuseOption(app, word, command);
        if (word == kNoColoursOption) RequireCommand(app, words.subspan(1), command);
        return;  // help and version need none
    }
    const auto named = app.get_subcommands([&](const CLI::App* one) { return one->check_name(word); });
    if (named.empty()) Refuse("there is no command \"" + word + "\"" + Hint(word, names), command);
    RequireCommand(*named.front(), words.subspan(1), command + " " + word);
}

/// The command that the arguments came to.
const CLI::App& CommandAtHand(const CLI::App& app) {
    const auto parsed = app.get_subcommands();
    return parsed.empty() ? app : CommandAtHand(*parsed.front());
}

/// What is left over, as it was typed.
[[noreturn]] void RefuseExtras(const CLI::App& app, const Words& words) {
    const CLI::App& command = CommandAtHand(app);
    for (const std::string& extra : app.remaining(true)) {
        const std::string name = extra.substr(0, extra.find('='));
        if (!name.starts_with("-")) continue;
        const auto typed = std::ranges::find_if(words, [&](const std::string& word) { return word.starts_with(name); });
        const std::string shown = typed == words.end() ? extra : *typed;
        RefuseOption(command, shown, HelpCommand(app));
    }
    Refuse("nobody knows what \"" + app.remaining(true).front() + "\" is for", HelpCommand(app));
}

}  // namespace

bool DeclinesColours(int argc, const char* const* argv) {
    const std::span words(argv, static_cast<std::size_t>(argc));
    return std::ranges::any_of(words, [](const char* word) { return std::string_view(word) == kNoColoursOption; });
}

int RunCommandLine(int argc, const char* const* argv) {
    CLI::App app(kProgramHelp, kProgramName);
    const std::vector<DeclaredCommand> commands = DeclareCommands(app);
    const Words words = WithoutHelpWords(Words(argv + std::min(argc, 1), argv + argc));
    RequireCommand(app, words, kProgramName);
    try {
        app.parse(Words(words.rbegin(), words.rend()));  // it takes them from the back
    } catch (const CLI::ExtrasError&) {
        RefuseExtras(app, words);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);  // --help and --version
        Refuse(error.what(), HelpCommand(app));
    }
    const auto isAtHand = [](const DeclaredCommand& command) { return command.app->parsed(); };
    return std::ranges::find_if(commands, isAtHand)->run();  // one of them is required
}

}  // namespace tradebill
