// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "tablet-simulator/Transmission.h"

#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>
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

/// Sends writes through a terminal once a program has opened its port, and prints what arrives from
/// there on standard error. Waits in an event loop.
class TabletRun : public QObject
{
    Q_OBJECT

public:
    /// \a tablet is open and outlives the run.
    TabletRun(ReferenceHost::PseudoTerminal& tablet, const RunOptions& options);

    /// Returns whether everything was sent and read; false after stop(), and if the port fails,
    /// which prints an error.
    bool send(const QVector<Transmission>& writes);

    /// Makes send() return.
    void stop();

private:
    bool wait(int milliseconds = -1);
    bool waitUntilOpened();
    bool waitForTurn(qint64 pauseMicroseconds);
    bool pause(qint64 microseconds);
    bool waitUntilTaken();
    bool waitUntilAllTaken();
    bool write(QByteArray bytes);

    ReferenceHost::PseudoTerminal& m_tablet;
    const RunOptions m_options;
    QEventLoop m_loop;
    QTimer m_timeout;
    QSocketNotifier m_arrived;
    QSocketNotifier m_used; // the program has opened, closed or read its port
    QSocketNotifier m_room; // enabled while a write waits for it
    bool m_isStopped = false;
};

} // namespace TabletSimulation
