// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// What a fuzz target does with one input; each target defines it. Nothing lives on to the next.
void fuzz(const QByteArray& input);

/// Ends the program, which keeps the input, unless \a holds.
inline void require(bool holds, const char* what)
{
    if (!holds)
        qFatal("does not hold: %s", what);
}
