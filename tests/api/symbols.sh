#!/bin/bash
# Compares what the headers export with the library's list of versioned symbols, and with what the
# library then does export. What is new goes into the list, behind the last release in a version of
# its own; nothing leaves it.
# symbols.sh LIST LIBRARY OBJECTS...

set -euo pipefail
export LC_ALL=C

# With "-D" the symbols that a library exports, without it those that object files would.
# Type information of other libraries comes weak along with templates.
exported() {
    readelf -sWC "$@" | sed -nE '
        / (FUNC|OBJECT) +(GLOBAL +DEFAULT +[0-9]+ |WEAK +DEFAULT +[0-9]+ (vtable|typeinfo|typeinfo name) for [A-Za-z]+(::[A-Za-z]+)*$|WEAK +DEFAULT +[0-9]+ .*@@)/ {
            s/^ *[0-9]+: [0-9a-f]+ +[0-9a-fx]+ [A-Z]+ +[A-Z]+ +DEFAULT +[0-9]+ //
            s/@@?[A-Z]+_[0-9.]+$//
            / for std::/!p
        }' | sort -u
}

# same TITLE A B
same() {
    diff -u --label list --label "$1" <(echo "$2") <(echo "$3")
}

list="$1" library="$2"
shift 2
listed="$(sed -nE 's/^ *"(.*)";$/\1/p' "$list" | sort -u)"
[ -n "$listed" ]
same headers "$listed" "$(exported "$@")"
same "$library" "$listed" "$(exported --dyn-syms "$library")"
