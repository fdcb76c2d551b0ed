// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/DriverList.h"
#include "ReferenceHost/RecordedSession.h"
#include "tablet-simulator/PseudoTerminal.h"

#include <QElapsedTimer>
#include <QObject>

class QextSerialPort;

/// Records what passes on a line: it opens the tablet's port itself and offers the driver library a
/// pseudo-terminal instead, between which it passes everything on in both directions.
class LineTap : public QObject
{
    Q_OBJECT

public:
    /// Opens \a device with the settings of \a driver and records into the new file \a path. Throws
    /// a CommandError when either cannot be opened.
    LineTap(const Driver& driver, const QString& device, const QString& path);
    ~LineTap() override;

    /// Returns the path of the port for the driver library.
    QString port() const { return m_terminal.path(); }

    /// Returns why the recording is not complete, or an empty text.
    QString problem() const { return m_writer.errorString(); }

private:
    void passToDriver();
    void passToTablet();

    PseudoTerminal m_terminal;
    QextSerialPort* m_port; // a child object
    SessionWriter m_writer;
    QElapsedTimer m_clock;
};
