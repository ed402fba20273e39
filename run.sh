#!/bin/bash
# Without arguments: records, pages back and imports the sample traces. With "monitor": opens its
# window, with the traces that follow. With "python": an interpreter, or a script, that may import
# datachunk. With other arguments: runs "datachunk" with them. Installs and builds what is missing
# first.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/scripts/setup.sh"

datachunk="$project/build/release/tools/datachunk/datachunk"

install_packages
if [ "${1:-}" = monitor ]; then
    quietly build release --target datachunk-monitor
    exec "$project/build/release/tools/monitor/datachunk-monitor" "${@:2}"
fi
if [ "${1:-}" = python ]; then
    quietly build release --target pythonmodule
    export PYTHONPATH="$project/build/release/python${PYTHONPATH:+:$PYTHONPATH}"
    exec /usr/bin/python3 "${@:2}"
fi
if [ $# -gt 0 ]; then
    quietly build release --target datachunk
    exec "$datachunk" "$@"
fi

echo "== Building in build/release, some minutes the first time"
(build release --target datachunk) 2>&1

cd "$project"
traces=examples/traces
demo=build/demo
rm -rf "$demo"
mkdir -p "$demo"

# step TITLE ARGUMENT...: says what is typed for it, and does it. Reads the file $input, if any.
step() {
    printf '\n== %s\n$ ./run.sh %s%s\n' "$1" "${*:2}" "${input:+ <$input}"
    "$datachunk" "${@:2}" <"${input:-/dev/null}"
}

input=$traces/engine_start.log \
    step "Record a candump log; every 100 messages go into a chunk file" \
    record --into $demo/recording --limit 5100
step "Page chunk 1 back: its first messages" dump $demo/recording/tmpData1.dck --count 5
step "What the recorded log holds" info $traces/engine_start.log
step "Import a Wireshark capture into chunk files" import $traces/door_module.csv --into $demo/imported
step "What the imported capture holds" info $demo/imported/door_module_0.dck

printf '\nAll of it lies in %s. Go on with one of\n' "$project/$demo"
printf '    ./run.sh %s\n' "info YOUR_TRACE" "export $demo/imported/door_module_0.dck --to door.txt" --help
