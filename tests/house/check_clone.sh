#!/usr/bin/env bash
# Fails if a clone on a machine that turns line ends around has other bytes than the commit. Usage: check_clone.sh SOURCE
set -euo pipefail
source=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The folder may be another user's, and a clone of it needn't have all of the history.
export GIT_CONFIG_COUNT=1 GIT_CONFIG_KEY_0=safe.directory GIT_CONFIG_VALUE_0='*'
git -C "$source" rev-parse --git-dir >/dev/null 2>&1 || { echo "no repository: nothing to clone"; exit 77; }
mkdir "$work/committed"
git -C "$source" archive HEAD | tar -x -C "$work/committed"
for choice in true input; do
    git -c core.autocrlf=$choice clone --quiet --no-hardlinks --config core.autocrlf=$choice "$source" "$work/$choice"
    [ -z "$(git -C "$work/$choice" status --porcelain)" ] || { echo "core.autocrlf=$choice: not as committed"; exit 1; }
    diff -rq --exclude=.git "$work/committed" "$work/$choice" || { echo "core.autocrlf=$choice: other bytes"; exit 1; }
done
echo "every byte survives"
