// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ReferenceHost {

/// Writes \a text to standard output without delay. Returns whether that worked.
bool printOutput(const QString& text);

/// Writes one line to standard error: the program's name, a colon, and \a text. Line breaks in it
/// become blanks.
void printError(const QString& text);

} // namespace ReferenceHost
