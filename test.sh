#!/bin/bash
# Installs and builds what is missing, then runs every test. Arguments go to ctest.

source "$(dirname "${BASH_SOURCE[0]}")/scripts/setup.sh"

install_packages
(build dev) 2>&1
cd "$project"
exec ctest --preset dev "$@"
