#!/usr/bin/env bash
# The host that opens the embedding guide: built against an installed module, it makes the report of a sample.
set -euo pipefail
source=$1 build=$2 compiler=$3

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --install "$build" --prefix "$work/installed" >/dev/null
mkdir -p "$work/samples"
cp -r "$source/samples/fund-status" "$work/samples/"
sed -n '/^```c$/,/^```$/{//!p;/^```$/q}' "$source/docs/embedding.md" >"$work/host.c"  # the first; examples.documents knows the other
cd "$work"
"$compiler" -std=c99 -Wall -Wextra -Werror -I installed/include host.c -L installed/lib -ltradebill \
    -Wl,-rpath,"$work/installed/lib" -o host
[ "$(./host)" = 0x00000000 ]
tail -c 18 samples/fund-status/root/Users/demo/Data/Bill/Image/TradeBill.html | grep -q '</html>'
