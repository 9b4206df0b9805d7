// The commands of the program. Each is a row, and has a file of its own that declares its options and does its work.
#pragma once

#include <functional>
#include <span>
#include <string_view>

namespace CLI {
class App;
}

namespace tradebill {

/// Does a command's work with what the command line said. Returns the program's exit code; throws CUsageError before
/// anything is done.
using CommandRun = std::function<int()>;

struct Command {
    std::string_view group;  ///< the word before the name, as in "template check", of a CommandGroup; empty: none
    std::string_view name;
    std::string_view help;
    CommandRun (*declare)(CLI::App& app);  ///< declares the options; what it returns runs once they are parsed
    // Of its help.
    std::string_view example = {};  ///< a call, behind the program's name
    std::string_view exits = {};    ///< what each exit code says, on one line
    std::string_view guide = {};    ///< the document to read on
    std::string_view notes = {};    ///< a paragraph a line; what is to be typed has two blanks in front
};

struct CommandGroup {
    std::string_view name;
    std::string_view help;
};

[[nodiscard]] std::span<const Command> Commands();
[[nodiscard]] std::span<const CommandGroup> CommandGroups();

}  // namespace tradebill
