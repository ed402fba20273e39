#!/bin/bash
# Runs what takes too long for every day: every fault at every call of every operation, 500 kills of
# a store, and 500 each of a store and of a recording with what is left recovered.
# faults.sh [faults|kills [SEED]]; both without an argument.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

run_test() {
    "$project/tests/support/fresh-home.sh" "$project/build/dev/tests/tst_$1" "${@:2}" -maxwarnings 0 2>&1 |
        grep -E '^(FAIL|QINFO|XPASS|   Loc|Totals|The test left|/)'
}

what="${1:-all}"
case "$what" in all | faults | kills) ;; *)
    echo "usage: faults.sh [faults|kills [SEED]]" >&2
    exit 2
    ;;
esac
install_packages
if [ "$what" != kills ]; then
    build dev --target tst_faults
    FAULTS_ALL=1 run_test faults
    FAULTS_ALL=1 run_test faults threads
fi
if [ "$what" != faults ]; then
    build dev --target tst_kills tst_recovery
    export QTEST_FUNCTION_TIMEOUT=3600000 # milliseconds; Qt gives up after five minutes
    export KILLS="${KILLS:-500}" KILLS_SEED="${2:-$RANDOM}"
    run_test kills
    run_test recovery
fi
