// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Serial/SerialLine.h"

#include "DigitizerGeneric/Digitizer/PortRights.h"
#include "QextSerialPort/ApplySettings.h"

namespace ReferenceHost {

SerialLine::SerialLine()
{
    connect(&m_port, &QIODevice::readyRead, this, [this] { emit received(m_port.readAll()); });
    connect(&m_port, &QIODevice::readChannelFinished, this, &SerialLine::ended);
}

tl::expected<void, QString> SerialLine::open(const QString& path, const PortSettings& settings)
{
    m_port.setPortName(path);
    applySettings(settings, m_port);
    if (!reopen())
        return tl::unexpected(MavSystem::openProblem(path, m_port.errorString()));
    m_clock.start();
    return {};
}

bool SerialLine::reopen()
{
    m_port.close();
    // For writing as well, since only that discards what arrived before.
    return m_port.open(QIODevice::ReadWrite);
}

void SerialLine::write(const QByteArray& bytes)
{
    m_port.write(bytes);
}

} // namespace ReferenceHost
