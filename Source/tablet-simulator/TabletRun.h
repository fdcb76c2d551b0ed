// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "tablet-simulator/Transmission.h"

#include <QVector>

namespace TabletSimulation {

/// When each write of a run is sent.
enum class Pace {
    Timed, ///< after its pause
    Taken, ///< when the previous one has been read
    Flood, ///< as soon as there is room in the port's buffer, whatever the program does
};

/// How the writes of a run are sent.
struct RunOptions
{
    /// How long a program must have the port open before the first write. Many discard what arrives
    /// while they open it, and some open it twice, first to see whether it exists.
    int openDelayMilliseconds = 300;
    Pace pace = Pace::Timed;
    bool stay = false; ///< keep the port open at the end until stopped
};

/// Sends \a writes through \a tablet once a program has opened its port, and prints what arrives
/// from there on standard error. Returns whether everything was sent and read; false after
/// stopTabletRun(), and if the port fails, which prints an error.
bool runTablet(ReferenceHost::PseudoTerminal& tablet, const QVector<Transmission>& writes,
               const RunOptions& options);

/// Makes runTablet() return soon. Safe in a signal handler.
void stopTabletRun();

} // namespace TabletSimulation
