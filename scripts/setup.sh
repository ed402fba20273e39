# What run.sh and test.sh share: packages and builds. Sourced, not run.
# Everything here speaks on standard error; standard output belongs to the results.

set -euo pipefail

project="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)"

# In other locales Qt and its tools lose characters of file names.
if [ "$(locale charmap 2>/dev/null)" != UTF-8 ]; then
    export LC_ALL=C.UTF-8
fi

packages=(
    cmake ninja-build g++ pkg-config
    qtbase5-dev qttools5-dev qttools5-dev-tools
    libqt5serialbus5-dev libqt5serialbus5-plugins
    libquazip1-qt5-dev zlib1g-dev libxxhash-dev
    libarchive-dev liblzma-dev libzstd-dev
    libbenchmark-dev
    libsystemd-dev
    libqt5svg5 xauth xvfb
    python3-dev pybind11-dev python3-numpy python3-pandas python3-pytest python3-distributed mypy
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

# quietly COMMAND...: says a word only when it fails, and then all of them.
quietly() {
    local log status=0
    log="$(mktemp)"
    # In a shell of its own, because "||" would have it run on behind a failure.
    set +e
    (set -e; "$@") >"$log" 2>&1 </dev/null
    status=$?
    set -e
    if [ "$status" -ne 0 ]; then
        cat "$log" >&2
    fi
    rm -f "$log"
    return "$status"
}

install_packages() {
    # No process substitution, which needs a mounted /proc.
    local missing
    missing="$(missing_packages)"
    if [ -z "$missing" ]; then
        return
    fi
    echo "== Installing packages, some minutes:" $missing >&2
    as_root true
    # A package source that is out of reach matters only when a package is missing afterwards.
    quietly as_root apt-get update || true
    quietly as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install --yes --no-install-recommends $missing
}

# What reads Parquet files back in the tests goes to build/readers. Without a network it is not
# there, and those tests are skipped.
install_readers() {
    local wanted="$project/tests/parquet" readers="$project/build/readers"
    if cmp -s "$wanted/package-lock.json" "$readers/package-lock.json"; then
        return
    fi
    echo "== Installing the readers of Parquet files" >&2
    mkdir -p "$readers"
    (
        command -v npm >/dev/null || packages=(nodejs npm)
        install_packages && cd "$readers" &&
            cp "$wanted/package.json" "$wanted/package-lock.json" . &&
            quietly npm install --no-save --ignore-scripts --no-audit --no-fund
    ) || {
        rm -rf "$readers"
        echo "They are not installed, and the tests that need them are skipped." >&2
    }
}

# build PRESET [--target NAME]: configures where that has not been done and brings the build up to
# date. Progress is for terminals.
build() {
    cd "$project"
    if [ ! -f "build/$1/build.ninja" ]; then
        quietly cmake --preset "$1"
    fi
    local quiet=()
    [ -t 2 ] || quiet=(-- --quiet)
    cmake --build --preset "$@" "${quiet[@]}" >&2 </dev/null
}
