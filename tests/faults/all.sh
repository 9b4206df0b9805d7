#!/usr/bin/env bash
# Every failure of every call and of every allocation in every scenario, 2,000 kills at random moments, 200 at steps, a reader beside, and pairs of programs;
# and every failure of the DLL under Wine, in the prefix that its tests have made.
# Usage: all.sh LINUX_BUILD WINDOWS_BUILD
set -euo pipefail
linux=$(realpath "$1") windows=$(realpath "$2")
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

# All of them are run, whatever the first ones say.
status=0
python3 -B tests/faults/faults.py "$linux" samples || status=1
python3 -B tests/faults/kills.py "$linux" samples --steps 200 --reads 60 --pairs 120 --random 2000 || status=1
python3 -B tests/faults/allocations.py "$linux" samples --all || status=1
python3 -B tests/faults/descriptors.py "$linux" samples || status=1
tests/windows/in_wine.sh "$windows" python3 -B tests/faults/import_faults.py "$windows" samples || status=1
exit $status
