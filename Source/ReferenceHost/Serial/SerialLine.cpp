// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Serial/SerialLine.h"

#include "ReferenceHost/Descriptions/LineSettings.h"

namespace ReferenceHost {

SerialLine::SerialLine()
{
    connect(&m_port, &QIODevice::readyRead, this, [this] { emit received(m_port.readAll()); });
    connect(&m_port, &QIODevice::readChannelFinished, this, &SerialLine::ended);
}

tl::expected<void, QString> SerialLine::open(const QString& path, const PortSettings& settings)
{
    m_port.setPortName(path);
    LineSettings::apply(settings, m_port);
    // For writing as well, since only that discards what arrived before.
    if (!m_port.open(QIODevice::ReadWrite))
        return tl::unexpected(QStringLiteral("cannot open %1: %2").arg(path, m_port.errorString()));
    m_clock.start();
    return {};
}

} // namespace ReferenceHost
