#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
# SPDX-License-Identifier: MIT
# Compares the tables of the architecture page with the includes, which must have no circle.
set -euo pipefail
cd "$(dirname "$0")/.."

# Pairs "FOLDER INCLUDED": the rooms of the hosts one by one, seen from outside as one folder.
included() {
    grep -rHoE '^ *#include "[^"]+' --include='*.cpp' --include='*.h' Source |
        sed -E 's,^Source/,,; s,: *#include ", ,' |
        awk '{
            from = folder($1); to = folder($2)
            if (from !~ /^ReferenceHost/) sub(/\/.*/, "", to)
            if (from != to) print from, to
        }
        function folder(path) {
            match(path, path ~ /^ReferenceHost\// ? "^[^/]*/[^/]*" : "^[^/]*")
            return substr(path, 1, RLENGTH)
        }' | sort -u
}

# The same pairs as the page has them: | `folder` | what it is | `included` `included` |
described() {
    awk -F '|' '$2 ~ /`/ {
        gsub(/[` ]/, "", $2); gsub(/[`,]/, "", $4)
        count = split($4, names, " ")
        for (each = 1; each <= count; ++each) print $2, names[each]
    }' Documentation/architecture.md | sort -u
}

if ! difference=$(diff <(described) <(included)); then
    printf 'Documentation/architecture.md (<) and the includes of Source (>) differ:\n%s\n' "$difference" >&2
    exit 1
fi
included | tsort >/dev/null
