// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "tablet-simulator/Transmission.h"

#include <QVector>

namespace TabletSimulation {

/// When each write of a run goes to the line.
enum class Pace {
    Timed, ///< after its pause
    Taken, ///< when the one before has been taken
    Flood, ///< as soon as the line takes it, whatever the program does
};

/// How the writes of a run reach the line.
struct RunOptions
{
    /// A program has the port open for so long before the first write: many discard what arrives
    /// while they open it, and some open it twice, first to see whether it is there.
    int openDelayMilliseconds = 300;
    Pace pace = Pace::Timed;
    bool stay = false; ///< keep the line at the end until stopped
};

/// Sends \a writes over \a tablet once a program has opened its port, and prints to the standard
/// error stream what arrives from there. Returns whether all was sent and taken; false after
/// stopTabletRun(), and when the line fails, which it says on the error stream.
bool runTablet(ReferenceHost::PseudoTerminal& tablet, const QVector<Transmission>& writes,
               const RunOptions& options);

/// Lets runTablet() return soon. Safe in a signal handler.
void stopTabletRun();

} // namespace TabletSimulation
