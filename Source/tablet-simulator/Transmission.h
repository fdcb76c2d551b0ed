// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QVector>

namespace TabletSimulation {

/// One write to the port.
struct Transmission
{
    qint64 pauseMicroseconds; ///< before it
    QByteArray bytes;
};

/// Faults of the connection and of the tablet, on demand.
struct LineFaults
{
    int mergedReports = 1; ///< reports per write
    int splitOffset = 0;   ///< splits each write after this many bytes; 0 never
    bool garbage = false;  ///< one to four random bytes between writes
    unsigned seed = 1;     ///< of the random bytes
    int hangUpAfter = -1;  ///< hangs up after this many reports; -1 never
};

/// Returns the writes that send \a reports with \a faults. Merged reports are sent after the sum of
/// their pauses.
QVector<Transmission> withFaults(const QVector<Transmission>& reports, const LineFaults& faults);

} // namespace TabletSimulation
