// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Runs all benchmarks of the program, interleaved and repeated, and prints a table: the median
/// time of each, its checksum, and its ratio to that of the benchmark named \a subject. Returns the
/// exit status: 1 if the checksums differ, because the work was then not the same.
int runWithRatios(int argc, char** argv, const std::string& subject);
