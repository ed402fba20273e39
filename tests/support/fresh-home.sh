#!/bin/sh
# Runs a test in a data location and a temporary folder of its own; what the test leaves there makes
# it fail.
home=$(mktemp -d) && mkdir "$home/tmp" || exit 1
HOME=$home XDG_DATA_HOME=$home TMPDIR=$home/tmp LC_ALL=C.UTF-8 LANGUAGE= "$@"
status=$?
left=$(find "$home" -type f | head -n 20)
rm -rf "$home"
if [ "$status" -eq 0 ] && [ -n "$left" ]; then
    printf 'The test left files behind:\n%s\n' "$left"
    exit 1
fi
exit "$status"
