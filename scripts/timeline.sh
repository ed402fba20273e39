#!/bin/bash
# Measures what a timeline promises on a folder of chunks: scripts/timeline.sh [MESSAGES [FOLDER]],
# 100,000,000 messages without arguments. The folder is written unless it is there already; without
# a name it goes when all is done.
set -euo pipefail
cd "$(dirname "$0")/.."

messages=${1:-100000000}
if [ $# -ge 2 ]; then
    folder=$2
else
    folder=$(mktemp -d)
    trap 'rm -rf "$folder"' EXIT
fi

cmake --preset release >/dev/null
cmake --build --preset release --target datachunk-bench datachunk-generate >/dev/null
if [ ! -e "$folder/tmpData0.dck" ]; then
    build/release/bench/datachunk-generate folder "$messages" "$folder"
fi
DATACHUNK_BENCH_FOLDER=$folder build/release/bench/datachunk-bench \
    --benchmark_filter='^(timeline|encodeMessages|indexRecords)'
