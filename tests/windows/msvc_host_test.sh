#!/usr/bin/env bash
# A host for Microsoft's target, linked by LLVM against the import library and against one made of the exports' list. Both
# read a sample, whose path has letters of two encodings.
#
# Usage: msvc_host_test.sh SOURCE BUILD WORK
. "$(dirname "${BASH_SOURCE[0]}")/host_setup.sh"

"$source/examples/msvc_host/build.sh" "$work/installed" "$work/built"
cp "$work/installed/bin/TradeBill.dll" "$work/built"
cp -r "$source/samples/fund-status/root" "$work/账 户"
for host in host host_def; do
    (cd "$work/built" && LC_ALL=zh_CN.UTF-8 wine "$host.exe" "..\\账 户") | tr -d '\r' >"$work/said" || true
    diff - "$work/said" <<'END'
DONE 25 statements, 944 records
END
    (cd "$work/built" && wine "$host.exe" nowhere || echo "[ended with $?]") | tr -d '\r' >"$work/said"
    grep -q '^WRONG_REQUEST RootUtf8: expected a folder, found none at "nowhere"$' "$work/said"
    grep -q '^\[ended with 2\]$' "$work/said"
done
