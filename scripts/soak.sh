#!/bin/bash
# Records 100,000,000 messages, or as many as the first argument says, with paging, exports and
# clearings in between, and looks for every one of them in the chunk files. Takes 2 to 15 minutes,
# depending on the machine, and 300 MB of disk space. DATACHUNK_SEED gives another order of events.

source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

install_packages
build release --target tst_model
# QtTest ends a function after five minutes unless it is told otherwise.
exec env DATACHUNK_MESSAGES="${1:-100000000}" QTEST_FUNCTION_TIMEOUT=86400000 \
    nice "$project/tests/support/fresh-home.sh" "$project/build/release/tests/tst_model" \
    everyRotatedMessageIsInOneChunk
