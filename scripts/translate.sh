#!/bin/bash
# Brings the catalogues in translations/ up to the texts of the sources. What is new is unfinished in
# them, to be translated by hand or in Qt Linguist; what is gone is left out.
# translate.sh --check: changes nothing, and fails where that would, or where a text is unfinished.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

# find_texts SOURCES [OPTION] CATALOGUE...
find_texts() {
    # Places in the sources would change with every line that is added there.
    QT_SELECT=5 lupdate -silent -no-obsolete -locations none "$1" -ts "${@:2}"
}

# update FOLDER: the same for the catalogues in that folder.
update() {
    local catalogue sources
    for catalogue in datachunk datachunk-monitor datachunkhandler; do
        case "$catalogue" in
        datachunk) sources="$project/tools/datachunk" ;;
        datachunk-monitor) sources="$project/tools/monitor" ;;
        *) sources="$project/src" ;;
        esac
        find_texts "$sources" "$1/$catalogue"_{de,fr}.ts
    done
    # English texts stand in the sources; their forms for one and for many do not.
    find_texts "$project/tools/monitor" -pluralonly "$1/datachunk-monitor_en.ts"
}

install_packages
cd "$project/translations"
if [ "${1:-}" != --check ]; then
    update .
    exit
fi
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
cp ./*.ts "$work"
update "$work"
if ! diff -u . "$work"; then
    echo "The catalogues are not those of the sources; scripts/translate.sh changes them." >&2
    exit 1
fi
if grep -n 'type="unfinished"' ./*.ts; then
    echo "Texts are not translated yet." >&2
    exit 1
fi
