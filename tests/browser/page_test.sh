#!/bin/sh
# Runs a test of the page in a network of its own, with the Chromium that is installed:
#     page_test.sh SCRIPT PROGRAM... gives the script the programs and, last, the browser

for program in node chromium unshare ip; do
    if ! command -v "$program" >/dev/null; then
        echo "skipped: $program is not installed"
        exit 77
    fi
done
mapping=
[ "$(id -u)" -eq 0 ] || mapping=-r
if ! unshare $mapping -n true 2>/dev/null; then
    echo "skipped: no network namespace can be made here"
    exit 77
fi
script=$1
shift
exec unshare $mapping -n sh -c 'ip link set lo up && exec node "$@"' sh \
    "$(dirname "$0")/$script" "$@" "$(command -v chromium)"
