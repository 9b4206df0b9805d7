#!/usr/bin/env bash
# Builds the example hosts as any program that uses the module: with the headers and the import library of an installed
# module and nothing else of ours.
#
# Usage: build.sh INSTALLED FOLDER [HOST...]
#
# INSTALLED is what "cmake --install build/windows --prefix INSTALLED" has made, FOLDER gets the programs, each with
# the DLL beside it.
set -euo pipefail
source=$(dirname "${BASH_SOURCE[0]}")
installed=$1 folder=$2
shift 2
[ $# -gt 0 ] || set -- report_host stop_host repaint_host load_host odd_host

# Product names reach the module in GBK.
options=(-std=c++20 -O2 -Wall -Wextra -Wconversion -Wshadow -Werror -fexec-charset=GBK -static)
declare -A sources=(
    [report_host]="guarded_call.cpp request_file.cpp"
    [stop_host]="request_file.cpp"
    [load_host]="request_file.cpp resource_count.cpp"
    [odd_host]="guarded_call.cpp request_file.cpp"
    [repaint_host]="request_file.cpp resource_count.cpp"
)
for host in "$@"; do
    read -ra others <<<"${sources[$host]}"
    x86_64-w64-mingw32-g++-posix "${options[@]}" -I "$installed/include" "$source/$host.cpp" "${others[@]/#/$source/}" \
        -L "$installed/lib" -lTradeBill -lgdiplus -lgdi32 -o "$folder/$host.exe"
done
cp "$installed/bin/TradeBill.dll" "$folder"
