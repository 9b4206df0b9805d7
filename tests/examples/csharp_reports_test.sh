#!/usr/bin/env bash
# Compiles the host in C# that has several reports at once, and runs it.
set -euo pipefail
source=$1 module=$2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mcs -nologo -warnaserror -warn:4 -out:"$work/Account.exe" "$source"/examples/csharp_reports/{Account,TradeBillReports}.cs
ln -s "$module" "$work/libtradebill.so"
cd "$source/samples"
LD_LIBRARY_PATH=$work mono "$work/Account.exe" fund-status/root one-year/root "$work/equity.png" >"$work/said"
diff - "$work/said" <<'SAID'
25 of 35 days, 944 records, 0 errors, equity 771053.71 on 2024-02-05
250 of 378 days, 29885 records, 0 errors, equity 3085770.83 on 2025-01-13
WrongRequest: Kind: expected domestic or foreign, found "either"
SAID
[ "$(od -A n -t x1 -j 16 -N 8 "$work/equity.png" | tr -d ' ')" = 00000190000000c8 ]  # 400 by 200
