#!/usr/bin/env bash
# Fuzzes for a short while, from two statements of each sample on. A longer run: fuzz_test.sh PROGRAM SAMPLES SECONDS
# An input that fails stays beside the program.
set -euo pipefail
program=$(realpath "$1") samples=$(realpath "$2") seconds=${3:-20}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
corpus=$work/corpus
mkdir "$corpus"
index=0
for sample in "$samples"/*/; do
    for statement in $(find "$sample/root/Users" -name 'D*.txt' | sort | sed -n '3p;20p'); do
        for choice in 00 01 02 03 04 05 06; do
            { printf "\\x$choice"; cat "$statement"; } >"$corpus/seed$((index++))"
        done
        for template in "$sample"/root/BillTemplate/*.ini; do
            [ -f "$template" ] || continue
            for choice in 07 08 09 0a; do
                { printf "\\x$choice"; cat "$template"; printf '\0'; cat "$statement"; } >"$corpus/seed$((index++))"
            done
        done
    done
done
cd "$work"
export TMPDIR=$work
LSAN_OPTIONS=suppressions=$(dirname "$samples")/tests/support/leaks.supp:print_suppressions=0 \
    "$program" -max_total_time="$seconds" -max_len=20000 -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 -verbosity=0 \
    -artifact_prefix="$(dirname "$program")/" "$corpus"
