#!/usr/bin/env bash
# Fuzzes every target for a moment. Usage: fuzz_test.sh BUILD. What fails stays in BUILD/fuzzing/found.
set -euo pipefail
exec "$(dirname "$0")/run.sh" --build "$1" --seconds 1 --jobs 1
