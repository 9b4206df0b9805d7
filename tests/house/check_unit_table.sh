#!/usr/bin/env bash
# Fails unless the table of contract units is installed byte for byte. Usage: check_unit_table.sh SOURCE BUILD
# That the program carries the same bytes is a unit test (tests/requests/unit_table_test.cpp).
set -euo pipefail
source=$1 build=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work" --component unit_table >/dev/null
cmp "$source/samples/units.ini" "$work/share/tradebill/units.ini"
echo "the table is installed as it is"
