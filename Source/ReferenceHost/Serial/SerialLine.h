// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QextSerialPort/qextserialport.h"

#include <QElapsedTimer>

namespace ReferenceHost {

/// A serial port as it is, without the driver: every byte, with its time.
class SerialLine : public QObject
{
    Q_OBJECT

public:
    SerialLine();

    /// Opens \a path and discards what arrived before. Throws a CommandError.
    void open(const QString& path, const PortSettings& settings);

    /// Milliseconds since open().
    qint64 elapsed() const { return m_clock.elapsed(); }

signals:
    void received(const QByteArray& bytes);

    /// The port is gone, for instance because the cable was pulled; emitted once. The system's
    /// reason is not told: after a hang-up it is whatever error came last.
    void ended();

private:
    QextSerialPort m_port;
    QElapsedTimer m_clock;
};

} // namespace ReferenceHost
