#!/usr/bin/env bash
# Fuzzes target by target, from the kept corpus and from where the last call ended. Usage: run.sh [OPTION...] [TARGET...]
#   --seconds N   for each target (60)
#   --runs N      so many executions of each target, in place of a time
#   --jobs N      processes at once (one for each processor)
#   --build DIR   where the program is (build/fuzz, which is built); what is found stays in DIR/fuzzing
#   --merge       then makes the kept corpus anew: as few and as short inputs as reach all that was reached
# Ends with 1 if an input failed: its file is kept, and the way to run it again is told.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build='' limit=(-max_total_time=60) jobs=$(nproc) runs=0 merges=false targets=()
while [ $# -gt 0 ]; do
    case $1 in
        --seconds) limit=(-max_total_time="$2") runs=0; shift ;;
        --runs) runs=$2; shift ;;
        --jobs) jobs=$2; shift ;;
        --build) build=$(realpath "$2"); shift ;;
        --merge) merges=true ;;
        -*) sed -n '2,8s/^# \?//p' "${BASH_SOURCE[0]}" >&2; exit 2 ;;
        *) targets+=("$1") ;;
    esac
    shift
done
if [ -z "$build" ]; then
    "$root/tools/build.sh" fuzz
    build=$root/build/fuzz
fi
[ "$runs" -eq 0 ] || limit=(-runs=$(((runs + jobs - 1) / jobs)))
program=$build/bin/tradebill_fuzz work=$build/fuzzing
# Longer inputs take their time and reach nothing else.
declare -A longest=([anonymise]=6144 [chart]=768 [diff]=2048 [findings]=8192 [host]=2048 [ini]=2048 [intake]=6144 [json]=2048 [numbers]=512 [page]=1024
    [picture]=1024 [readers]=4096 [request]=3072 [run]=6144 [run_pictures]=6144 [tables]=1024 [template]=6144 [text]=1024
    [workbook]=8192)
[ ${#targets[@]} -gt 0 ] || mapfile -t targets < <(printf '%s\n' "${!longest[@]}" | sort)

# What a process leaves that crashes goes with this folder. Files in memory where the system has such.
memory=/dev/shm
[ -d "$memory" ] || memory=${TMPDIR:-/tmp}
TMPDIR=$(mktemp -d "$memory/tradebill-fuzzing-XXXXXX")
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT
stopping=false
trap 'stopping=true; kill $(jobs -p) 2>/dev/null || true' INT TERM
export LSAN_OPTIONS=suppressions=$root/tests/support/leaks.supp:print_suppressions=0
# A tenth of the time goes into books on memory that nobody reads: the frames of an allocation are told by a replay.
fuzzing_options=malloc_context_size=0:quarantine_size_mb=8

"$root/fuzz/inputs.py" seeds "$TMPDIR/seeds"

# "start_fuzzer TARGET": one process, whose output goes to its log.
start_fuzzer() {
    local target=$1 log=$2 dictionary=$root/fuzz/dictionaries/$1.dict
    ASAN_OPTIONS=$fuzzing_options "$program" --target="$target" "${limit[@]}" -max_len="${longest[$target]}" -dict="$dictionary" \
        -entropic=0 -timeout=20 -rss_limit_mb=2048 -print_final_stats=1 -verbosity=0 -artifact_prefix="$work/found/$target/" \
        "$work/corpus/$target" "${kept[@]}" >"$log" 2>&1 &
}

# Tells what failed. Returns 1 if anything did.
tell_failure() {
    local target=$1 log=$2 input
    input=$(sed -n 's/^artifact_prefix.*Test unit written to //p' "$log" | tail -1)
    echo "$target: $(grep -m1 -E "doesn't hold|ERROR: |runtime error:" "$log" || tail -1 "$log")"
    [ -z "$input" ] || echo "    again: $program --target=$target $input"
    cp "$log" "$work/found/$target/last.log"
    echo "    its output: $work/found/$target/last.log"
}

# Adds to the sum of all calls.
count() {
    local target=$1 executions=$2 file=$work/executions/$1
    echo $(($(cat "$file" 2>/dev/null || echo 0) + executions)) >"$file"
}

fuzz() {
    local target=$1 began=$SECONDS executions=0 failures=0 processes=() job
    mkdir -p "$work"/{corpus,found}/"$target" "$work/executions"
    kept=("$TMPDIR/seeds/$target")
    for folder in "$root"/fuzz/{corpus,regressions}/"$target"; do [ ! -d "$folder" ] || kept+=("$folder"); done
    for ((job = 0; job < jobs; ++job)); do
        start_fuzzer "$target" "$TMPDIR/$target.$job.log"
        processes+=($!)
    done
    for ((job = 0; job < jobs; ++job)); do
        if ! wait "${processes[job]}"; then
            if $stopping; then
                wait "${processes[job]}" || true  # a signal ends the first wait
            else
                tell_failure "$target" "$TMPDIR/$target.$job.log"
                failures=1
            fi
        fi
        executions=$((executions + $(sed -n 's/^stat::number_of_executed_units: *//p' "$TMPDIR/$target.$job.log" | tail -1) + 0))
    done
    count "$target" "$executions"
    printf '%-13s %10d executions in %d s, %d in all\n' "$target" "$executions" $((SECONDS - began)) "$(cat "$work/executions/$target")"
    return "$failures"
}

# Only what each input reaches counts, not how often. Long ones aren't kept: most are what inputs.py makes of the samples.
merge() {
    local target=$1 merged=$TMPDIR/merged/$1
    mkdir -p "$merged"
    "$program" --target="$target" -set_cover_merge=1 -use_counters=0 -max_len="${longest[$target]}" -timeout=20 -verbosity=0 \
        "$merged" "${kept[@]}" "$work/corpus/$target" >"$TMPDIR/merge.log" 2>&1 || { cat "$TMPDIR/merge.log" >&2; return 1; }
    find "$merged" -type f -size +2999c -delete
    rm -rf "$root/fuzz/corpus/$target"
    mkdir -p "$root/fuzz/corpus"
    mv "$merged" "$root/fuzz/corpus/$target"
    echo "$target: $(find "$root/fuzz/corpus/$target" -type f | wc -l) inputs kept"
}

failed=0
for target in "${targets[@]}"; do
    [ -n "${longest[$target]:-}" ] || { echo "no target $target" >&2; exit 2; }
    fuzz "$target" || failed=1
    if $stopping; then exit 130; fi
    if $merges; then merge "$target" || failed=1; fi
done
exit $failed
