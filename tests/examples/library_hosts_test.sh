#!/usr/bin/env bash
# Installs the library into an empty folder and builds hosts against it as their developers would: C by pkg-config, C++ by two
# compilers, both by CMake's package, shared and as an archive. Then looks at what the library shows.
set -euo pipefail
source=$1 build=$2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --install "$build" --prefix "$work/installed" >/dev/null
library=$(find "$work/installed" -name 'libtradebill.so')
PKG_CONFIG_PATH=$(dirname "$library")/pkgconfig
LD_LIBRARY_PATH=$(dirname "$library")
export PKG_CONFIG_PATH LD_LIBRARY_PATH
cp -r "$source/samples/fund-status/root" "$work/root"
read -ra flags < <(pkg-config --cflags --libs tradebill)
[ "$(pkg-config --modversion tradebill)" = "$(sed -n 's/^project(tradebill VERSION \([0-9.]*\).*/\1/p' "$source/CMakeLists.txt")" ]

expect() {
    local said
    said=$("${@:2}")
    [ "$said" = "$1" ] || { echo "$2 said: $said"; exit 1; }
}

gcc -std=c99 -Wall -Wextra -pedantic -Werror "$source/examples/c_host/account.c" "${flags[@]}" -o "$work/account"
said="$work/root: 35 days
25 statements, 944 records, 0 errors"
expect "$said
$said" "$work/account" "$work/root" "$work/root"

# The host that opens the guide.
sed -n '/^```c$/,/^```$/{//!p}' "$source/docs/hosts.md" >"$work/host.c"
gcc -std=c99 -Wall -Wextra -pedantic -Werror "$work/host.c" "${flags[@]}" -o "$work/host"
expect "$work/root/Users/demo/Data/Bill/Image/TradeBill.html" "$work/host" "$work/root"
[ -s "$work/root/Users/demo/Data/Bill/Image/TradeBill.html" ]

for compiler in g++ clang++; do
    command -v $compiler >/dev/null || continue
    $compiler -std=c++17 -Wall -Wextra -Werror -I "$source/examples/cpp_host" "$source/examples/cpp_host/host.cpp" "${flags[@]}" \
        -o "$work/host"
    "$work/host" "$work/root" "$work/equity.png" >"$work/said"
    [ "$(head -n 1 "$work/said")" = "2024-01-02 501467.01" ]
    [ "$(wc -l <"$work/said")" = 25 ]
    [ "$(head -c 4 "$work/equity.png" | tail -c 3)" = PNG ]

    # The error of the terminals' interface leaves the library as an exception.
    $compiler -std=c++17 -Wall -Wextra -Werror -x c++ - "${flags[@]}" -o "$work/catcher" <<'END'
#include <cstdio>
#include <cstring>
#include <tradebill/report_error.h>
#include <tradebill/report_request.h>
int main() {
    static GenerateBillRequest request;
    std::strcpy(request.StartDate, "1899-1-1");
    std::strcpy(request.EndDate, "1899-1-1");
    try {
        GenerateBill(&request);
    } catch (const tradebill::CReportError& error) {
        std::printf("%08X\n", static_cast<unsigned>(error.Code()));
        return 0;
    }
    return 1;
}
END
    expect 80004005 "$work/catcher"
done

mkdir "$work/project"
cp "$source/examples/c_host/account.c" "$work/project"
cat >"$work/project/CMakeLists.txt" <<'END'
cmake_minimum_required(VERSION 3.16)
project(host LANGUAGES C)
find_package(tradebill 0.1 REQUIRED COMPONENTS ${KIND})
add_executable(account account.c)
target_link_libraries(account PRIVATE tradebill::tradebill)
END
for kind in shared static; do
    cmake -S "$work/project" -B "$work/$kind" -DKIND=$kind -DCMAKE_PREFIX_PATH="$work/installed" >/dev/null
    cmake --build "$work/$kind" >/dev/null
    expect "$said
$said" "$work/$kind/account" "$work/root" "$work/root"
done
if ldd "$work/static/account" | grep tradebill; then exit 1; fi
ldd "$work/shared/account" | grep -q 'libtradebill\.so\.1 '

# Nothing is shown but the names of the two headers, and what catching the error takes.
nm -D --defined-only "$library" | awk '$2 != "A" { sub(/@.*/, "", $3); print $3 }' | LC_ALL=C sort >"$work/shown"
{
    sed -n 's/^TRADEBILL_API [^;(]*[ *]\([A-Za-z0-9]*\)(.*/\1/p' "$source/src/hosts/tradebill.h" "$source/src/driver/report_request.h"
    printf '%s\n' _ZTIN9tradebill12CReportErrorE _ZTSN9tradebill12CReportErrorE _ZTVN9tradebill12CReportErrorE
} | LC_ALL=C sort >"$work/promised"
diff "$work/promised" "$work/shown"
