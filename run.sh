#!/bin/bash
# Without arguments: records, pages back and imports the sample traces. With arguments: runs
# "datachunk" with them. Installs and builds what is missing first.

source "$(dirname "${BASH_SOURCE[0]}")/scripts/setup.sh"

datachunk="$project/build/release/tools/datachunk/datachunk"
traces="$project/examples/traces"

install_packages
if [ $# -gt 0 ]; then
    build_quietly release --target datachunk
    exec "$datachunk" "$@"
fi

echo "== Building"
(build release --target datachunk) 2>&1

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

echo
echo "== Recording a candump log; every 100 messages go into a chunk file"
"$datachunk" record --into "$work/recording" --limit 5100 <"$traces/engine_start.log"
(cd "$work/recording" && ls -l -- *.dck)

echo
echo "== Paging chunk 1 back: its first messages"
"$datachunk" dump "$work/recording/tmpData1.dck" --count 5

echo
echo "== Importing a Wireshark capture into chunk files"
"$datachunk" import "$traces/door_module.csv" --into "$work/imported"

echo
echo "== What the recorded log holds"
"$datachunk" info "$traces/engine_start.log"

echo
echo "== What the imported capture holds"
"$datachunk" info "$work/imported/door_module_0.dck"
