#!/bin/bash
# Shows what the tests are worth: plants the faults of tests/planted one at a time into a copy of
# the sources, builds and runs the tests that could see each of them, and prints which did.
# plant.sh [WORD...]; only the faults with one of the words in their names. Takes some 20 seconds for
# each.
#
# A fault is "fault NAME" and "tests ROOM/SUBJECT...", then the lines of a piece of the sources behind
# "-" and those in place of it behind "+". The piece must be there exactly once, in whatever file.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

install_packages
install_readers
export DATACHUNK_READERS="$project/build/readers"
work="$project/build/planted"
tree="$work/tree"
declare -A testsOf oldOf newOf
names=()

read_faults() {
    local name="" line
    while IFS= read -r line; do
        case "$line" in
        "fault "*) name="${line#fault }" && names+=("$name") ;;
        "tests "*) testsOf[$name]="${line#tests }" ;;
        -*) oldOf[$name]+="${oldOf[$name]:+$'\n'}${line#-}" ;;
        +*) newOf[$name]+="${newOf[$name]:+$'\n'}${line#+}" ;;
        esac
    done
}

# Copies what differs, so that only that is built. An interrupted run leaves its fault in the copy.
copy_sources() {
    cd "$project"
    mkdir -p "$tree"
    local file launcher=()
    (git ls-files --cached --others --exclude-standard && cd "$tree" && find . -type f -printf '%P\n') |
        sort -u | while IFS= read -r file; do
        if [ ! -f "$file" ]; then
            rm -f "$tree/$file"
        elif ! cmp -s "$file" "$tree/$file"; then
            cp --parents "$file" "$tree"
        fi
    done
    command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    cmake -G Ninja -S "$tree" -B "$work/build" -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS=-O1 \
        -DDATACHUNK_BUILD_BENCH=OFF "${launcher[@]}"
}

# run_tests ROOM/SUBJECT...: builds and runs them.
run_tests() {
    local test targets=()
    for test in "$@"; do
        case "$test" in
        fuzz/corpus) targets+=(fuzzreplay) ;;
        reliability/faultythreads) targets+=(tst_faults) ;;
        api/install) targets+=(all) ;;
        *) targets+=("tst_${test#*/}") ;;
        esac
    done
    cmake --build "$work/build" --target "${targets[@]}" >"$work/build.log" 2>&1 </dev/null || return 2
    local pattern="$*"
    (cd "$work/build" && ctest -j 2 --timeout 120 -R "^(${pattern// /|})\$") \
        >"$work/test.log" 2>&1 </dev/null
}

# find_piece PIECE: sets file and content to the one file with it, and what that holds.
find_piece() {
    local candidate text rest count=0
    while IFS= read -r candidate; do
        text="$(<"$candidate")"
        rest="${text#*"$1"}"
        [[ "$text" == *"$1"* ]] || continue
        count=$((count + 1))
        [[ "$rest" != *"$1"* ]] || count=2
        file="$candidate" content="$text"
    done < <(grep -rlF -- "${1%%$'\n'*}" "$tree/src" "$tree/tools")
    [ $count -eq 1 ]
}

# plant NAME: prints what becomes of the fault; 0 when a test finds it.
plant() {
    local file content old="${oldOf[$1]}" status=0
    if ! find_piece "$old"; then
        echo "does not fit the sources"
        return 1
    fi
    printf '%s\n' "${content%%"$old"*}${newOf[$1]:-}${content#*"$old"}" >"$file"
    run_tests ${testsOf[$1]} || status=$?
    printf '%s\n' "$content" >"$file"
    case $status in
    0) echo "SURVIVED ${testsOf[$1]}" && return 1 ;;
    2) echo "does not build, see $work/build.log" && return 1 ;;
    esac
    echo "found by" $(sed -nE 's/^.*Test +#[0-9]+: ([^ ]+) .*\*\*\*.*$/\1/p' "$work/test.log")
}

read_faults < <(cat "$project"/tests/planted/*)
if [ $# -gt 0 ]; then
    mapfile -t names < <(printf '%s\n' "${names[@]}" | grep -F "$(printf '%s\n' "$@")")
fi
quietly copy_sources
if ! run_tests $(for name in "${names[@]}"; do echo ${testsOf[$name]}; done | tr ' ' '\n' | sort -u); then
    echo "The tests fail without any fault, see $work/test.log" >&2
    exit 1
fi
found=0
for name in "${names[@]}"; do
    printf '%-56s ' "$name"
    plant "$name" && found=$((found + 1))
done
echo "$found of ${#names[@]} found"
[ $found -eq ${#names[@]} ]
