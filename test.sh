#!/bin/bash
# Installs and builds what is missing, then runs every test and scripts/check.sh. With arguments,
# which go to ctest, runs only the tests that they choose.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/scripts/setup.sh"

install_packages
echo "== Building in build/dev, some minutes the first time"
(build dev) 2>&1
cd "$project"
if [ $# -gt 0 ]; then
    exec ctest --preset dev "$@"
fi
status=0
ctest --preset dev || status=$?
scripts/check.sh || status=$?
exit "$status"
