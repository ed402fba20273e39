#!/bin/bash
# Draws the pictures of README: docs/session.svg, a terminal session, from what the program prints, and
# docs/pictures/monitor.png, which a test of the monitor takes.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

datachunk="$project/build/release/tools/datachunk/datachunk"
install_packages
build release --target datachunk

# What is typed, and below it the first lines of what is printed.
show() {
    printf '$ datachunk %s\n' "$*"
    (eval "datachunk $*") 2>&1 | head -n 9 | cut -c1-96
    printf '\n'
}

datachunk() {
    "$datachunk" "$@"
}

session() {
    cd "$folder"
    cp "$project/examples/traces/"* .
    show import door_module.csv --into recording -q
    show info recording
    show "find 'id in 100..7ff and len>=4' recording --first 2 --before 1"
    show convert recording drive.pcapng
}

# Times of day and rates of the machine are not part of it.
draw() {
    awk -v size=13 -v step=18 '
        function escaped(text) {
            gsub(/&/, "\\&amp;", text); gsub(/</, "\\&lt;", text); gsub(/>/, "\\&gt;", text)
            gsub(/ /, "\\&#160;", text)
            return text
        }
        {
            colour = /^\$ / ? "#9ece6a" : /^datachunk: / ? "#e0af68" : "#c0caf5"
            y = 44 + NR * step
            body = body sprintf("<text x=\"16\" y=\"%d\" fill=\"%s\">%s</text>\n", y, colour, escaped($0))
        }
        END {
            height = 60 + NR * step
            printf "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"800\" height=\"%d\" ", height
            printf "font-family=\"DejaVu Sans Mono, Menlo, Consolas, monospace\" font-size=\"%d\">\n", size
            printf "<rect width=\"800\" height=\"%d\" rx=\"8\" fill=\"#1a1b26\"/>\n", height
            printf "<circle cx=\"20\" cy=\"20\" r=\"6\" fill=\"#f7768e\"/><circle cx=\"40\" cy=\"20\" r=\"6\" "
            printf "fill=\"#e0af68\"/><circle cx=\"60\" cy=\"20\" r=\"6\" fill=\"#9ece6a\"/>\n%s</svg>\n", body
        }'
}

folder="$(mktemp -d)"
trap "rm -rf '$folder'" EXIT
session | draw >"$project/docs/session.svg"

build dev --target tst_session
DATACHUNK_PICTURES="$project/docs/pictures" "$project/tests/support/display.sh" \
    "$project/tests/support/fresh-home.sh" "$project/build/dev/tests/tst_session" picturesAreTaken
