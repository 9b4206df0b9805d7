#!/usr/bin/env bash
# Installs the module into an empty folder, builds the C host against it, runs it on a sample and looks at what it said.
set -euo pipefail
source=$1 build=$2 compiler=$3

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --install "$build" --prefix "$work/installed" >/dev/null
"$compiler" -std=c99 -Wall -Wextra -Werror -I "$work/installed/include" "$source/examples/c_host/host.c" \
    -L "$work/installed/lib" -ltradebill -Wl,-rpath,"$work/installed/lib" -o "$work/host"
cp -r "$source/samples/fund-status/root" "$work/root"

said=$("$work/host" "$work/root")
echo "$said"
[ "$said" = "report finished: message 1025, wParam 4" ]
tail -c 18 "$work/root/Users/demo/Data/Bill/Image/TradeBill.html" | grep -q '</html>'
