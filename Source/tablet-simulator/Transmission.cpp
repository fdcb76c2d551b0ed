// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "tablet-simulator/Transmission.h"

#include <algorithm>
#include <random>

namespace TabletSimulation {

namespace {

// Long enough for the receiver to get two chunks instead of one.
constexpr qint64 splitPauseMicroseconds = 5000;

QByteArray garbageOf(std::mt19937& random)
{
    QByteArray bytes(int(1 + random() % 4), '\0');
    for (char& byte : bytes)
        byte = char(random() % 256);
    return bytes;
}

} // namespace

QVector<Transmission> withFaults(const QVector<Transmission>& reports, const LineFaults& faults)
{
    std::mt19937 random(faults.seed);
    QVector<Transmission> writes;
    const int count =
        faults.hangUpAfter < 0 ? reports.size() : std::min(reports.size(), faults.hangUpAfter);
    for (int first = 0; first < count; first += faults.mergedReports) {
        Transmission write = {0, {}};
        for (int index = first; index < std::min(first + faults.mergedReports, count); ++index) {
            write.pauseMicroseconds += reports.at(index).pauseMicroseconds;
            write.bytes += reports.at(index).bytes;
        }
        if (faults.garbage)
            writes.append({splitPauseMicroseconds, garbageOf(random)});
        if (faults.splitOffset > 0 && faults.splitOffset < write.bytes.size()) {
            writes.append({write.pauseMicroseconds, write.bytes.left(faults.splitOffset)});
            writes.append({splitPauseMicroseconds, write.bytes.mid(faults.splitOffset)});
        } else {
            writes.append(write);
        }
    }
    return writes;
}

} // namespace TabletSimulation
