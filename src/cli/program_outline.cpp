#include "cli/program_outline.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "cli/command_table.h"
#include "cli/declared_commands.h"

namespace tradebill {
namespace {

std::vector<std::string> NamesOf(const CLI::Option& option) {
    std::vector<std::string> names;
    for (const std::string& name : option.get_snames()) names.push_back("-" + name);
    for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
    if (names.empty()) names.push_back(option.get_name(true));
    return names;
}

/// The library tells a range behind the value's name: "N:INT in [1 - 366]".
void SplitTypeName(const std::string& told, OutlinedOption& option) {
    const std::size_t colon = told.find(':');
    option.value = told.substr(0, colon);
    if (colon == std::string::npos) return;
    const std::size_t open = told.find('[', colon);
    const std::size_t close = told.find(']', colon);
    if (open != std::string::npos && close != std::string::npos) {
        option.range = told.substr(open + 1, close - open - 1);
    }
}

/// Those that are in the help, either options or words.
std::vector<OutlinedOption> OutlineOptions(const CLI::App& app, bool arePositional) {
    std::vector<OutlinedOption> outlined;
    for (const CLI::Option* const option : app.get_options()) {
        if (option->get_group().empty() || option->get_positional() != arePositional) continue;
        outlined.push_back(Outline(*option));
    }
    return outlined;
}

std::vector<std::string> PathOf(const Command& row) {
    if (row.group.empty()) return {std::string(row.name)};
    return {std::string(row.group), std::string(row.name)};
}

}  // namespace

OutlinedOption Outline(const CLI::Option& option) {
    OutlinedOption outlined{.names = NamesOf(option),
                            .help = option.get_description(),
                            .defaultValue = option.get_default_str(),
                            .isRequired = option.get_required(),
                            .isRepeated = option.get_items_expected_max() > 1};
    if (option.get_items_expected_max() > 0) SplitTypeName(option.get_type_name(), outlined);
    for (const CLI::Option* const needed : option.get_needs()) outlined.needed.push_back(NamesOf(*needed).back());
    std::ranges::sort(outlined.needed);
    return outlined;
}

ProgramOutline OutlineOfProgram() {
    CLI::App app(kProgramHelp, kProgramName);
    ProgramOutline program;
    for (const DeclaredCommand& declared : DeclareCommands(app)) {
        if (declared.app->get_group().empty()) continue;
        program.commands.push_back({.path = PathOf(*declared.row),
                                    .help = std::string(declared.row->help),
                                    .row = *declared.row,
                                    .options = OutlineOptions(*declared.app, false),
                                    .words = OutlineOptions(*declared.app, true)});
    }
    program.options = OutlineOptions(app, false);
    for (const CommandGroup& group : CommandGroups()) {
        program.groups.push_back({std::string(group.name), std::string(group.help)});
    }
    for (const char* const word : {kHelpWord, kVersionWord}) {
        program.extraWords.push_back({word, app.get_subcommand(word)->get_description()});
    }
    return program;
}

}  // namespace tradebill
