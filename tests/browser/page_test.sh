#!/bin/sh
# Runs the page's test with the Chromium that is installed: page_test.sh PANEL-EMULATOR

for program in node chromium; do
    if ! command -v "$program" >/dev/null; then
        echo "skipped: $program is not installed"
        exit 77
    fi
done
exec node "$(dirname "$0")/page_test.mjs" "$1" "$(command -v chromium)"
