#include "cli/completion_scripts.h"

#include <span>
#include <string_view>

namespace tradebill {
namespace {

// The program answers with a line that says what is offered, words, files or folders, and the words, each on a line
// with its help behind a tabulator. It is asked by its name alone: what is being typed is never run.

constexpr std::string_view kBash =
    R"script(# Completion of tradebill for bash. The program itself knows what may be typed.
_tradebill() {
    local kind='' line
    COMPREPLY=()
    while IFS= read -r line; do
        if [[ -z $kind ]]; then
            kind=$line
        else
            COMPREPLY+=("${line%%$'\t'*}")
        fi
    done < <(command tradebill .complete bash "${COMP_WORDS[@]:1:COMP_CWORD}" 2>/dev/null)
    case $kind in
        files) compopt -o default ;;
        folders) compopt -o dirnames ;;
    esac
}
complete -F _tradebill tradebill
)script";

constexpr std::string_view kZsh = R"script(#compdef tradebill
# Completion of tradebill for zsh. The program itself knows what may be typed.
_tradebill() {
    local kind line word
    local -a lines names shown
    lines=("${(@f)$(command tradebill .complete zsh "${(@)words[2,CURRENT-1]}" "$PREFIX" 2>/dev/null)}")
    kind=${lines[1]}
    for line in "${(@)lines[2,-1]}"; do
        word=${line%%$'\t'*}
        names+=("$word")
        if [[ $line == *$'\t'* ]]; then
            shown+=("$word  -- ${line#*$'\t'}")
        else
            shown+=("$word")
        fi
    done
    case $kind in
        files) compset -P '--*='; _files ;;
        folders) compset -P '--*='; _files -/ ;;
        words) (( $#names )) && compadd -l -d shown -a -- names ;;
    esac
}
if [[ ${funcstack[1]-} == _tradebill ]]; then
    _tradebill "$@"
else
    compdef _tradebill tradebill
fi
)script";

constexpr std::string_view kFish =
    R"script(# Completion of tradebill for fish. The program itself knows what may be typed.
function __tradebill_complete
    set -l words (commandline -opc)
    set -e words[1]
    set -l current (commandline -ct)
    set -l lines (command tradebill .complete fish $words "$current" 2>/dev/null)
    set -l before (string match -r -- '^--[^=]*=' $current)
    set -l path (string replace -r -- '^--[^=]*=' '' $current)
    switch "$lines[1]"
        case files
            printf "$before%s\n" (__fish_complete_path $path)
        case folders
            printf "$before%s\n" (__fish_complete_directories $path '')
        case words
            set -e lines[1]
            test -n "$lines[1]" && printf '%s\n' $lines
    end
end
complete -c tradebill -f -a '(__tradebill_complete)'
)script";

// clang-format off
constexpr CompletionScript kScripts[] = {
    {"bash", kBash},
    {"zsh",  kZsh},
    {"fish", kFish},
};
// clang-format on

}  // namespace

std::span<const CompletionScript> CompletionScripts() {
    return kScripts;
}

}  // namespace tradebill
