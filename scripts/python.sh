#!/bin/bash
# Tells what a message costs in the Python module, and in python-can where it reads the same file, in
# one run; with "fleet", what a cluster of one and of two workers takes to convert traces.
#
#   python.sh [MESSAGES]             traces of a million messages by default
#   python.sh fleet [TRACES] [MESSAGES]

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

packages+=(python3-can)
# The interpreter of the system is the one that the module is built for.
python=/usr/bin/python3
generate="$project/build/release/bench/datachunk-generate"
export PYTHONPATH="$project/build/release/python"

fleet() {
    local traces="$1" messages="$2" workers i TIMEFORMAT='%R s, %U s of the processors'
    mkdir "$folder/traces"
    "$generate" candump "$messages" "$folder/drive.log"
    for ((i = 0; i < traces; ++i)); do
        ln "$folder/drive.log" "$folder/traces/$i.log"
    done
    for workers in 1 2; do
        printf '%s traces of %s messages, %s workers: ' "$traces" "$messages" "$workers"
        time "$python" -B "$project/examples/fleet/convert.py" --workers "$workers" \
            --into "$folder/dataset$workers" "$folder/traces"
    done
    du -sh "$folder/dataset1"
}

install_packages
build release --target pythonmodule datachunk-generate
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
if [ "${1:-}" = fleet ]; then
    fleet "${2:-100}" "${3:-1000000}"
    exit
fi
messages="${1:-1000000}"
"$generate" candump "$messages" "$folder/drive.log"
"$generate" asc "$messages" "$folder/drive.asc"
"$generate" folder "$messages" "$folder/chunks"
"$python" -B "$project/bench/python/compare.py" "$folder"
