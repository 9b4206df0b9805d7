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

# What a task says by its exit code, batch-merge says for all of them.
seq "$TASKS" | parallel --will-cite --line-buffer ${HOSTS:+--sshloginfile "$HOSTS"} --jobs "${AT_ONCE:-1}" \
    --env ROOT --env OUT --env TASKS --env TODAY --env TRADEBILL --env OPTIONS --env TRIES --env PAUSE \
    "$here/task.sh" {} || true
exec "$TRADEBILL" batch-merge --out "$OUT"
