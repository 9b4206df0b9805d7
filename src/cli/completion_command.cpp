#include "cli/completion_command.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command_table.h"
#include "cli/completion_scripts.h"
#include "cli/completion_words.h"
#include "cli/program_outline.h"
#include "cli/shell_word.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr std::string_view kBash = "bash";
constexpr std::string_view kFish = "fish";

const CompletionScript* FindScript(std::string_view shell) {
    const auto scripts = CompletionScripts();
    const auto found = std::ranges::find(scripts, shell, &CompletionScript::shell);
    return found == scripts.end() ? nullptr : &*found;
}

int PrintScript(const std::string& shell) {
    const CompletionScript* const script = FindScript(shell);
    if (script == nullptr) {
        throw CUsageError("expected " + OneOf(CompletionScripts(), [](const auto& row) { return row.shell; }) +
                          ", found \"" + shell + "\"");
    }
    std::cout << script->text;
    return kExitDone;
}

std::string_view OfferText(Offer offer) {
    switch (offer) {
        case Offer::Words:
            return "words";
        case Offer::Files:
            return "files";
        case Offer::Folders:
            return "folders";
    }
    return {};
}

/// The words without their quotes, which fish takes away itself.
std::vector<std::string> PlainWords(const std::vector<std::string>& typed, bool isQuoted) {
    std::vector<std::string> words;
    words.reserve(typed.size());
    for (const std::string& word : typed) {
        words.push_back(WithHome(isQuoted ? ReadShellWord(word).text : word, std::getenv("HOME")));
    }
    return words;
}

/// How the shell takes the word into its line. Nothing where it can't, or where bash has something else begun.
std::optional<std::string> WordFor(std::string_view shell, const Completion& completion, const std::string& word,
                                   const ShellWord& begun) {
    if (word.empty() || !IsOneLine(word)) return std::nullopt;
    if (shell != kBash) return completion.before + word;
    if (!word.starts_with(begun.text)) return std::nullopt;
    return BashWord(word, begun.openQuote);
}

void PrintCompletion(std::string_view shell, const Completion& completion, const ShellWord& begun) {
    std::cout << OfferText(completion.offer) << "\n";
    for (const OfferedWord& offered : completion.words) {
        const auto word = WordFor(shell, completion, offered.word, begun);
        if (!word) continue;
        std::cout << *word;
        if (!offered.help.empty() && IsOneLine(offered.help)) std::cout << "\t" << offered.help;
        std::cout << "\n";
    }
}

int Answer(const std::vector<std::string>& asked) {
    if (asked.size() < 2 || FindScript(asked.front()) == nullptr) return kExitFailed;
    const std::string& shell = asked.front();
    std::vector<std::string> typed(asked.begin() + 1, asked.end());
    if (shell == kBash && typed.back() == "=") typed.back().clear();  // nothing is typed behind it yet
    const std::vector<std::string> words = PlainWords(typed, shell != kFish);
    PrintCompletion(shell, Complete(OutlineOfProgram(), words), ReadShellWord(typed.back()));
    return kExitDone;
}

}  // namespace

CommandRun DeclareCompletion(CLI::App& app) {
    const auto shell = std::make_shared<std::string>();
    app.add_option("SHELL", *shell, OneOf(CompletionScripts(), [](const auto& row) { return std::string(row.shell); }))
        ->required()
        ->type_name("");
    return [shell] { return PrintScript(*shell); };
}

CommandRun DeclareComplete(CLI::App& app) {
    app.group("");         // not in the help
    app.prefix_command();  // whatever is typed isn't ours
    return [&app] { return RunComplete(app.remaining()); };
}

int RunComplete(const std::vector<std::string>& words) noexcept {
    try {
        return Answer(words);
    } catch (const std::exception&) {
        return kExitFailed;
    }
}

}  // namespace tradebill
