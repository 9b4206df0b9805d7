#include "cli/declared_commands.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/source_id.h"
#include "cli/command_table.h"
#include "cli/help_format.h"

namespace tradebill {
namespace {

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

/// What stands ahead of the options, and behind them.
void AddGuide(const Command& command, CLI::App& app) {
    app.formatter(std::make_shared<CHelpFormat>(command.example));
    std::string footer = app.get_footer();
    if (!footer.empty()) footer = "\n" + footer + "\n";
    if (!command.notes.empty()) footer += "\n" + std::string(command.notes) + "\n";
    if (!command.exits.empty()) footer += "\nExit codes: " + std::string(command.exits) + "\n";
    if (!command.guide.empty()) footer += "Read on: " + std::string(command.guide) + "\n";
    app.footer(footer);
}

/// It is heeded before anything is parsed: here for the parser and the help.
void AddColours(CLI::App& app) {
    app.add_flag(kNoColoursOption)
        ->description("Use no colours on a terminal, as with NO_COLOR set in the environment");
}

}  // namespace

std::vector<DeclaredCommand> DeclareCommands(CLI::App& app) {
    app.set_version_flag("--version", "tradebill " TRADEBILL_VERSION " (source " + std::string(kSourceId) + ")");
    app.allow_windows_style_options(false);  // "/folder" is a path on both systems
    app.require_subcommand(1);
    app.formatter(std::make_shared<CHelpFormat>());
    AddColours(app);
    std::vector<DeclaredCommand> declared;
    for (const Command& command : Commands()) {
        CLI::App* const own =
            GroupIn(app, command.group).add_subcommand(std::string(command.name), std::string(command.help));
        declared.push_back({&command, own, command.declare(*own)});
        AddColours(*own);
        AddGuide(command, *own);
    }
    // For the list alone: they are options by the time that anything is parsed.
    app.add_subcommand(kHelpWord, "Show what a command does, and what it takes");
    app.add_subcommand(kVersionWord, "Show which version this is");
    // Of this list alone: commands have theirs by now.
    app.formatter(std::make_shared<CHelpFormat>("report --root settlement"));
    app.footer("\ntradebill help COMMAND tells more of a command.\n");
    return declared;
}

}  // namespace tradebill
