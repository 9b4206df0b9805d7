// What may stand where somebody is typing: commands, options, and what an option takes.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "cli/program_outline.h"

namespace tradebill {

/// What a shell shall offer. Files and folders it finds itself.
enum class Offer { Words, Files, Folders };

struct OfferedWord {
    std::string word;
    std::string help = {};
};

struct Completion {
    Offer offer = Offer::Words;
    std::vector<OfferedWord> words = {};  ///< all that there are, whatever their beginning
    std::string before = {};              ///< what of the last word stands ahead of them: "--kind=" of "--kind=for"
};

/// What may stand in the place of the last of `words`, which has been begun or is empty. They are those behind the
/// program's name, without quotes. Accounts, users and templates are those below the root that the words name. Throws
/// CUnreadableInput.
[[nodiscard]] Completion Complete(const ProgramOutline& program, std::span<const std::string> words);

}  // namespace tradebill
