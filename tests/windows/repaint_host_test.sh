#!/usr/bin/env bash
# Charts repainted by a host onto surfaces of GDI+, and what becomes of requests that can't be met.
#
# Usage: repaint_host_test.sh SOURCE BUILD WORK
. "$(dirname "${BASH_SOURCE[0]}")/host_setup.sh"

# The chart with a free margin of 30 pixels leaves 640 * 360 - 580 * 300 of them.
expect_charts() {
    echo "before a report: status 8"
    for view in "500 x 250 0" "1200 x 600 0" "640 x 360 $((640 * 360 - 580 * 300))"; do
        for chart in "equity" "account yield" "trading yield" "realised"; do
            echo "$chart, ${view% *}: status 0, painted, ${view##* } pixels untouched, saved"
        done
    done
    cat <<'REQUESTS'
an area of 2^40 pixels: status 2
an area of no width: status 2
no rectangle: status 0
a reversed rectangle: status 0
the surface after them: untouched
a possible request again: status 0, painted
repaints 11 to 50: steady
REQUESTS
}

# A PNG file's header has its width and height, each as four bytes.
size_in_header() {
    local bytes
    read -ra bytes < <(od -An -tu1 -w8 -j16 -N8 "$1")
    echo "$((bytes[2] * 256 + bytes[3])) x $((bytes[6] * 256 + bytes[7]))"
}

set_up_terminals repaint_host fund-status foreign
for sample in fund-status foreign; do
    mkdir "$work/$sample/out"
    run_host zh_CN.UTF-8 "$sample" repaint_host request.ini out
    expect_charts | expect
    said=$(for file in "$work/$sample"/out/*-yield-*.png; do echo "$(basename "$file") $(size_in_header "$file")"; done)
    expect <<'SIZES'
account-yield-1200.png 1200 x 600
account-yield-500.png 500 x 250
account-yield-640.png 640 x 360
trading-yield-1200.png 1200 x 600
trading-yield-500.png 500 x 250
trading-yield-640.png 640 x 360
SIZES
    # No two charts are the same picture.
    [ "$(md5sum "$work/$sample"/out/*.png | cut -d' ' -f1 | sort -u | wc -l)" -eq 12 ]
done
