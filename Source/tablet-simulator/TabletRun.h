// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tablet-simulator/PseudoTerminal.h"
#include "tablet-simulator/Transmission.h"

#include <QVector>

/// How the writes of a run reach the line.
struct RunOptions
{
    int openDelayMilliseconds =
        300;           ///< after a program has opened the port, which discards input then
    bool fast = false; ///< no pauses; the next write when the last has been taken
    bool stay = false; ///< keep the line at the end until stopped
};

/// Sends \a writes over \a tablet once a program has opened its port, and prints to the standard
/// error stream what arrives from there. Returns whether all was sent; false after stopTabletRun().
bool runTablet(PseudoTerminal& tablet, const QVector<Transmission>& writes,
               const RunOptions& options);

/// Lets runTablet() return soon. Safe in a signal handler.
void stopTabletRun();
