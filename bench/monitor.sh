#!/bin/bash
# Measures what the monitor promises, on a display of its own: bench/monitor.sh [SECONDS [MESSAGES]],
# an hour of traffic and a folder of 100,000,000 messages without arguments. The folder is written
# for it, and goes when all is done, unless DATACHUNK_BENCH_FOLDER names one that is there.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../scripts/setup.sh"

seconds=${1:-3600}
messages=${2:-100000000}
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
folder=${DATACHUNK_BENCH_FOLDER:-$home/folder}

install_packages
build release --target datachunk-bench-monitor datachunk-generate
cd "$project"
if [ ! -e "$folder/tmpData0.dck" ]; then
    build/release/bench/datachunk-generate folder "$messages" "$folder"
fi

measure() {
    printf '== %s\n' "$*"
    HOME="$home" XDG_DATA_HOME="$home" XDG_CONFIG_HOME="$home" \
        tests/support/display.sh build/release/bench/datachunk-bench-monitor "$@"
}
measure open "$folder"
measure traffic "$seconds" 20000
