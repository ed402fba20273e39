#!/bin/bash
# Runs a command with a display of its own, so that windows are real ones wherever tests are run. A
# desktop may have said that they are to come up elsewhere.

export QT_QPA_PLATFORM=xcb
exec xvfb-run --auto-servernum --server-args="-screen 0 1600x1000x24 -nolisten tcp" "$@"
