#!/usr/bin/env bash
# A terminal on a system that isn't Chinese: it is told the same, and gets the same page with the same pictures.
#
# Usage: locale_test.sh SOURCE BUILD WORK
. "$(dirname "${BASH_SOURCE[0]}")/host_setup.sh"

set_up_terminals report_host fund-status
made=$work/fund-status/Users/demo/Data/Bill/Image

run_host zh_CN.UTF-8 fund-status report_host request.ini
[ "${said%%$'\n'*}" = "code page 936" ]
mv "$made" "$work/chinese"
as_chinese=${said/code page 936/code page 1252}

run_host C fund-status report_host request.ini
expect <<<"$as_chinese"
diff -r "$work/chinese" "$made"
