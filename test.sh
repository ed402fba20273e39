#!/bin/bash
# Installs and builds what is missing, then runs every test. Arguments go to ctest.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/scripts/setup.sh"

install_packages
echo "== Building in build/dev, some minutes the first time"
(build dev) 2>&1
cd "$project"
exec ctest --preset dev "$@"
