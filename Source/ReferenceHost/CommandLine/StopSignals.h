// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QSocketNotifier;

namespace ReferenceHost {

/// Turns Ctrl-C and requests to terminate (SIGINT, SIGTERM, SIGHUP) into a Qt signal, so that a
/// host can close its device first. While the object lives, SIGPIPE is ignored, so writing to a
/// closed pipe is an error like any other. One object at a time; POSIX only.
class StopSignals : public QObject
{
    Q_OBJECT

public:
    StopSignals();

    /// Restores the default handling of the signals.
    ~StopSignals() override;

signals:
    /// Emitted from the event loop for each such signal.
    void stopRequested();

private:
    void drain();

    QSocketNotifier* m_notifier; // a child object
};

} // namespace ReferenceHost
