#!/usr/bin/env bash
# The DLL loaded and unloaded ten times in one process, and 50 reports from one loading: nothing may pile up.
#
# Usage: load_host_test.sh SOURCE BUILD WORK
. "$(dirname "${BASH_SOURCE[0]}")/host_setup.sh"

set_up_terminals load_host fund-status
mv "$work/fund-status" "$work/root" # apart from the host, which names it
cp -r "$work/built" "$work/fund-status"
run_host zh_CN.UTF-8 fund-status load_host TradeBill.dll ../root ../root/request.ini
expect <<'COUNTS'
loads 4 to 10: steady
reports 11 to 50: steady
COUNTS
[ -s "$work/root/Users/demo/Data/Bill/Image/TradeBill.html" ]
