#!/bin/bash
# Feeds arbitrary bytes to every reader: fuzz.sh [TARGET...] [--runs N] [--seconds N]
#
# Without targets, all are run. Each gets N executions (10,000,000) or, with --seconds, ends after
# that time. Prints how many executions each target had, and in all runs so far. What is found
# lies in build/fuzz/findings, made as small as a minute allows; "fuzzreplay TARGET FILE" of any
# build repeats it. Put it into fuzz/corpus/TARGET together with the fix.
#
# What the fuzzer learns is kept in build/fuzz/corpus.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"
packages+=(clang libclang-rt-14-dev)

runs=10000000
seconds=0
targets=()
while [ $# -gt 0 ]; do
    case "$1" in
    --runs) runs="$2" && shift 2 ;;
    --seconds) seconds="$2" && shift 2 ;;
    -*) sed -n '2,/^$/s/^# \?//p' "${BASH_SOURCE[0]}" >&2 && exit 2 ;;
    *) targets+=("$1") && shift ;;
    esac
done

install_packages
build fuzz

work="$project/build/fuzz"
if [ ${#targets[@]} -eq 0 ]; then
    mapfile -t targets < <("$work/fuzz/fuzzer" --targets)
fi

# Files are written in memory where that is possible.
temporary="$(mktemp -d -p "$([ -w /dev/shm ] && echo /dev/shm || echo "${TMPDIR:-/tmp}")")"
trap 'rm -rf "$temporary"' EXIT
export TMPDIR="$temporary" XDG_DATA_HOME="$temporary" LC_ALL=C.UTF-8

# Dictionary and size of the longest input in bytes: a few lines, records or entries.
kind_of() {
    case "$1" in
    archiveroundtrip | chunk* | bookmarks) echo chunks 512 ;;
    archive*) echo archives 1024 ;;
    compressed) echo compressed 1024 ;;
    directory*) echo directories 1024 ;;
    parquetfooter) echo parquet 2048 ;;
    expression) echo expressions 256 ;;
    *) echo traces 512 ;;
    esac
}

fuzz() {
    local target="$1" log="$work/logs/$1.log"
    local findings="$work/findings/$target-" corpus="$work/corpus/$target"
    mkdir -p "$work/logs" "$work/findings" "$corpus"
    local dictionary size
    read -r dictionary size < <(kind_of "$target")
    local seeds=()
    for folder in "$project/fuzz/corpus/$target" "$project/tests/data/traces/$target"; do
        [ -d "$folder" ] && seeds+=("$folder")
    done
    local status=0
    DATACHUNK_FUZZ_TARGET="$target" "$work/fuzz/fuzzer" "$corpus" "${seeds[@]}" \
        -dict="$project/fuzz/dictionaries/$dictionary.dict" \
        -artifact_prefix="$findings" -max_len="$size" -runs="$runs" -max_total_time="$seconds" \
        -timeout=1 -rss_limit_mb=1024 -detect_leaks=0 -print_final_stats=1 >"$log" 2>&1 </dev/null || status=$?
    local executed
    executed="$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")"
    echo "$target ${executed:-0}" >>"$work/executions"
    local sum
    sum="$(awk -v name="$target" '$1 == name { sum += $2 } END { print sum }' "$work/executions")"
    printf '%-26s %12s executions, %12s in all\n' "$target" "${executed:-0}" "$sum"
    return $status
}

# Whether what was found is found again, for a busy machine makes any input slow. Makes it smaller.
is_confirmed() {
    local finding
    finding="$(ls -t "$work/findings/$1"-* 2>/dev/null | head -n 1)"
    if [ -n "$finding" ] && DATACHUNK_FUZZ_TARGET="$1" "$work/fuzz/fuzzer" -timeout=1 "$finding" \
        >/dev/null 2>&1; then
        echo "$1: slow once, then no more"
        rm "$finding"
        return 1
    fi
    tail -n 40 "$work/logs/$1.log"
    if [ -n "$finding" ]; then
        DATACHUNK_FUZZ_TARGET="$1" "$work/fuzz/fuzzer" -minimize_crash=1 -max_total_time=60 \
            -timeout=1 -exact_artifact_path="$finding.small" "$finding" >/dev/null 2>&1 || true
        echo "Found: $finding, smaller in $finding.small where that was possible"
    fi
}

failed=0
for target in "${targets[@]}"; do
    if ! fuzz "$target" && is_confirmed "$target"; then
        failed=1
    fi
done
exit $failed
