#!/usr/bin/env bash
# What a terminal receives in the course of a report, with accounts of both families, and what becomes of
# dates that can't be.
#
# Usage: report_host_test.sh SOURCE BUILD WORK
. "$(dirname "${BASH_SOURCE[0]}")/host_setup.sh"

# What the host prints if CALLBACKS is what it hears first, in each of its two reports, and COUNTS how often.
both_reports() {
    local callbacks=$1 counts=$2 where
    echo "code page 936"
    for where in "on the thread of the window" "on a thread of its own"; do
        cat <<REPORT
$callbacks
message: wParam 4, lParam 0, before the return, the window's thread, page complete
returned 0x00000000
report $where: 1 messages, $counts, stop acknowledged: no
REPORT
    done
    cat <<DATES
from 1899-12-31 to 2024-1-2: structured exception 0x80004005, 0 messages, whole page; TryGenerateBill says 0x80004005
from 2024-1-2 to 2024-13-1: structured exception 0x80004005, 0 messages, whole page; TryGenerateBill says 0x80004005
from 2024-1-32 to 2024-2-1: structured exception 0x80004005, 0 messages, whole page; TryGenerateBill says 0x80004005
from 1969-6-1 to 2024-1-2: structured exception 0x80070057, 0 messages, whole page; TryGenerateBill says 0x80070057
DATES
}

set_up_terminals report_host fund-status fund-class foreign

# 118 closed positions ask for a unit when they are read and when they are written.
run_host zh_CN.UTF-8 fund-status report_host request.ini
both_reports "first unit: of p, delivery , account 90010002
charts: equity 500 x 250, realised 825 x 250, account yield 500 x 250, trading yield 500 x 250; 25 days" \
    "$((2 * 118)) units, 0 products, 1 sizes" | expect

# Its statements print products by name: one question for each of 440 open positions.
run_host zh_CN.UTF-8 fund-class report_host request.ini
both_reports "first unit: of 沪金, delivery 2402, account 90010001
first product: 螺纹钢
charts: equity 500 x 250, realised 825 x 250, account yield 500 x 250, trading yield 500 x 250; 25 days" \
    "$((2 * 95)) units, 440 products, 1 sizes" | expect

# Closed positions of foreign statements have a P/L of their own, and nobody asks for units.
run_host zh_CN.UTF-8 foreign report_host request.ini
both_reports "first product: MHI2403
charts: equity 825 x 250, realised 825 x 250, account yield 500 x 250, trading yield 500 x 250; 25 days" \
    "0 units, 279 products, 1 sizes" | expect
