// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "tablet-simulator/Transmission.h"

#include <algorithm>
#include <random>

namespace {

// Long enough for the receiver to see two chunks instead of one.
constexpr qint64 splitPauseMicroseconds = 5000;

QByteArray garbageOf(std::mt19937& random)
{
    QByteArray bytes(int(1 + random() % 4), '\0');
    for (char& byte : bytes)
        byte = char(random() % 256);
    return bytes;
}

} // namespace

QVector<Transmission> transmissionsOf(const QVector<QByteArray>& reports, qint64 pauseMicroseconds,
                                      const LineFaults& faults)
{
    std::mt19937 random(faults.seed);
    QVector<Transmission> writes;
    const int count =
        faults.hangUpAfter < 0 ? reports.size() : std::min(reports.size(), faults.hangUpAfter);
    for (int first = 0; first < count; first += faults.mergedReports) {
        QByteArray bytes;
        const int end = std::min(first + faults.mergedReports, count);
        for (int index = first; index < end; ++index)
            bytes += reports.at(index);
        const qint64 pause = pauseMicroseconds * (end - first);
        if (faults.garbage)
            writes.append({splitPauseMicroseconds, garbageOf(random)});
        if (faults.splitOffset > 0 && faults.splitOffset < bytes.size()) {
            writes.append({pause, bytes.left(faults.splitOffset)});
            writes.append({splitPauseMicroseconds, bytes.mid(faults.splitOffset)});
        } else {
            writes.append({pause, bytes});
        }
    }
    return writes;
}
