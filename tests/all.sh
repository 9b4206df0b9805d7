#!/usr/bin/env bash
# Everything: ./test, and then what takes longer. FUZZ_SECONDS says how long to fuzz (600).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

./test
python3 -B tests/house/check_tidy.py --headers . build/linux
fuzz/fuzz_test.sh build/sanitizers/bin/statement_fuzz samples "${FUZZ_SECONDS:-600}"
