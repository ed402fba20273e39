#!/bin/bash
# Reads traces with datachunk and with other programs that read some of the same formats, and tells
# who reads how many of them without loss, with a loss that is told, and with one that is not.
#
#   peers.sh [FOLDER]         one row for each reader; DATACHUNK_TRACES is the folder by default;
#                             the frames counted are those of losses that are not told
#   peers.sh verbose FOLDER   also every trace that is not read without loss
#   peers.sh convert FOLDER   every trace converted to every format and read back: what is wrong,
#                             and what the reader takes of no file of that format
#   peers.sh parquet FOLDER   every trace written as Parquet and read by three others; the
#                             bytes that a message takes in each file of more than a thousand
#   peers.sh speed [FRAMES]   the time that one message takes, in generated traces
#
# The folder holds traces, and beside each "NAME.faithful" with the frames that are in it:
#   file-line time(µs or "-") id(hex) or "error" letters length data(hex or "-") channel Rx|Tx|-

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

packages+=(can-utils python3-can tshark)
datachunk="$project/build/release/tools/datachunk/datachunk"
# The interpreter of the system is the one that finds python3-can.
python=/usr/bin/python3

# measure NAME COMMAND...: prints the CPU time per message, the middle one of three runs, of a
# command that has the trace on standard input.
measure() {
    local TIMEFORMAT='%U %S' run name="$1"
    shift
    for run in 1 2 3; do
        { time "$@" <"$trace" >/dev/null 2>&1; } 2>&1
    done | sort -n | awk -v name="${trace##*.} $name" -v frames="$frames" \
        'NR == 2 { printf "%-22s%6.2f µs\n", name, ($1 + $2) * 1e6 / frames }'
}

speed() {
    local frames="$1" folder trace format
    local loop='import can, sys
for message in can.LogReader(sys.argv[1]): pass'
    folder="$(mktemp -d)"
    trap "rm -rf '$folder'" EXIT
    for format in candump.log asc.asc; do
        trace="$folder/$format"
        "$project/build/release/bench/datachunk-generate" "${format%.*}" "$frames" "$trace"
        measure datachunk "$datachunk" info "$trace"
        measure 'datachunk --strict' "$datachunk" info --strict "$trace"
        measure python-can "$python" -c "$loop" "$trace"
        if [ "$format" = asc.asc ]; then
            measure asc2log asc2log -I "$trace"
        else
            measure log2long log2long
            measure tshark tshark -r "$trace" -F pcap -w /dev/null
        fi
    done
}

# Every file of a folder that is a trace.
parquet() {
    local traces="$1" folder name files=0
    folder="$(mktemp -d)"
    trap "rm -rf '$folder'" EXIT
    while IFS= read -r trace; do
        case "$trace" in *.expected | *.faithful) continue ;; esac
        name="$folder/$((++files))"
        "$datachunk" export "$trace" --to "$name.parquet" >/dev/null 2>&1 || continue
        "$datachunk" export "$trace" --to "$name.jsonl" >/dev/null 2>&1
        frames="$(wc -l <"$name.jsonl")"
        if [ "$frames" -gt 1000 ]; then
            awk -v frames="$frames" -v size="$(stat -c %s "$name.parquet")" -v name="${trace##*/}" \
                'BEGIN { printf "%-40s %8d messages %6.2f bytes each\n", name, frames, size / frames }'
        fi
    done < <(find "$traces" -type f | sort)
    READERS="$project/build/readers" node "$project/tests/parquet/read.mjs" compare "$folder"
}

install_packages
if [ "${1:-}" = parquet ]; then
    install_readers
    build release --target datachunk
    parquet "${2:-${DATACHUNK_TRACES:?is not set, and no folder is named}}"
    exit
fi
build release --target datachunk datachunk-generate
dpkg-query -W -f='${Package} ${Version}\n' can-utils python3-can tshark
case "${1:-}" in
speed) speed "${2:-1000000}" ;;
verbose | convert)
    DATACHUNK="$datachunk" "$python" "$project/scripts/peers.py" "$1" \
        "${2:-${DATACHUNK_TRACES:?is not set, and no folder is named}}"
    ;;
*) DATACHUNK="$datachunk" "$python" "$project/scripts/peers.py" compare \
    "${1:-${DATACHUNK_TRACES:?is not set, and no folder is named}}" ;;
esac
