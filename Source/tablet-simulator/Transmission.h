// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QVector>

/// One write to the line.
struct Transmission
{
    qint64 pauseMicroseconds; ///< before it
    QByteArray bytes;
};

/// Faults of a line and of its sender, on demand.
struct LineFaults
{
    int splitOffset = 0;   ///< each report in two writes, the first of so many bytes; 0 never
    int mergedReports = 1; ///< so many reports in one write
    bool garbage = false;  ///< one to four random bytes between writes
    unsigned seed = 1;     ///< of the random bytes
    int hangUpAfter = -1;  ///< the line ends after so many reports; -1 never
};

/// Returns the writes that send \a reports, each \a pauseMicroseconds after the one before, with \a
/// faults.
QVector<Transmission> transmissionsOf(const QVector<QByteArray>& reports, qint64 pauseMicroseconds,
                                      const LineFaults& faults);
