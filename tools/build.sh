#!/usr/bin/env bash
# Configures and builds a preset: one line of progress on a terminal; in a log nothing but what goes wrong.
# Usage: build.sh PRESET [TARGET...]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
preset=$1
shift

mkdir -p build
cmake --preset "$preset" >"build/$preset.log" 2>&1 || { cat "build/$preset.log" >&2; exit 1; }
quiet=()
[ -t 1 ] || quiet=(-- --quiet)
cmake --build --preset "$preset" ${@:+--target "$@"} "${quiet[@]}"
