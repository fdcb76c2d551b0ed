// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/CommandLine/Command.h"

namespace ReferenceHost {

/// Runs the command that \a arguments name and returns its exit status. The first argument is the
/// program's path. A wrong command line prints one line on standard error and returns ExitUsage.
///
/// Every command accepts "--help". In place of a command, "--version" prints the version and
/// "--manual-page", which the help does not list, the manual page in roff.
int runProgram(const Program& program, const QStringList& arguments);

} // namespace ReferenceHost
