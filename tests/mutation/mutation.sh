#!/usr/bin/env bash
# Spoils the sources in a place at a time and sees whether the room's tests notice. Without arguments 300 places, chosen by a seed
# that is printed; with --sample 0 all of them, which takes an hour. Other arguments: run_mutants.py.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

tools/install_packages.sh test
python3 -B tests/mutation/make_tree.py . build/mutation readers statistics page findings
python3 -B tests/mutation/run_mutants.py build/mutation tests/mutation/undetected.txt "${@---sample=300}"
