#!/usr/bin/env bash
# Runs the host in Python on a sample with the built library, and looks at what it said, wrote and painted.
set -euo pipefail
source=$1 module=$2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$source/samples/fund-class" "$work/sample"

export PYTHONDONTWRITEBYTECODE=1 PYTHONIOENCODING=UTF-8
timeout 120 python3 "$source/examples/python_host/host.py" "$module" "$work/sample" "$work/chart.bmp" >"$work/said"
diff - "$work/said" <<'SAID'
placeholder: 108 bytes
stopped run: acknowledged True, messages 0
report: 0x00000000
  asked for units 190 times beginning with 90010001 沪金 2402
  asked for products 440 times beginning with 螺纹钢
  charts: 500x250 825x250 500x250 500x250 of 25 days
  counted: 25 statements on 35 days, 0 unreadable, 726 records, 14 pictures
  message 1025, wParam 4
equity chart at 800x400: status 0
month 13: 0x80004005, messages 0
  wrong: the run failed with code 0x80004005: a date is out of bounds (year from 1900, month 1 to 12, day 1 to 31)
SAID
tail -c 18 "$work/sample/root/Users/demo/Data/Bill/Image/TradeBill.html" | grep -q '</html>'

# 54 bytes of header and the pixels, the frame's colour first.
[ "$(stat -c %s "$work/chart.bmp")" = $((54 + 4 * 800 * 400)) ]
[ "$(od -An -tx1 -j54 -N4 "$work/chart.bmp")" = " 38 38 38 ff" ]
