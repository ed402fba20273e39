#!/bin/bash
# Runs the tests of the store, the files and the import under ThreadSanitizer. Arguments go to
# ctest. Qt and QuaZip are built with it first, from the distribution's sources and of the versions
# installed; that takes some 15 minutes once and stays in build/tsan-qt.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

packages+=(dpkg-dev)
install_packages

cache="$project/build/tsan-qt"
apt="$cache/apt"

version_of() {
    dpkg-query -W -f='${source:Version}' "$1"
}

qt="$cache/$(version_of qtbase5-dev)_$(version_of libquazip1-qt5-dev)"
mkdir -p "$qt"

# once NAME COMMAND: runs a step that has not succeeded yet.
once() {
    if [ ! -e "$qt/$1.done" ]; then
        echo "== ThreadSanitizer: $1, see $qt/$1.log" >&2
        # In a shell of its own, because "if" would have it run on behind a failure.
        set +e
        (set -e; "${@:2}") >"$qt/$1.log" 2>&1 </dev/null
        local status=$?
        set -e
        if [ "$status" -ne 0 ]; then
            tail -n 20 "$qt/$1.log" >&2
            return "$status"
        fi
        touch "$qt/$1.done"
    fi
}

# The machine's package sources, read as sources of source packages, in lists of our own: the
# machine stays as it is.
source_lists() {
    rm -rf "$apt"
    mkdir -p "$apt/parts" "$apt/lists/partial"
    local list parts file
    eval "$(apt-config shell list Dir::Etc::sourcelist/f parts Dir::Etc::sourceparts/d)"
    for file in "$list" "$parts"/*.list; do
        if [ -f "$file" ]; then
            sed -nE 's/^\s*deb(-src)?\s/deb-src /p' "$file" >"$apt/parts/$(basename "$file")"
        fi
    done
    for file in "$parts"/*.sources; do
        if [ -f "$file" ]; then
            sed -E 's/^Types:.*/Types: deb-src/' "$file" >"$apt/parts/$(basename "$file")"
        fi
    done
    # A source out of reach matters only when a package is missing afterwards.
    private_apt update || true
}

private_apt() {
    apt-get -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$apt/parts" \
        -o Dir::State::lists="$apt/lists" -o Dir::Cache="$apt" -o APT::Sandbox::User=root "$@"
}

# fetch SOURCE PACKAGE FOLDER: unpacks the source of an installed package.
fetch() {
    cd "$apt"
    private_apt source --download-only "$1=$(version_of "$2")"
    rm -rf "$3"
    # apt has checked the files already.
    dpkg-source --no-check -x "$1"_*.dsc "$3"
}

# Only what the tests need, and nothing from outside that Qt could synchronise threads with.
configure_qt() {
    rm -rf "$qt/qtbuild"
    mkdir "$qt/qtbuild"
    cd "$qt/qtbuild"
    "$qt/qtsource/configure" -opensource -confirm-license -release -platform linux-g++ \
        -sanitize thread -no-strip -prefix "$qt/installed" -nomake examples -nomake tests \
        -no-gui -no-widgets -no-dbus -no-openssl -no-glib -no-icu -no-pch \
        -qt-pcre -qt-doubleconversion -system-zlib \
        QMAKE_CFLAGS_RELEASE="-O1 -g1" QMAKE_CXXFLAGS_RELEASE="-O1 -g1" \
        QMAKE_CFLAGS_OPTIMIZE_FULL=-O1
    mkdir -p src
    (cd src && ../bin/qmake "$qt/qtsource/src/src.pro" -o Makefile)
}

build_qt() {
    make -C "$qt/qtbuild/src" -j"$(nproc)" sub-corelib sub-concurrent sub-testlib sub-rcc
}

install_qt() {
    make -C "$qt/qtbuild" sub-qmake-qmake-aux-pro-install_subtargets install_mkspecs
    make -C "$qt/qtbuild/src" {sub-corelib,sub-concurrent,sub-testlib,sub-rcc}-install_subtargets
}

build_quazip() {
    # Qt takes what is optional for required.
    sed -i 's/OPTIONAL_COMPONENTS Network Test//' "$qt/quazipsource/CMakeLists.txt"
    cmake -G Ninja -S "$qt/quazipsource" -B "$qt/quazipbuild" \
        -DCMAKE_PREFIX_PATH="$qt/installed" -DCMAKE_INSTALL_PREFIX="$qt/installed" \
        -DCMAKE_INSTALL_LIBDIR=lib -DCMAKE_INSTALL_RPATH="$qt/installed/lib" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS="-fsanitize=thread -g1" \
        -DCMAKE_C_FLAGS="-fsanitize=thread -g1" \
        -DQUAZIP_QT_MAJOR_VERSION=5 -DQUAZIP_BZIP2=OFF
    cmake --build "$qt/quazipbuild" --target install
}

if [ ! -e "$qt/quazip-source.done" ]; then
    source_lists >"$qt/source-lists.log" 2>&1 </dev/null
fi
once qt-source fetch qtbase-opensource-src qtbase5-dev "$qt/qtsource"
once qt-configure configure_qt
once qt-build build_qt
once qt-install install_qt
once quazip-source fetch libquazip1-qt5 libquazip1-qt5-dev "$qt/quazipsource"
once quazip-build build_quazip
ln -sfn "$(basename "$qt")" "$cache/current"

(build tsan) 2>&1
cd "$project"
# A green run means something only where a race that is there is found, and none that is not.
ctest --preset tsan -R '^sanitizer/'
exec ctest --preset tsan -E '^sanitizer/' "$@"
