// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tablet-simulator/TabletRun.h"
#include "tablet-simulator/Transmission.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QString>
#include <QVector>

namespace TabletSimulation {

/// What the command line of the simulator asks for.
struct SimulatorOptions
{
    QVector<Transmission> writes; ///< with the faults
    RunOptions run;
    QString link; ///< path of the link to the port; empty for none

    static QList<QCommandLineOption> accepted();

    /// Reads the files that the options name. Throws a CommandError if an option is wrong or a file
    /// cannot be used.
    static SimulatorOptions parse(const QCommandLineParser& parser);
};

} // namespace TabletSimulation
