#!/usr/bin/env bash
# Builds the fuzz targets with clang and runs one of them for a given time on a copy of its seed
# corpus (for the problem-file fuzzer, with the sample problems), so that fuzz/corpus stays as it
# is. Prints libFuzzer's final stats; a crash, a broken property or a timeout keeps its input in
# build/fuzz/crashes/ and makes the script fail.
# Usage: scripts/fuzz.sh problem_file_fuzzer|number_texts_fuzzer|settings_fuzzer SECONDS
set -euo pipefail
cd "$(dirname "$0")/.."

targets=(problem_file_fuzzer number_texts_fuzzer settings_fuzzer)
target=${1:-}
seconds=${2:-}
if [[ " ${targets[*]} " != *" $target "* || ! "$seconds" =~ ^[0-9]+$ ]]; then
    echo "Usage: scripts/fuzz.sh $(IFS='|'; echo "${targets[*]}") SECONDS" >&2
    exit 2
fi

bash scripts/deps.sh test

cmake -S . -B build/fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_CXX_COMPILER=clang++-14 -DBRENNIK_FUZZ=ON -DBRENNIK_TESTS=OFF -DBRENNIK_WERROR=ON
cmake --build build/fuzz --parallel --target "${targets[@]}"

corpus=$(mktemp -d)
trap 'rm -rf "$corpus"' EXIT
cp -r "fuzz/corpus/$target/." "$corpus"
# The sample problems seed the problem-file fuzzer too, without a second copy in its corpus.
if [ "$target" = problem_file_fuzzer ]; then
    cp samples/*.pro "$corpus"
fi
mkdir -p build/fuzz/crashes build/fuzz/logs
log="build/fuzz/logs/$target.log"

# The longest input of the seeds takes about a second; a minute means a press that hangs.
echo "Fuzzing $target for $seconds s (log: $log)"
status=0
"build/fuzz/fuzz/$target" -max_total_time="$seconds" -timeout=60 -print_final_stats=1 \
    -artifact_prefix="build/fuzz/crashes/$target-" "$corpus" >"$log" 2>&1 || status=$?
if [ "$status" -ne 0 ]; then
    tail -n 80 "$log"
    echo "$target failed (exit $status); the input is in build/fuzz/crashes/" >&2
    exit 1
fi
grep -E '^#[0-9]+[[:space:]]+DONE|^stat::' "$log"
