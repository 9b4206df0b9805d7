#!/usr/bin/env bash
# Makes tradebill-VERSION-windows-x64.zip, for developers of hosts, of what the preset "windows" has built.
#
# Usage: windows_zip.sh BUILD FOLDER
# Puts the zip into FOLDER and says its path. From the same build and commit comes the same zip, byte for byte.
set -euo pipefail
build=$1
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
output=$(cd "$2" && pwd)

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
name=tradebill-$version-windows-x64
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
package=$work/$name

SOURCE_DATE_EPOCH=$(git -C "$source" log -1 --format=%ct)
export SOURCE_DATE_EPOCH  # strip writes a time into what it has stripped
cmake --install "$build" --prefix "$package" --strip >/dev/null
cp "$source/src/driver/tradebill.def" "$package/lib/TradeBill.def"
sed -e "s/@VERSION@/$version/" -e 's/$/\r/' "$source/packaging/README.txt" >"$package/README.txt"

# What a run has written beside the samples stays at home.
cd "$source"
git ls-files -z samples docs/embedding.md docs/hosts.md examples/c_host/account.c examples/cpp_host examples/csharp_host examples/csharp_reports examples/msvc_host \
    examples/python_host examples/windows_host python |
    xargs -0 cp --parents -t "$package"

cd "$work"
find "$name" -exec touch --no-dereference --date="@$SOURCE_DATE_EPOCH" {} +
rm -f "$output/$name.zip"
find "$name" -type f | LC_ALL=C sort | TZ=UTC zip -q -X -9 "$output/$name.zip" -@
echo "$output/$name.zip"
