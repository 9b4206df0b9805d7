#!/usr/bin/env bash
# Compiles the host in C# where a compiler is there. Where its programs run too, a report is made through TradeBill.cs.
# Exit code 77: there is no compiler, and nothing was tested.
set -euo pipefail
source=$1 module=$2 c_compiler=$3

compiler=$(command -v mcs || command -v csc || true)
[ -n "$compiler" ] && "$compiler" -help | grep -q 'C#' || exit 77  # another language has a csc of its own
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$compiler" -nologo -warnaserror -warn:4 -out:"$work/Host.exe" "$source"/examples/csharp_host/{Host,TradeBill}.cs
"$compiler" -nologo -warnaserror -warn:4 -out:"$work/Calls.exe" \
    "$source/examples/csharp_host/TradeBill.cs" "$source/tests/examples/csharp_calls.cs"
command -v mono >/dev/null || exit 0

cp -r "$source/samples/fund-class/root" "$work/root"
ln -s "$module" "$work/libTradeBill.so"
LD_LIBRARY_PATH=$work mono "$work/Calls.exe" "$work/root" >"$work/said"
{
    python3 -B "$source/tests/examples/header_layout.py" "$source" "$c_compiler" | grep -v '^ChartTarget '
    cat <<'SAID'
charts 500x250 825x250, 25 days
message 1025, wParam 4, lParam 0
report 0x00000000
units 190, the first 90010001 BB-A6-BD-F0 2402
products 440
statements 25 of 35 days, pictures 14, error ""
month 13 0x80004005
the run failed with code 0x80004005: a date is out of bounds (year from 1900, month 1 to 12, day 1 to 31)
SAID
} | diff - "$work/said"
tail -c 18 "$work/root/Users/demo/Data/Bill/Image/TradeBill.html" | grep -q '</html>'
