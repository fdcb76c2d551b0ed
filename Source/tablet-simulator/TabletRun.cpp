// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "tablet-simulator/TabletRun.h"

#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/Serial/RecordedSession.h"

#include <QElapsedTimer>

#include <algorithm>
#include <csignal>
#include <cstdio>

using namespace ReferenceHost;

namespace TabletSimulation {

namespace {

volatile std::sig_atomic_t s_stopped = 0;

constexpr int slice = 20; // milliseconds between two checks of s_stopped

// Microseconds between the last report and the hang-up, which may overtake it in a program that has
// received the report but not processed it yet.
constexpr qint64 lingering = 200000;

void printArrived(const QByteArray& bytes)
{
    if (!bytes.isEmpty())
        std::fprintf(stderr, "received %s\n", quotedBytes(bytes).constData());
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
    do {
        if (!listen(tablet, 1000))
            return false;
    } while (!tablet.taken());
    return true;
}

// Bytes that are still on their way reach the port's queue within that time.
bool waitUntilAllTaken(PseudoTerminal& tablet)
{
    do {
        if (!waitUntilTaken(tablet) && !tablet.taken())
            return false;
    } while (listen(tablet, lingering) && !tablet.drained());
    return tablet.drained();
}

bool waitUntilOpened(PseudoTerminal& tablet, int delayMilliseconds)
{
    QElapsedTimer open;
    while (!s_stopped) {
        if (!tablet.waitForOpen(slice))
            open.invalidate();
        else if (!open.isValid())
            open.start();
        else if (open.hasExpired(delayMilliseconds))
            return true;
        else
            listen(tablet, 1000);
    }
    return false;
}

bool waitForTurn(PseudoTerminal& tablet, Pace pace, qint64 pauseMicroseconds)
{
    switch (pace) {
    case Pace::Timed:
        return listen(tablet, pauseMicroseconds);
    case Pace::Taken:
        return waitUntilTaken(tablet);
    case Pace::Flood:
        break;
    }
    return !s_stopped;
}

// Writes all of it, however long the buffer is full.
bool write(PseudoTerminal& tablet, QByteArray bytes)
{
    while (!bytes.isEmpty() && !s_stopped) {
        const int written = tablet.writeSome(bytes, slice);
        if (written < 0) {
            printError(QStringLiteral("cannot write to the port: %1").arg(qt_error_string()));
            return false;
        }
        bytes.remove(0, written);
        if (!bytes.isEmpty())
            printArrived(tablet.read());
    }
    return bytes.isEmpty();
}

} // namespace

bool runTablet(PseudoTerminal& tablet, const QVector<Transmission>& writes,
               const RunOptions& options)
{
    if (!waitUntilOpened(tablet, options.openDelayMilliseconds))
        return false;
    for (const Transmission& next : writes) {
        if (!waitForTurn(tablet, options.pace, next.pauseMicroseconds) ||
            !write(tablet, next.bytes))
            return false;
    }
    if (!waitUntilAllTaken(tablet))
        return false;
    while (options.stay && listen(tablet, 1000000)) {
    }
    return true;
}

void stopTabletRun()
{
    s_stopped = 1;
}

} // namespace TabletSimulation
