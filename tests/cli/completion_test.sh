#!/usr/bin/env bash
# Command lines as bash, zsh and fish complete them.
#
# Usage: completion_test.sh PROGRAM
set -euo pipefail
program=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
PATH=$(dirname "$program"):$PATH
export PATH HOME=$work
cd "$work"
for shell in bash zsh fish; do "$program" completion $shell >"$work/$shell.script"; done

# Names that a shell would obey, if anybody let it.
names=('$(touch executed)' '`touch executed`' "it's \"me\"" 'a b' '; touch executed' '张三')
root=$work/'my $(touch executed) 根'
for name in "${names[@]}"; do
    mkdir -p "$root/Users/$name/Data/Bill"
    touch "$root/Users/$name/Data/Bill/D90010002.20240102o.txt"
done
mkdir -p "$root/BillTemplate"
touch "$root/BillTemplate/own \$(x).ini"
printf -v typed_root %q "$root"

failures=0
# same WHAT FOUND EXPECTED
same() {
    [ "$2" = "$3" ] && return
    printf '%s: found\n%s\nexpected\n%s\n' "$1" "$2" "$3" >&2
    failures=$((failures + 1))
}
sorted() { LC_ALL=C sort; }
all_names=$(printf '%s\n' "${names[@]}" | sorted)

# The words of a command line as they are typed; prints what may stand for the last.
in_bash() {
    bash --norc -c '
        compopt() { echo "compopt $*"; }
        source "$1"
        shift
        COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
        _tradebill tradebill
        [ ${#COMPREPLY[@]} -eq 0 ] || printf "%s\n" "${COMPREPLY[@]}"' bash "$work/bash.script" "$@" 2>&1
}
in_zsh() {
    zsh -f -c '
        compdef() { }
        compset() { }
        _files() { print -r -- "files $*" }
        compadd() { print -rl -- "${(@P)argv[-1]}" }
        source "$1"
        shift
        words=("$@")
        CURRENT=$#
        PREFIX=${@[-1]}
        _tradebill' zsh "$work/zsh.script" "$@" 2>&1
}
in_fish() {
    fish --no-config -c 'source $argv[1]; complete -C "$argv[2]"' "$work/fish.script" "$1" 2>&1 | cut -f1
}

same "bash, command" "$(in_bash tradebill rep)" report
same "bash, group" "$(in_bash tradebill template '')" check
same "bash, option" "$(in_bash tradebill report --stand)" --standalone
same "bash, fixed words" "$(in_bash tradebill report --kind '')" $'domestic\nforeign'
same "bash, behind =" "$(in_bash tradebill report --kind = f)" foreign
same "bash, at =" "$(in_bash tradebill report --kind =)" $'domestic\nforeign'
same "bash, files" "$(in_bash tradebill report --json '')" "compopt -o default"
same "bash, folders" "$(in_bash tradebill report --root '')" "compopt -o dirnames"
same "bash, nothing" "$(in_bash tradebill report --from '')" ""
same "bash, account" "$(in_bash tradebill report --root "$typed_root" --account 9)" 90010002
same "bash, open quote" "$(in_bash tradebill report --root "$typed_root" --user "'a")" "a b"
same "bash, template" "$(in_bash tradebill report --root "$typed_root" --template own)" 'own\ \$\(x\)'
found=$(in_bash tradebill report --root "$typed_root" --user '' | while IFS= read -r word; do
    eval "printf '%s\n' $word"
done | sorted)
same "bash, users" "$found" "$all_names"
same "bash, users from home" "$(in_bash tradebill report --root '~/my'"${typed_root#"$work/my"}" --user 张)" 张三
same "bash, unknown" "$(in_bash tradebill nothing '')" ""

same "zsh, command" "$(in_zsh tradebill rep | grep '^rep')" report
same "zsh, group" "$(in_zsh tradebill template '')" check
same "zsh, fixed words" "$(in_zsh tradebill report --kind '')" $'domestic\nforeign'
same "zsh, behind =" "$(in_zsh tradebill report --kind=f)" $'--kind=domestic\n--kind=foreign'
same "zsh, files" "$(in_zsh tradebill report --json '')" "files "
same "zsh, folders" "$(in_zsh tradebill report --root '')" "files -/"
same "zsh, users" "$(in_zsh tradebill report --root "$typed_root" --user '' | sorted)" "$all_names"
same "zsh, account" "$(in_zsh tradebill report --root "$typed_root" --user 张三 --account '')" 90010002

fish_root="'$root'"
same "fish, command" "$(in_fish 'tradebill rep')" report
same "fish, group" "$(in_fish 'tradebill template ')" check
same "fish, option" "$(in_fish 'tradebill report --stand')" --standalone
same "fish, fixed words" "$(in_fish 'tradebill report --kind ' | sorted)" $'domestic\nforeign'
same "fish, behind =" "$(in_fish 'tradebill report --kind=f')" --kind=foreign
same "fish, files" "$(in_fish 'tradebill report --json fish.s')" fish.script
same "fish, folders" "$(in_fish 'tradebill report --root my')" "${root##*/}/"
same "fish, users" "$(in_fish "tradebill report --root $fish_root --user " | sorted)" "$all_names"
same "fish, account" "$(in_fish "tradebill report --root $fish_root --account ")" 90010002

# Whoever asks is never told off.
mkdir -p locked/Users && chmod 000 locked/Users
for call in "nosuch report ''" "" "bash" "bash report --root locked --user ''"; do
    eval "\"\$program\" .complete $call" >/dev/null 2>err || [ $? -eq 1 ] || same "exit of .complete $call" $? 1
    same "messages of .complete $call" "$(cat err)" ""
done
chmod 700 locked/Users
[ ! -e executed ] || same "names" "executed" "never executed"
[ "$failures" -eq 0 ] || exit 1
echo "bash, zsh and fish complete"
