#!/usr/bin/env bash
# The manual pages as their readers' programs take them, against the help.
#
# Usage: manual_test.sh PROGRAM
set -euo pipefail
program=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "$*" >&2; exit 1; }

SOURCE_DATE_EPOCH=1709164800 "$program" .manual "$work/man"
SOURCE_DATE_EPOCH=1709164800 "$program" .manual "$work/again"
diff -r "$work/man" "$work/again" || fail "two runs write different pages"
grep -q '2024-02-29' "$work/man/tradebill.1" || fail "the date isn't that of SOURCE_DATE_EPOCH"

for page in "$work"/man/*.1; do
    mandoc -T lint -W warning "$page" || fail "$page: see above"
    warnings=$(LC_ALL=C.UTF-8 groff -ww -man -K utf8 -T utf8 -z "$page" 2>&1)
    [ -z "$warnings" ] || fail "$page: $warnings"
done

# Whatever the help of a command has, its page has too.
shown() { mandoc -T utf8 -O width=200 "$1" | sed 's/.\x08//g'; }
check_page() {
    local page=$work/man/tradebill-${1// /-}.1 text option
    [ -f "$page" ] || fail "there is no page of $1"
    text=$(shown "$page")
    for option in $("$program" $1 --help | sed -n 's/^  \(-[^ ]*\).*/\1/p' | tr , ' '); do
        grep -q -e "$option" <<<"$text" || fail "$page: nothing of $option"
    done
}
pages=1
while read -r command; do
    case $command in help | version) continue ;; template) command="template check" ;; esac
    check_page "$command"
    pages=$((pages + 1))
done < <("$program" --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z][a-z-]*\) .*/\1/p')
[ "$pages" -gt 15 ] || fail "the help lists too few commands: $pages"
[ "$pages" -eq "$(ls "$work/man" | wc -l)" ] || fail "the help has $pages pages, the manual $(ls "$work/man" | wc -l)"
echo "$pages pages"
