// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QextSerialPort/qextserialport.h"

#include <QElapsedTimer>

#include <tl/expected.hpp>

namespace ReferenceHost {

/// A serial port without the driver: every byte, with its time.
class SerialLine : public QObject
{
    Q_OBJECT

public:
    SerialLine();

    /// Opens \a path and discards what arrived before, or returns why that failed.
    tl::expected<void, QString> open(const QString& path, const PortSettings& settings);

    /// Opens the same port again after ended(). Returns whether that succeeded.
    bool reopen();

    void write(const QByteArray& bytes);

    /// Milliseconds since open().
    qint64 elapsed() const { return m_clock.elapsed(); }

signals:
    void received(const QByteArray& bytes);

    /// The port is gone, for example because the cable was pulled. Emitted once. No reason is
    /// given: after a hang-up, the system's is only the last error of many.
    void ended();

private:
    QextSerialPort m_port;
    QElapsedTimer m_clock;
};

} // namespace ReferenceHost
