#!/usr/bin/env bash
# Every failure of every call in every scenario, 2,000 kills at random moments, 200 at steps, a reader beside, and pairs of programs.
# Usage: all.sh [BUILD]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
build=${1:-build/linux}

python3 -B tests/faults/faults.py "$build" samples
python3 -B tests/faults/kills.py "$build" samples --steps 200 --reads 60 --pairs 120 --random 2000
