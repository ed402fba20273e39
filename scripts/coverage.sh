#!/bin/bash
# Prints how many lines of the readers (src/import) the tests and the corpus of the fuzzer run,
# file by file, with the numbers of those that they do not. Builds into build/coverage.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"
packages+=(gcovr)

install_packages
cd "$project"
cmake --preset dev -B build/coverage -DDATACHUNK_BUILD_BENCH=OFF -DDATACHUNK_BUILD_TOOLS=OFF \
    -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O0 -g --coverage -fprofile-update=atomic" >&2 </dev/null
cmake --build build/coverage >&2 </dev/null
find build/coverage -name '*.gcda' -delete
(cd build/coverage && ctest -j 2 -R '^(import|fuzz)/|hostiletraces') >&2 </dev/null
gcovr --root "$project" --filter src/import/ --exclude-unreachable-branches build/coverage
