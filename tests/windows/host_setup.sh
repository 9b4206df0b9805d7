# shellcheck shell=bash
# What the tests of the example hosts share. To be sourced by a script with the arguments SOURCE BUILD WORK: WORK is
# emptied, and Wine uses the prefix that WINEPREFIX names.
set -euo pipefail
source=$1 build=$2 work=$3

rm -rf "$work"
mkdir -p "$work"
cmake --install "$build" --prefix "$work/installed" >/dev/null
export WINEDEBUG=-all

# Builds a host, and makes $work/SAMPLE for each sample, the folder of a terminal: the host, the DLL, the request and an
# account's statements.
set_up_terminals() {
    local host=$1 sample
    shift
    mkdir "$work/built"
    "$source/examples/windows_host/build.sh" "$work/installed" "$work/built" "$host"
    for sample in "$@"; do
        cp -r "$source/samples/$sample/root" "$work/$sample"
        rm -rf "$work/$sample/Users/demo/Data/Bill/Image"
        cp "$source/samples/$sample/request.ini" "$work/built/"* "$work/$sample"
    done
}

# Runs a host of a terminal's folder on a system with the code page of the locale, such as "zh_CN.UTF-8 fund-status
# report_host request.ini". Leaves what it prints in $said, in UTF-8 and with plain line ends, and its status there too
# if it isn't 0.
run_host() {
    local locale=$1 folder=$work/$2 host=$3 status=0
    shift 3
    (cd "$folder" && LC_ALL=$locale wine "$host.exe" "$@") >"$work/printed" || status=$?
    said=$(iconv -f GBK -t UTF-8 "$work/printed" | tr -d '\r')
    [ "$status" -eq 0 ] || said+=" [ended with $status]"
}

# Compares $said with standard input, and shows a difference.
expect() {
    diff -u --label expected --label got - <(echo "$said")
}
