#!/usr/bin/env bash
# Installs what is missing, builds Brennik with warnings as errors and runs every test; then
# runs every test again under AddressSanitizer and UndefinedBehaviorSanitizer, and each fuzz
# target for a short while. Any failure, sanitizer finding or fuzz crash fails the script.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/deps.sh test

cmake -S . -B build/test -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBRENNIK_WERROR=ON
cmake --build build/test --parallel
ctest --test-dir build/test --output-on-failure --parallel "$(nproc)"

# The sanitizer build optimises as the release does, so that the suite's timed presses keep
# their meaning, but keeps the asserts on: the row tables check their bounds only through them.
sanitizers="-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer"
cmake -S . -B build/asan -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBRENNIK_WERROR=ON \
    -DCMAKE_CXX_COMPILER=g++ -DCMAKE_CXX_FLAGS="$sanitizers" \
    -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O2 -g" -DCMAKE_EXE_LINKER_FLAGS="$sanitizers"
cmake --build build/asan --parallel
ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1 \
UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    ctest --test-dir build/asan --output-on-failure --parallel "$(nproc)"

# About twenty seconds each; scripts/fuzz.sh fails on the first crash, so reaching the end
# means that every target ran clean.
for target in problem_file_fuzzer number_texts_fuzzer settings_fuzzer; do
    bash scripts/fuzz.sh "$target" 20
done
