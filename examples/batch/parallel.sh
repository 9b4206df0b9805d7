#!/usr/bin/env bash
# A batch in several tasks by GNU parallel: on this machine, or on those of the file HOSTS (as parallel's --sshloginfile
# has them), which see ROOT and OUT under the same paths.
#
# Usage: ROOT=/data/settlement OUT=/data/reports TASKS=8 parallel.sh
# Exits as one batch of all accounts would.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
export ROOT OUT TASKS=${TASKS:-8} TODAY=${TODAY:-$(date +%F)}
export TRADEBILL=${TRADEBILL:-tradebill} OPTIONS=${OPTIONS:-} TRIES=${TRIES:-3} PAUSE=${PAUSE:-5}
mkdir -p "$OUT"
ends=$(mktemp)
trap 'rm -f "$ends"' EXIT

seq "$TASKS" | parallel --will-cite --line-buffer --joblog "$ends" ${HOSTS:+--sshloginfile "$HOSTS"} --jobs "${AT_ONCE:-1}" \
    --env ROOT --env OUT --env TASKS --env TODAY --env TRADEBILL --env OPTIONS --env TRIES --env PAUSE \
    "$here/task.sh" {} || true

# What a task could do, and couldn't, batch-merge says for all of them. But one that was called wrongly, or not at all, has
# left results of an earlier night, if any. The seventh column is the exit code, the eighth a signal that ended it.
wrong=$(awk 'NR > 1 && $7 != 0 && $7 != 1 && $7 != 3 && $7 != 75 { print $7; exit }' "$ends")
if [ -n "$wrong" ]; then
    echo "a task ended with $wrong: nothing is joined" >&2
    exit "$wrong"
fi
code=0
"$TRADEBILL" batch-merge --out "$OUT" --today "$TODAY" || code=$?
whole=$(awk 'NR > 1 && $8 == 0' "$ends" | wc -l)
if [ "$whole" -lt "$TASKS" ] && [ "$code" -ne 2 ]; then
    echo "$((TASKS - whole)) tasks were ended, or not begun" >&2
    code=75
fi
exit "$code"
