#include "cli/typed_line.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/declared_commands.h"
#include "cli/program_outline.h"

namespace tradebill {
namespace {

void KeepValue(std::string_view name, const std::string& value, TypedLine& line) {
    if (name == "--root" || name == "ROOT") line.root = value;
    if (name == "--user") line.user = value;
}

/// A word of a command's name; "help" stands ahead of one.
void ReadName(const ProgramOutline& program, const std::string& word, TypedLine& line) {
    if (line.path.empty() && word == kHelpWord) return;
    line.path.push_back(word);
    const auto found = std::ranges::find(program.commands, line.path, &OutlinedCommand::path);
    if (found != program.commands.end()) line.command = &*found;
}

void ReadWord(const std::string& word, TypedLine& line) {
    const auto& words = line.command->words;
    if (line.wordsGiven < words.size()) KeepValue(words[line.wordsGiven].names.front(), word, line);
    ++line.wordsGiven;
}

void ReadOption(const ProgramOutline& program, const std::string& word, TypedLine& line) {
    const std::size_t end = word.find('=');
    const OutlinedOption* const option = FindOption(program, line, word.substr(0, end));
    if (option == nullptr || option->value.empty()) return;
    if (end == std::string::npos) {
        line.open = option;
    } else {
        KeepValue(option->names.back(), word.substr(end + 1), line);
    }
}

void ReadOne(const ProgramOutline& program, const std::string& word, TypedLine& line) {
    if (line.open != nullptr) {
        if (word == "=") return;
        KeepValue(line.open->names.back(), word, line);
        line.open = nullptr;
    } else if (word == "--") {
        line.isBehindMark = true;
    } else if (word.starts_with('-') && !line.isBehindMark) {
        ReadOption(program, word, line);
    } else if (line.command == nullptr) {
        ReadName(program, word, line);
    } else {
        ReadWord(word, line);
    }
}

}  // namespace

TypedLine ReadTypedLine(const ProgramOutline& program, std::span<const std::string> words) {
    TypedLine line;
    for (const std::string& word : words) ReadOne(program, word, line);
    return line;
}

const OutlinedOption* FindOption(const ProgramOutline& program, const TypedLine& line, std::string_view name) {
    const auto& options = line.command == nullptr ? program.options : line.command->options;
    const auto found = std::ranges::find_if(options, [&](const OutlinedOption& option) {
        return std::ranges::find(option.names, name) != option.names.end();
    });
    return found == options.end() ? nullptr : &*found;
}

}  // namespace tradebill
