#!/usr/bin/env bash
# A batch as a Slurm array: each task makes its part of the accounts, whichever it is told by the array.
#
# Submit (the number of tasks stands in --array alone, which begins at 0 and has no gaps):
#   export ROOT=/data/settlement OUT=/data/reports TODAY=$(date +%F)
#   job=$(sbatch --parsable --array=0-7 --export=ALL slurm_array.sh)
#   sbatch --dependency=afterany:$job --export=ALL slurm_merge.sh
#SBATCH --job-name=tradebill
#SBATCH --requeue
#SBATCH --open-mode=append
#SBATCH --cpus-per-task=2
#SBATCH --mem-per-cpu=512M
#SBATCH --signal=B:TERM@60
set -uo pipefail
: "${ROOT:?the folder that holds Users}" "${OUT:?the folder for what is made}" "${TODAY:?the same day for all tasks}"

# Slurm's signal reaches this script (B:), which hands it on. Accounts in work are finished, and what is done stays done.
"${TRADEBILL:-tradebill}" batch --root "$ROOT" --discover --out "$OUT" --shard auto --today "$TODAY" --resume \
    --jobs "${SLURM_CPUS_PER_TASK:-1}" --stop-after 20 --quiet &
batch=$!
trap 'kill -TERM "$batch"' TERM
wait "$batch"
code=$?
if [ "$code" -gt 128 ] && kill -0 "$batch" 2>/dev/null; then  # the signal ended the wait, not the batch
    wait "$batch"
    code=$?
fi

# 75: stopped, or another is still at work there. The task is put back, a few times, and goes on where it was.
if [ "$code" -eq 75 ] && [ "${SLURM_RESTART_COUNT:-0}" -lt "${TRIES:-3}" ]; then
    scontrol requeue "${SLURM_ARRAY_JOB_ID}_${SLURM_ARRAY_TASK_ID}" && sleep 60  # it is ended in this time
fi
exit "$code"
