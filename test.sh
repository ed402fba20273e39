#!/bin/bash
# Installs and builds what is missing, then runs every test with Qt 5, the short ones with Qt 6, and
# scripts/check.sh. With arguments, which go to ctest, runs only the tests that they choose, with Qt 5.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/scripts/setup.sh"

install_packages
install_readers
echo "== Building in build/dev, some minutes the first time"
(build dev) 2>&1
cd "$project"
if [ $# -gt 0 ]; then
    exec ctest --preset dev "$@"
fi
status=0
ctest --preset dev || status=$?
packages+=(
    qt6-base-dev qt6-tools-dev qt6-l10n-tools
    qt6-5compat-dev qt6-serialbus-dev libqt6svg6 libquazip1-qt6-dev
)
install_packages
echo "== Building with Qt 6 in build/qt6, some minutes the first time"
{ (build qt6) 2>&1 && ctest --preset qt6; } || status=$?
scripts/check.sh || status=$?
exit "$status"
