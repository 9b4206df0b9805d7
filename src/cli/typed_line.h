// How far a command line has got that is still being typed.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/program_outline.h"

namespace tradebill {

/// What stands ahead of the word that is being typed.
struct TypedLine {
    const OutlinedCommand* command = nullptr;  ///< null as long as none is whole
    std::vector<std::string> path;             ///< the words that name it, or its group
    const OutlinedOption* open = nullptr;      ///< the option whose value comes next
    std::size_t wordsGiven = 0;                ///< that are neither an option nor its value
    bool isBehindMark = false;                 ///< behind "--" there are no options
    std::optional<std::string> root = {};      ///< that of --root, or the command's word ROOT
    std::optional<std::string> user = {};
};

/// Reads whole words. An option's value may stand behind "=" in its word, or behind a word "=", as bash cuts them.
[[nodiscard]] TypedLine ReadTypedLine(const ProgramOutline& program, std::span<const std::string> words);

/// The option of the line's command, or of the program ahead of one, that is called `name`; or null.
[[nodiscard]] const OutlinedOption* FindOption(const ProgramOutline& program, const TypedLine& line,
                                               std::string_view name);

}  // namespace tradebill
