#!/usr/bin/env bash
# Fails unless the templates, each of them and nothing else, are installed byte for byte, and the program carries the
# same bytes. Usage: check_templates.sh SOURCE BUILD PROGRAM
set -euo pipefail
source=$1 build=$2 program=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work/installed" --component templates >/dev/null
(cd "$source" && find templates -type f | sed 's|^|share/tradebill/|' | LC_ALL=C sort) >"$work/listed"
(cd "$work/installed" && find . -type f | sed 's|^\./||' | LC_ALL=C sort) | diff "$work/listed" -
diff -r "$source/templates" "$work/installed/share/tradebill/templates"
python3 - "$program" "$work"/installed/share/tradebill/templates/*.ini <<'LOOK'
import pathlib
import sys

program = pathlib.Path(sys.argv[1]).read_bytes()
for path in map(pathlib.Path, sys.argv[2:]):
    if path.read_bytes() not in program:
        sys.exit(f"the program doesn't carry {path.name} as it is installed")
LOOK
echo "$(wc -l <"$work/listed") templates are installed as the program carries them"
