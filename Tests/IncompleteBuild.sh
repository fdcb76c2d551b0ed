#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
# SPDX-License-Identifier: MIT
# IncompleteBuild.sh FOLDER GENERATOR: a build in which nothing is built yet is not installed, not even in part,
# and says what to run.
set -euo pipefail
rm -rf "$1"
cmake -S "$(dirname "$0")/.." -B "$1/build" -G "$2" -DDIGITIZER_TESTS=OFF >/dev/null
output=$(cmake --install "$1/build" --prefix "$1/root" 2>&1) && status=0 || status=$?
[[ $status != 0 && ! -e $1/root && $output == *"cmake --build $1/build --target installation"* ]] && exit
printf 'the installation ended with status %s and said: %s\ninstalled:\n%s\n' \
    "$status" "$output" "$(find "$1/root" 2>&1)"
exit 1
