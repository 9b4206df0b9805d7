#!/usr/bin/env bash
# What a stop from another thread leaves behind at every stage of a run.
#
# Usage: stop_host_test.sh SOURCE BUILD WORK
. "$(dirname "${BASH_SOURCE[0]}")/host_setup.sh"

set_up_terminals stop_host fund-status
run_host zh_CN.UTF-8 fund-status stop_host request.ini
# A thread that watches files may see them late, and the stop falls into one of the next tables.
said=$(sed -e '/^stop while pictures/s/[0-3] of 4/0 of 4/' <<<"$said")
expect <<'STAGES'
stop before the run: acknowledged yes, 0 messages, no page
no stop: acknowledged no, 1 messages, whole page
stop in the first day: acknowledged yes, 0 messages, page of the last run
stop while pictures are painted: acknowledged yes, 1 messages, cut page with all anchors, 0 of 4 tables closed
stop before the page's first row: acknowledged yes, 1 messages, cut page with all anchors, 0 of 4 tables closed
stop while the message is handled: acknowledged yes, 1 messages, whole page
stop after the return: acknowledged no, 1 messages, whole page
  acknowledged before the next call: no
the next call: acknowledged yes, 0 messages, page of the last run
stop without an event for the answer: acknowledged no, 0 messages, page of the last run
STAGES
