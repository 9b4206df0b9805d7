#include "cli/command_line.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <iostream>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/source_id.h"
#include "cli/command_table.h"
#include "cli/nearest_word.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr std::string_view kHelp = "help";
constexpr std::string_view kVersion = "version";
constexpr const char* kNoColours = "--no-color";

using Words = std::vector<std::string>;

/// A command as the command line knows it.
struct DeclaredCommand {
    CLI::App* app;
    CommandRun run;
};

/// The app of a group, which is made with the first command that belongs to it.
CLI::App& GroupIn(CLI::App& app, std::string_view name) {
    if (name.empty()) return app;
    for (CLI::App* const made : app.get_subcommands({})) {
        if (made->get_name() == name) return *made;
    }
    const CommandGroup& group = *std::ranges::find(CommandGroups(), name, &CommandGroup::name);
    CLI::App* const made = app.add_subcommand(std::string(name), std::string(group.help));
    made->require_subcommand(1);
    return *made;
}

/// Help that leads with a call. The list of commands, which has their descriptions too, goes without.
class CHelpWithCall final : public CLI::Formatter {
public:
    explicit CHelpWithCall(std::string_view call) : call_(call) {}

    [[nodiscard]] std::string make_description(const CLI::App* app) const override {
        return app->get_description() + "\n\n  tradebill " + call_ + "\n\n";
    }

private:
    std::string call_;
};

/// What stands ahead of the options, and behind them.
void AddGuide(const Command& command, CLI::App& app) {
    if (!command.example.empty()) app.formatter(std::make_shared<CHelpWithCall>(command.example));
    std::string footer = app.get_footer();
    if (!footer.empty()) footer = "\n" + footer + "\n";
    if (!command.exits.empty()) footer += "\nExit codes: " + std::string(command.exits) + "\n";
    if (!command.guide.empty()) footer += "Read on: " + std::string(command.guide) + "\n";
    app.footer(footer);
}

/// It is heeded before anything is parsed: here for the parser and the help.
void AddColours(CLI::App& app) {
    app.add_flag(kNoColours)->description("Use no colours on a terminal, as with NO_COLOR set in the environment");
}

std::vector<DeclaredCommand> DeclareAll(CLI::App& app) {
    app.set_version_flag("--version", "tradebill " TRADEBILL_VERSION " (source " + std::string(kSourceId) + ")");
    app.allow_windows_style_options(false);  // "/folder" is a path on both systems
    app.require_subcommand(1);
    AddColours(app);
    std::vector<DeclaredCommand> declared;
    for (const Command& command : Commands()) {
        CLI::App* const own =
            GroupIn(app, command.group).add_subcommand(std::string(command.name), std::string(command.help));
        declared.push_back({own, command.declare(*own)});
        AddColours(*own);
        AddGuide(command, *own);
    }
    // For the list alone: they are options by the time that anything is parsed.
    app.add_subcommand(std::string(kHelp), "Show what a command does, and what it takes");
    app.add_subcommand(std::string(kVersion), "Show which version this is");
    // Of this list alone: commands have theirs by now.
    app.formatter(std::make_shared<CHelpWithCall>("report --root settlement"));
    app.footer("\ntradebill help COMMAND tells more of a command.\n");
    return declared;
}

/// "help report" is "report --help", and "version" is "--version".
Words WithoutHelpWords(Words words) {
    if (words.empty()) return words;
    if (words.front() == kVersion && words.size() == 1) return {"--version"};
    if (words.front() != kHelp) return words;
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
        if (word == kNoColours) RequireCommand(app, words.subspan(1), command);
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
    return std::ranges::any_of(words, [](const char* word) { return std::string_view(word) == kNoColours; });
}

int RunCommandLine(int argc, const char* const* argv) {
    CLI::App app("Makes a report page from the daily settlement statements of a futures account.", "tradebill");
    const std::vector<DeclaredCommand> commands = DeclareAll(app);
    const Words words = WithoutHelpWords(Words(argv + std::min(argc, 1), argv + argc));
    RequireCommand(app, words, "tradebill");
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
