#!/usr/bin/env bash
# Everything: ./test, and then what takes longer. FUZZ_SECONDS says how long to fuzz (600).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

./test
fuzz/fuzz_test.sh build/sanitizers/bin/statement_fuzz samples "${FUZZ_SECONDS:-600}"
