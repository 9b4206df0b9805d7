// The program as whoever reads or types it sees it: its commands and options, from the tables that they are parsed by.
// manual_pages.h makes pages of it, completion_words.h what a shell offers.
#pragma once

#include <string>
#include <vector>

#include "cli/command_table.h"

namespace CLI {
class Option;
}

namespace tradebill {

/// An option, or a word that a command takes without one.
struct OutlinedOption {
    std::vector<std::string> names;  ///< "-o", "--output"; of a word what it is called, "FILE"
    std::string value = {};          ///< what an option takes, as the help calls it: "DIR"; empty if it takes nothing
    std::string help = {};
    std::string range = {};                ///< "1 - 366", if there is one
    std::string defaultValue = {};         ///< where the help doesn't tell it itself
    std::vector<std::string> needed = {};  ///< options that must go with it
    bool isRequired = false;
    bool isRepeated = false;  ///< takes all words that follow
};

struct OutlinedCommand {
    std::vector<std::string> path;  ///< {"template", "check"}
    std::string help;
    Command row;  ///< example, exits and guide, which may be empty
    std::vector<OutlinedOption> options;
    std::vector<OutlinedOption> words;
};

/// A word that stands where a command may.
struct OutlinedWord {
    std::string name;
    std::string help;
};

/// Nothing in it is hidden from the help.
struct ProgramOutline {
    std::vector<OutlinedOption> options = {};    ///< of the program itself
    std::vector<OutlinedCommand> commands = {};  ///< in the order of their table
    std::vector<OutlinedWord> groups = {};
    std::vector<OutlinedWord> extraWords = {};  ///< "help" and "version"
};

/// An option, or a word, as it is declared.
[[nodiscard]] OutlinedOption Outline(const CLI::Option& option);

[[nodiscard]] ProgramOutline OutlineOfProgram();

}  // namespace tradebill
