#!/usr/bin/env bash
# Installs what is missing, builds Brennik and starts it.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/deps.sh build-essential cmake ninja-build googletest libgtest-dev libgmock-dev

cmake -S . -B build/run -G Ninja -DCMAKE_BUILD_TYPE=Release -DBRENNIK_TESTS=OFF
cmake --build build/run --parallel
echo "The cutting engine is built; the headless runner and the desktop program are not there yet."
