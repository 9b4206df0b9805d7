#!/usr/bin/env bash
# A terminal without a window, with closed events or without a request: what it gets all the same.
#
# Usage: odd_host_test.sh SOURCE BUILD WORK
. "$(dirname "${BASH_SOURCE[0]}")/host_setup.sh"

set_up_terminals odd_host fund-status
run_host zh_CN.UTF-8 fund-status odd_host TradeBill.dll . request.ini
expect <<'RUNS'
nothing odd: 0x00000000, 1 messages, sizes told 1 times, page, not acknowledged
no window: 0x00000000, 0 messages, sizes told 0 times, page, not acknowledged
a window that is gone: 0x00000000, 0 messages, sizes told 1 times, page, not acknowledged
closed events: 0x00000000, 1 messages, sizes told 1 times, page, not acknowledged
stop without an event for the answer: 0x00000000, 0 messages, sizes told 0 times, no page, not acknowledged
stop, and the event for the answer is closed: 0x00000000, 0 messages, sizes told 0 times, no page, not acknowledged
no events: 0x00000000, 1 messages, sizes told 1 times, page, not acknowledged
an account without statements: 0x00000000, 1 messages, sizes told 1 times, page, not acknowledged
a user without a folder: 0x00000000, 1 messages, sizes told 1 times, no page, not acknowledged
nothing but zeros: 0x00000000, 0 messages, sizes told 0 times, no page, not acknowledged
no request: structured exception 0x80070057, TryGenerateBill says 0x80070057
nothing odd again: 0x00000000, 1 messages, sizes told 1 times, page, not acknowledged
RUNS
