// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tablet-simulator/PseudoTerminal.h"
#include "tablet-simulator/Transmission.h"

#include <QVector>

/// How the writes of a run reach the line.
struct RunOptions
{
    /// A program has the port open for so long before the first write: many discard what arrives
    /// while they open it, and some open it twice, first to see whether it is there.
    int openDelayMilliseconds = 300;
    bool fast = false; ///< no pauses; the next write when the last has been taken
    bool stay = false; ///< keep the line at the end until stopped
};

/// Sends \a writes over \a tablet once a program has opened its port, and prints to the standard
/// error stream what arrives from there. Returns whether all was sent and taken; false after
/// stopTabletRun(), and when the line fails, which it says on the error stream.
bool runTablet(PseudoTerminal& tablet, const QVector<Transmission>& writes,
               const RunOptions& options);

/// Lets runTablet() return soon. Safe in a signal handler.
void stopTabletRun();
