// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/CommandLine/Command.h"

namespace ReferenceHost {

/// Runs the command that \a arguments name, the program's path in front, and returns its exit
/// status. A wrong command line is one line on the error stream and ExitUsage.
///
/// Understood everywhere: "--help", and "--version" in the place of a command. "--manual-page" in
/// that place prints the manual page in roff; the help does not list it.
int runProgram(const Program& program, const QStringList& arguments);

} // namespace ReferenceHost
