# What run.sh and test.sh share: packages and builds. Sourced, not run.
# Everything here speaks on standard error; standard output belongs to the results.

set -euo pipefail

project="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"

packages=(
    cmake ninja-build g++ pkg-config
    qtbase5-dev
    libqt5serialbus5-dev libqt5serialbus5-plugins
    libquazip1-qt5-dev zlib1g-dev
    libbenchmark-dev
)

missing_packages() {
    local package
    for package in "${packages[@]}"; do
        if [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
            echo "$package"
        fi
    done
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "Packages are missing, and there is neither root nor sudo to install them." >&2
        return 1
    fi
}

install_packages() {
    local missing
    mapfile -t missing < <(missing_packages)
    if [ "${#missing[@]}" -eq 0 ]; then
        return
    fi
    echo "== Installing: ${missing[*]}" >&2
    as_root true
    # A package source that is out of reach matters only when a package is missing afterwards.
    as_root apt-get -qq update >&2 </dev/null || true
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -qq install --yes --no-install-recommends "${missing[@]}" >&2 </dev/null
}

# build PRESET [--target NAME]: configures where that has not been done and brings the build up to
# date.
build() {
    cd "$project"
    if [ ! -f "build/$1/build.ninja" ]; then
        cmake --preset "$1" >&2 </dev/null
    fi
    cmake --build --preset "$@" >&2 </dev/null
}

# The same without a word unless it fails.
build_quietly() {
    local log
    log="$(mktemp)"
    if ! (build "$@") 2>"$log"; then
        cat "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}
