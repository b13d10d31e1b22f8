#!/usr/bin/env bash
# Installs what is missing, builds Brennik and starts it. Without a display it solves a sample
# problem with the headless runner instead.
set -euo pipefail
cd "$(dirname "$0")/.."

bash scripts/deps.sh build

cmake -S . -B build/run -G Ninja -DCMAKE_BUILD_TYPE=Release -DBRENNIK_TESTS=OFF
cmake --build build/run --parallel

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec build/run/src/shell/brennik
fi
echo "No display found, so the desktop program cannot open. Solving a sample problem instead:"
echo "  brennik-solve --method B --advanced --print samples/sample-getting-started.pro"
echo
exec build/run/src/shell/brennik-solve --dir build/run --method B --advanced --print \
    samples/sample-getting-started.pro
