#!/bin/sh
# Fails when a file under src/ includes a header of a layer above its own, so that every include
# points down. The layers, lowest first; a folder not named here stands below them all.
set -eu
layers="surface state files engine optimise report run diagram paint shell"
src=${1:-$(dirname "$0")/../src}

rank() {
    i=0
    for layer in $layers; do
        if [ "$layer" = "$1" ]; then
            echo "$i"
            return
        fi
        i=$((i + 1))
    done
    echo -1
}

status=0
for file in $(cd "$src" && find . -name '*.h' -o -name '*.cpp' | sed 's|^\./||' | sort); do
    own=$(rank "${file%%/*}")
    for used in $(sed -n 's|^#include "\([a-z_]*\)/.*|\1|p' "$src/$file" | sort -u); do
        if [ "$(rank "$used")" -gt "$own" ]; then
            echo "$file includes $used/, a layer above its own"
            status=1
        fi
    done
done
exit $status
