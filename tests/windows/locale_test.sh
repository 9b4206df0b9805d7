#!/usr/bin/env bash
# A terminal on a system that isn't Chinese: it is told the same, and gets the same page.
#
# Usage: locale_test.sh SOURCE BUILD WORK
. "$(dirname "${BASH_SOURCE[0]}")/host_setup.sh"

# The page without the places that follow the width of a title as it is painted: fonts are another matter there.
page_in() {
    sed -E '/class = "titletext"|id = "[A-Za-z]+btn"/s/(width|left):[0-9]+px/\1/g' "$1/TradeBill.html"
}

set_up_terminals report_host fund-status
made=$work/fund-status/Users/demo/Data/Bill/Image

run_host zh_CN.UTF-8 fund-status report_host request.ini
[ "${said%%$'\n'*}" = "code page 936" ]
mv "$made" "$work/chinese"
as_chinese=${said/code page 936/code page 1252}

run_host C fund-status report_host request.ini
expect <<<"$as_chinese"
cmp <(page_in "$made") <(page_in "$work/chinese")
[ "$(page_in "$made" | grep -c 'class = "titletext"')" -eq 5 ]
diff <(ls "$made/Image_files") <(ls "$work/chinese/Image_files")
