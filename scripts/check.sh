#!/bin/bash
# Finds what neither g++ nor a test sees: sources that are not in the format of .clang-format, texts
# that are not translated, public declarations without a comment, files whose licence nobody knows, a
# binary interface that programs built before could not use, members used without the lock that
# guards them, and what clang-tidy knows. What has not changed since is not looked at again.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

packages+=(abigail-tools clang clang-format clang-tidy doxygen reuse xz-utils)
install_packages

echo "== Checking the format"
cd "$project"
find . -path './build*' -prune -o \( -name '*.h' -o -name '*.cpp' \) -print0 |
    xargs -0 clang-format --dry-run --Werror

echo "== Checking translations and licences"
scripts/translate.sh --check
quietly reuse lint

echo "== Checking the comments of public declarations"
(build clang --target apidoc) 2>&1

echo "== Comparing the libraries' binary interface with the kept one"
quietly build dev --target abi

echo "== Checking with clang and clang-tidy in build/clang, some minutes the first time"
(build clang) 2>&1
