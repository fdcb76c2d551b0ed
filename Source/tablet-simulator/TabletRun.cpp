// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "tablet-simulator/TabletRun.h"

#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/Serial/RecordedSession.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <limits>

using namespace ReferenceHost;

namespace TabletSimulation {

namespace {

// Between the last report and the hang-up, which may overtake it in a program that has received the
// report but not processed it yet.
constexpr qint64 lingeringMicroseconds = 200000;

// In which a write reaches the port's queue.
constexpr qint64 arrivalMicroseconds = 1000;

// Rounded up: a pause may be longer, never shorter.
int millisecondsOf(qint64 microseconds)
{
    return int(std::min<qint64>((microseconds + 999) / 1000, std::numeric_limits<int>::max()));
}

void printArrived(const QByteArray& bytes)
{
    if (!bytes.isEmpty())
        std::fprintf(stderr, "received %s\n", quotedBytes(bytes).constData());
}

} // namespace

TabletRun::TabletRun(PseudoTerminal& tablet, const RunOptions& options)
    : m_tablet(tablet),
      m_options(options),
      m_arrived(tablet.descriptor(), QSocketNotifier::Read),
      m_used(tablet.usesDescriptor(), QSocketNotifier::Read),
      m_room(tablet.descriptor(), QSocketNotifier::Write)
{
    m_timeout.setSingleShot(true);
    m_timeout.setTimerType(Qt::PreciseTimer);
    m_room.setEnabled(false);
    connect(&m_arrived, &QSocketNotifier::activated, this,
            [this] { printArrived(m_tablet.read()); });
    connect(&m_used, &QSocketNotifier::activated, this, [this] {
        m_tablet.waitForOpen(0); // takes the notifications
        m_loop.quit();
    });
    connect(&m_room, &QSocketNotifier::activated, &m_loop, &QEventLoop::quit);
    connect(&m_timeout, &QTimer::timeout, &m_loop, &QEventLoop::quit);
}

bool TabletRun::send(const QVector<Transmission>& writes)
{
    if (!waitUntilOpened())
        return false;
    for (const Transmission& next : writes) {
        if (!waitForTurn(next.pauseMicroseconds) || !write(next.bytes))
            return false;
    }
    if (!waitUntilAllTaken())
        return false;
    while (m_options.stay && wait()) {
    }
    return true;
}

void TabletRun::stop()
{
    m_isStopped = true;
    m_loop.quit();
}

// Waits until something happens at the port, for at most that long if a time is given. Returns
// false when the run has been stopped.
bool TabletRun::wait(int milliseconds)
{
    if (m_isStopped)
        return false;
    if (milliseconds >= 0)
        m_timeout.start(milliseconds);
    m_loop.exec();
    m_timeout.stop();
    return !m_isStopped;
}

bool TabletRun::pause(qint64 microseconds)
{
    QElapsedTimer timer;
    timer.start();
    for (qint64 left = microseconds; left > 0; left = microseconds - timer.nsecsElapsed() / 1000) {
        if (!wait(millisecondsOf(left)))
            return false;
    }
    return !m_isStopped;
}

bool TabletRun::waitUntilOpened()
{
    QElapsedTimer open;
    while (!m_isStopped) {
        if (!m_tablet.waitForOpen(0))
            open.invalidate();
        else if (!open.isValid())
            open.start();
        else if (open.hasExpired(m_options.openDelayMilliseconds))
            return true;
        wait(open.isValid() ? m_options.openDelayMilliseconds - int(open.elapsed()) + 1 : -1);
    }
    return false;
}

bool TabletRun::waitForTurn(qint64 pauseMicroseconds)
{
    switch (m_options.pace) {
    case Pace::Timed:
        return pause(pauseMicroseconds);
    case Pace::Taken:
        return waitUntilTaken();
    case Pace::Flood:
        break;
    }
    QCoreApplication::processEvents();
    return !m_isStopped;
}

bool TabletRun::waitUntilTaken()
{
    if (!pause(arrivalMicroseconds))
        return false;
    while (!m_tablet.taken()) {
        if (!wait(PseudoTerminal::discardMilliseconds + 1))
            return false;
    }
    return !m_isStopped;
}

// Bytes that are still on their way reach the port's queue within that time.
bool TabletRun::waitUntilAllTaken()
{
    do {
        if (!waitUntilTaken() && !m_tablet.taken())
            return false;
    } while (pause(lingeringMicroseconds) && !m_tablet.drained());
    return m_tablet.drained();
}

// Writes all of it, however long the buffer is full.
bool TabletRun::write(QByteArray bytes)
{
    while (!m_isStopped) {
        const int written = m_tablet.writeSome(bytes, 0);
        if (written < 0) {
            printError(QStringLiteral("cannot write to the port: %1").arg(qt_error_string()));
            return false;
        }
        bytes.remove(0, written);
        if (bytes.isEmpty())
            return true;
        m_room.setEnabled(true);
        wait();
        m_room.setEnabled(false);
    }
    return false;
}

} // namespace TabletSimulation
