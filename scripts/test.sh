#!/usr/bin/env bash
# Installs what is missing, builds Brennik with warnings as errors and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/deps.sh test

cmake -S . -B build/test -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBRENNIK_WERROR=ON
cmake --build build/test --parallel
ctest --test-dir build/test --output-on-failure --parallel "$(nproc)"
