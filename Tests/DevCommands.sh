#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
# SPDX-License-Identifier: MIT
# DevCommands.sh BUILD: ./dev refuses wrong arguments with one line that names them and with the list of
# what is accepted, and does nothing else; its list of tests is that of ctest.
set -uo pipefail
dev=$(dirname "$0")/../dev
failed=0

fault() {
    printf '%s\n' "$@" >&2
    failed=1
}

# refuses ARGUMENTS MESSAGE ACCEPTED: MESSAGE is the first line, and a line of the rest has ACCEPTED.
refuses() {
    local status=0 output
    output=$(eval "$dev $1" 2>&1) || status=$?
    [[ $status == 2 && $output == "dev: $2"$'\n'*"$3"* ]] ||
        fault "./dev $1: status $status, instead of 2 and '$2'" "$output"
}

while IFS='|' read -r arguments message accepted; do
    refuses "$arguments" "$message" "$accepted"
done <<'ROWS'
nosuch|there is no command 'nosuch'|build demo install test
--nosuch|there is no command '--nosuch'|build demo install test
''|there is no command ''|build demo install test
'build demo'|there is no command 'build demo'|build demo install test
build release|build takes no arguments and got 'release'|./dev build
demo x|demo takes no arguments and got 'x'|./dev demo
check x|check takes no arguments and got 'x'|./dev check
format dev|format takes no arguments and got 'dev'|./dev format
--help x|help takes no arguments and got 'x'|./dev help
install|install takes one PREFIX and got ''|PREFIX: a folder
install ''|install takes one PREFIX and got ''|PREFIX: a folder
install a b|install takes one PREFIX and got 'a b'|PREFIX: a folder
install --prefix=a|install takes one PREFIX and got '--prefix=a'|PREFIX: a folder
test relese|there is no preset or test 'relese'|PRESET: release debug sanitizers
test relese|there is no preset or test 'relese'|DecodingTest
test fuzzing|there is no preset or test 'fuzzing'|PRESET: release debug sanitizers
test decodingtest|there is no preset or test 'decodingtest'|DecodingTest
test Decoding|there is no preset or test 'Decoding'|DecodingTest
test DecodingTest debug|there is no test 'debug'|DecodingTest
test debug 'DecodingTest ReplayTest'|there is no test 'DecodingTest ReplayTest'|DecodingTest
fuzz 0|there is no target '0'|TARGET: description reports
fuzz 5 report|there is no target 'report'|TARGET: description reports
bench foo|there is no benchmark 'foo'|DescriptionLookupBenchmark
bench DecodingBenchmark foo|there is no benchmark 'foo'|DescriptionLookupBenchmark
soak 0|soak takes SECONDS and got '0'|at most 1800
soak 1801|soak takes SECONDS and got '1801'|at most 1800
soak 5 5|soak takes SECONDS and got '5 5'|at most 1800
ROWS

listed=$("$dev" test no-such 2>&1 | sed -n 's/^  TEST: //p' | tr ' ' '\n' | sort)
# In the folder of the tests, so that the log of the ctest that runs this test stays.
registered=$(ctest --test-dir "$1/Tests" -N | sed -nE 's/^ *Test +#[0-9]+: //p' | sort)
[[ -n $registered && $listed == "$registered" ]] ||
    fault "the tests of ./dev (<) and of ctest (>) differ:" "$(diff <(echo "$listed") <(echo "$registered"))"
exit $failed
