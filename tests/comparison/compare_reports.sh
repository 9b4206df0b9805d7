#!/usr/bin/env bash
# Makes the report of every sample on Linux and on Windows (under Wine) and compares them: JSON and page the same to the
# byte, pictures of the same sizes, and every pixel outside of texts the same. Difference pictures stay in WORK.
#
# Usage: compare_reports.sh SOURCE LINUX_BUILD WINDOWS_BUILD WORK
set -euo pipefail
source=$1 linux=$2 windows=$3 work=$4
. "$source/tests/windows/wine_env.sh" "$windows"

rm -rf "$work"
mkdir -p "$work"

# "report SYSTEM ACCOUNT PROGRAM": PROGRAM reads WORK/SYSTEM/ACCOUNT.
report() {
    local folder=$work/$1/$2
    shift 2
    "$@" report --quiet --root "$folder/root" --request "$folder/request.ini" --json "$folder/report.json"
}
pixels() {
    local folder=$work/$1/$2
    shift 2
    "$@" "$folder/root" "$folder/request.ini" "$folder/pixels"
}
image_folder() { echo "$work/$1/$2/root/Users/demo/Data/Bill/Image"; }

# The names and sizes of the picture files in a folder.
sizes_in() {
    python3 -B "$source/tests/comparison/picture_sizes.py" "$1"
}

compare() {
    local account=$1 dpi=$2
    for system in linux windows; do
        mkdir -p "$work/$system"
        cp -r "$source/samples/${account%@*}" "$work/$system/$account"
        rm -rf "$(image_folder $system "$account")"
        [ -z "$dpi" ] || sed -i "s/^dpi=96/dpi=$dpi/" "$work/$system/$account/request.ini"
    done
    report linux "$account" "$linux/bin/tradebill"
    report windows "$account" wine "$windows/bin/tradebill.exe"
    pixels linux "$account" "$linux/bin/report_pixels"
    pixels windows "$account" wine "$windows/bin/report_pixels.exe"

    local one=$work/linux/$account other=$work/windows/$account
    cmp "$one/report.json" "$other/report.json"
    cmp <(tr -d '\r' <"$(image_folder linux "$account")/TradeBill.html") \
        <(tr -d '\r' <"$(image_folder windows "$account")/TradeBill.html")
    diff <(sizes_in "$(image_folder linux "$account")/Image_files") \
        <(sizes_in "$(image_folder windows "$account")/Image_files")
    "$linux/bin/compare_pictures" "$one/pixels" "$other/pixels" "$work/differences/$account"
    echo "$account: the same on both systems"
}

# In a process of its own, which ends at the first thing that differs.
failed=0
compare_apart() {
    (compare "$@") &
    wait $! || { echo "$1: not the same on both systems" >&2; failed=1; }
}

for sample in "$source"/samples/*/; do
    [ -e "$sample/request.ini" ] || continue
    compare_apart "$(basename "$sample")" ""
done
# At other resolutions of the screen too.
for account in fund-status@144 foreign@192; do
    compare_apart "$account" "${account#*@}"
done
exit $failed
