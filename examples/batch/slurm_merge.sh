#!/usr/bin/env bash
# Joins what the tasks of slurm_array.sh have left. It runs behind them however they ended (afterany), and says by its
# exit code and on its error output what is missing.
#SBATCH --job-name=tradebill-merge
set -euo pipefail
exec "${TRADEBILL:-tradebill}" batch-merge --out "${OUT:?the folder to which the tasks have written}" \
    --today "${TODAY:?the day that the tasks were told}"
