#!/usr/bin/env bash
# Fails on a source that clang-format would change.
set -euo pipefail
cd "$1"
find src tests bench fuzz examples \( -name '*.h' -o -name '*.cpp' -o -name '*.c' \) -print0 |
    xargs -0 clang-format --dry-run -Werror
