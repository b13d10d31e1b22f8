#!/usr/bin/env bash
# Mutation testing: builds a copy of the working tree, then plants each fault of
# scripts/mutants.txt in turn, rebuilds the test programs and runs them all, and reports which
# programs catch it. Usage: scripts/mutate.sh [OUTPUT_FILE]; the copy goes to $MUTANTS_DIR.
set -euo pipefail
export LC_ALL=C QT_QPA_PLATFORM=offscreen

repo=$(cd "$(dirname "$0")/.." && pwd)
work=${MUTANTS_DIR:-/tmp/brennik-mutants}
output=${1:-/dev/stdout}
tree=$work/tree
build=$work/build

# Prints file $1 with the one place of $FIND replaced by $REPLACE; fails unless it occurs once.
mutated() {
    perl -0777 -ne 'my $n = () = /\Q$ENV{FIND}\E/g;
        die "the text to replace occurs $n times\n" unless $n == 1;
        s/\Q$ENV{FIND}\E/$ENV{REPLACE}/; print' "$1"
}

# Runs every test program, two at a time, and prints the names of those that fail or time out.
failing_programs() {
    (cd "$build/tests" && printf '%s\n' "${programs[@]}" | xargs -P2 -I{} sh -c \
        'timeout 300 "./$1" >/dev/null 2>&1 || echo "$1"' sh {} | sort)
}

# Every mutant is checked before the long work starts.
mapfile -t mutants < <(grep -v -e '^#' -e '^[[:space:]]*$' "$repo/scripts/mutants.txt")
for line in "${mutants[@]}"; do
    IFS=$'\t' read -r file find replace why <<<"$line"
    FIND=$find REPLACE=$replace mutated "$repo/$file" >/dev/null || { echo "$file: $find" >&2; exit 1; }
done

echo "Copying the tree to $tree and building it in $build" >&2
rm -rf "$tree" "$build"
mkdir -p "$tree"
tar -C "$repo" --exclude=./build --exclude=./.git -cf - . | tar -C "$tree" -xf -
cmake -S "$tree" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBRENNIK_TESTS=ON \
    -DBRENNIK_BENCH=OFF -DBRENNIK_WERROR=OFF >"$work/configure.log"
cmake --build "$build" -j2 >"$work/build.log" || { echo "The tree does not build" >&2; exit 1; }

mapfile -t programs < <(find "$build/tests" -type f -executable -name '*_test' -printf '%f\n' | sort)
baseline=$(failing_programs)
if [ -n "$baseline" ]; then
    echo "The unmutated tree fails these test programs: $baseline" >&2
    exit 1
fi
echo "${#programs[@]} test programs pass on the unmutated tree" >&2

declare -A kills
for program in "${programs[@]}"; do kills[$program]=0; done
killed=0 built=0 number=0 started=$SECONDS
exec 4>"$output"
for line in "${mutants[@]}"; do
    IFS=$'\t' read -r file find replace why <<<"$line"
    number=$((number + 1))
    echo "Mutant $number of ${#mutants[@]}: $file: $why" >&2
    cp "$tree/$file" "$work/original"
    FIND=$find REPLACE=$replace mutated "$work/original" >"$work/mutant"
    cp "$work/mutant" "$tree/$file"
    if cmake --build "$build" -j2 --target "${programs[@]}" >"$work/build.log" 2>&1; then
        built=$((built + 1))
        failing=$(failing_programs | tr '\n' ' ')
        if [ -n "$failing" ]; then
            killed=$((killed + 1))
            for program in $failing; do kills[$program]=$((kills[$program] + 1)); done
            outcome=killed
        else
            outcome=SURVIVED
        fi
    else
        outcome="did not build"
    fi
    # A plain copy gives the restored file a new time, so the next build compiles it again.
    cp "$work/original" "$tree/$file"
    printf '%3d  %-13s  %-34s  %s' "$number" "$outcome" "$file" "$why" >&4
    if [ "$outcome" = killed ]; then printf '  killed by: %s' "${failing% }" >&4; fi
    printf '\n' >&4
done

printf '\nMutants killed by each test program:\n' >&4
for program in "${programs[@]}"; do printf '  %-26s %3d\n' "$program" "${kills[$program]}" >&4; done
printf '\nkilled %d of %d mutants that built (%d did not build)\n' \
    "$killed" "$built" $((number - built)) >&4
echo "The mutants took $((SECONDS - started)) s" >&2
