#!/bin/bash
# Runs a command with a display of its own, so that windows are real ones wherever tests are run.

exec xvfb-run --auto-servernum --server-args="-screen 0 1600x1000x24 -nolisten tcp" "$@"
