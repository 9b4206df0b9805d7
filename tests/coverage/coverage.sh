#!/usr/bin/env bash
# Counts the branches of src/ that the unit tests, the examples, the kept inputs of the fuzzer, samples of failing calls and
# allocations and the programs that they start take, and lists the others.
# Fails below 98 % (branches.py has the rules), and where left_out.txt doesn't say why a branch isn't taken. About a quarter of an hour.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
build=build/coverage
processors=$(nproc)

tools/install_packages.sh test
tools/build.sh coverage

# All processes of one program add to one file: thousands are started. Tests that run as another user write to it too.
rm -rf "$build/profiles"
mkdir "$build/profiles"
export LLVM_PROFILE_FILE=$PWD/$build/profiles/%m.profraw
"$build/bin/unit_tests" --gtest_filter=none --gtest_brief=1
"$build/bin/tradebill" --version >/dev/null
chmod a+rwx "$build/profiles"
chmod a+rw "$build"/profiles/*

running=()
for ((shard = 0; shard < processors; ++shard)); do
    GTEST_TOTAL_SHARDS=$processors GTEST_SHARD_INDEX=$shard "$build/bin/unit_tests" --gtest_brief=1 &
    running+=($!)
done
for process in "${running[@]}"; do wait "$process"; done
ctest --preset coverage -L examples --quiet
"$build/bin/fuzz_replay" fuzz/corpus fuzz/regressions >"$build/fuzz_replay.log"
# What calls and allocations that fail lead to. They are judged where the program doesn't write its counts at its end.
python3 -B tests/faults/faults.py "$build" samples --sample 240 >"$build/faults.log" || true
python3 -B tests/faults/allocations.py "$build" samples --seconds 120 >"$build/allocations.log" || true

# A few functions of headers differ between the programs, and llvm-cov warns that it takes one of them.
llvm-profdata merge -sparse "$build"/profiles/*.profraw -o "$build/coverage.profdata"
llvm-cov export "$build/bin/unit_tests" -object "$build/bin/tradebill" -object "$build/lib/libtradebill.so" \
    -instr-profile "$build/coverage.profdata" -skip-functions -skip-expansions >"$build/coverage.json"
python3 -B tests/coverage/branches.py . "$build/coverage.json" tests/coverage/left_out.txt
