#!/usr/bin/env bash
# Everything: ./test, and then what takes longer. FUZZ_SECONDS says how long to fuzz each target (40).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

./test
python3 -B tests/house/check_tidy.py --headers . build/linux
tests/faults/all.sh build/linux build/windows
fuzz/run.sh --seconds "${FUZZ_SECONDS:-40}"
