// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QVector>

namespace TabletSimulation {

/// One write to the line.
struct Transmission
{
    qint64 pauseMicroseconds; ///< before it
    QByteArray bytes;
};

/// Faults of a line and of its sender, on demand.
struct LineFaults
{
    int mergedReports = 1; ///< so many reports in one write
    int splitOffset = 0;   ///< each write in two, the first of so many bytes; 0 never
    bool garbage = false;  ///< one to four random bytes between writes
    unsigned seed = 1;     ///< of the random bytes
    int hangUpAfter = -1;  ///< the line ends after so many reports; -1 never
};

/// Returns the writes that send \a reports with \a faults. Merged reports come after the sum
/// of their pauses.
QVector<Transmission> withFaults(const QVector<Transmission>& reports, const LineFaults& faults);

} // namespace TabletSimulation
