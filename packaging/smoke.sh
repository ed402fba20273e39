#!/bin/bash
# Runs the examples of README.md with the installed program, in the present folder.
# smoke.sh README TRACES

set -euo pipefail

readme="$1" traces="$2"

# What the examples suppose to be there.
cp "$traces"/* .
cp engine_start.log drive.log
datachunk import drive.log --into before
datachunk pack before --to drive.zip
export bus="$PWD/drive.log"
candump() { cat "$bus"; }
less() { cat; }
export -f candump less

# A bus is none of them. No process substitution, which needs a mounted /proc.
sed -nE '/--plugin/d
    s/ +# .*//
    s/^(candump .*\| )?\.\/run\.sh ([a-z].*)$/\1datachunk \2/p' "$readme" >commands
[ "$(grep -c . commands)" -gt 10 ]
while IFS= read -r line; do
    printf '$ %s\n' "$line"
    status=0
    bash -o pipefail -c "$line" </dev/null >output 2>&1 || status=$?
    tail -n 3 output
    # Nothing found is an answer, too.
    if [ "$status" -gt 1 ] || { [ "$status" -eq 1 ] && [[ "$line" != *"datachunk find"* ]]; }; then
        echo "exit status $status" >&2
        exit 1
    fi
done <commands
datachunk info /data/today | grep -E "^messages: +$(grep -c . drive.log)$"
datachunk-monitor --version
