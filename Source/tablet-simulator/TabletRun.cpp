// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "tablet-simulator/TabletRun.h"

#include "ReferenceHost/Console.h"
#include "ReferenceHost/RecordedSession.h"

#include <QElapsedTimer>

#include <algorithm>
#include <csignal>

namespace {

volatile std::sig_atomic_t s_stopped = 0;

constexpr int slice = 20; // milliseconds between two looks at s_stopped

void printArrived(const QByteArray& bytes)
{
    if (!bytes.isEmpty())
        printError(QStringLiteral("received %1").arg(QString::fromLatin1(quotedBytes(bytes))));
}

// Listens for \a microseconds; returns false when the run has been stopped.
bool listen(PseudoTerminal& tablet, qint64 microseconds)
{
    QElapsedTimer timer;
    timer.start();
    for (;;) {
        const qint64 left = microseconds - timer.nsecsElapsed() / 1000;
        if (left <= 0 || s_stopped)
            return !s_stopped;
        // Rounded up: a pause may be longer, never shorter.
        printArrived(tablet.read(int(std::min<qint64>((left + 999) / 1000, slice))));
    }
}

bool waitUntilTaken(PseudoTerminal& tablet)
{
    // What was written a moment ago may still be on its way to the port's queue.
    constexpr qint64 shortest = 1000;
    do {
        if (!listen(tablet, shortest))
            return false;
    } while (!tablet.drained());
    return true;
}

bool waitUntilOpened(PseudoTerminal& tablet)
{
    while (!tablet.waitForOpen(slice)) {
        if (s_stopped)
            return false;
    }
    return true;
}

} // namespace

bool runTablet(PseudoTerminal& tablet, const QVector<Transmission>& writes,
               const RunOptions& options)
{
    if (!waitUntilOpened(tablet) || !listen(tablet, options.openDelayMilliseconds * 1000))
        return false;
    for (const Transmission& next : writes) {
        if (!(options.fast ? waitUntilTaken(tablet) : listen(tablet, next.pauseMicroseconds)))
            return false;
        if (!tablet.write(next.bytes))
            return false;
    }
    if (!waitUntilTaken(tablet))
        return false;
    while (options.stay && listen(tablet, 1000000)) {
    }
    return true;
}

void stopTabletRun()
{
    s_stopped = 1;
}
