#!/usr/bin/env bash
# Runs a command with the surroundings of the tests' own Wine prefix.
# Usage: in_wine.sh BUILD COMMAND...
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/wine_env.sh" "$1"
shift
exec "$@"
