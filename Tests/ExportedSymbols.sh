#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
# SPDX-License-Identifier: MIT
# ExportedSymbols.sh [--write] LIBRARY...: compares what each library exports with its list under
# Exports, or writes the list. Hosts that are built already need each of these names.
set -uo pipefail
export LC_ALL=C

exported() { nm -DC --defined-only "$1" | sed -E 's/^[0-9a-f]* . //' | sort -u; }

list_of() { echo "$(dirname "$0")/Exports/$(basename "$1" .so).txt"; }

# compare LIBRARY
compare() {
    local difference
    difference=$(exported "$1" | diff --old-line-format='  gone: %L' --new-line-format='  new: %L' \
        --unchanged-line-format='' "$(list_of "$1")" - 2>&1) && return
    printf '%s exports other names than %s lists:\n%s\n' "$1" "$(list_of "$1")" "$difference"
    return 1
}

if [[ $1 == --write ]]; then
    shift
    for library in "$@"; do exported "$library" >"$(list_of "$library")"; done
    exit
fi
failed=0
for library in "$@"; do compare "$library" || failed=1; done
((failed == 0)) || printf 'If the public headers were meant to change, write the lists anew: %s\n' "$0 --write $*"
exit $failed
