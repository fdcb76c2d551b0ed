// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QSocketNotifier;

namespace ReferenceHost {

/// Turns Ctrl-C and a polite request to end (SIGINT, SIGTERM, SIGHUP) into a Qt signal, so that a
/// host can close its device first. While an object lives, SIGPIPE is ignored: writing to a reader
/// that has gone is then an error like any other. One at a time; POSIX only.
class StopSignals : public QObject
{
    Q_OBJECT

public:
    StopSignals();

    /// Brings back what was there before.
    ~StopSignals() override;

signals:
    /// Emitted from the event loop, at every such signal.
    void stopRequested();

private:
    void drain();

    QSocketNotifier* m_notifier; // a child object
};

} // namespace ReferenceHost
