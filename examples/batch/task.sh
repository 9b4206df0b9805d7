#!/usr/bin/env bash
# One task of a batch, tried again as long as it says that another try is worth it. "task.sh 2" is the second of TASKS.
# The recipes beside it call it; what they are told stands in README.md.
set -euo pipefail
: "${ROOT:?the folder that holds Users}" "${OUT:?the folder for what is made}" "${TASKS:?how many tasks there are}"
: "${TODAY:?the day that counts as today, the same for all tasks, as 2024-01-31}"
most_tries=${TRIES:-3}

for ((try = 1; ; ++try)); do
    code=0
    # shellcheck disable=SC2086 # OPTIONS are several words
    "${TRADEBILL:-tradebill}" batch --root "$ROOT" --discover --out "$OUT" --shard "$1/$TASKS" --today "$TODAY" --resume \
        --quiet ${OPTIONS:-} || code=$?
    # 75: stopped, or another is at work there. All else would come out the same once more.
    [ "$code" -eq 75 ] && [ "$try" -lt "$most_tries" ] || exit "$code"
    sleep "${PAUSE:-5}"
done
