#!/bin/bash
# Compares the binary interface of the libraries, as their public headers make it, with the kept one
# in abi/: additions are fine, removals and changes are not. With --keep the present interface
# becomes the kept one.
# abi.sh [--keep] LIBRARY... -- HEADER...

set -euo pipefail

kept="$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/abi"
keeps=
if [ "$1" = --keep ]; then
    keeps=1
    shift
fi
libraries=()
while [ "$1" != -- ]; do
    libraries+=("$1")
    shift
done
shift
work="$(mktemp -d)"
trap 'rm -r "$work"' EXIT
mkdir "$work/headers"
cp "$@" "$work/headers"

status=0
for library in "${libraries[@]}"; do
    name="$(basename "$library").abi"
    # Both sides are such dumps: against a library itself, abidiff takes public types for private.
    abidw --exported-interfaces-only --drop-private-types --headers-dir "$work/headers" \
        --no-comp-dir-path --no-corpus-path --no-show-locs --no-elf-needed \
        --no-parameter-names --out-file "$work/$name" "$library"
    if [ -n "$keeps" ]; then
        xz -9 --stdout "$work/$name" >"$kept/$name.xz"
    else
        xz --decompress --stdout "$kept/$name.xz" >"$work/kept"
        abidiff --no-added-syms --no-show-locs "$work/kept" "$work/$name" || status=1
    fi
done
exit "$status"
