// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "tablet-simulator/PortLink.h"

#include "ReferenceHost/CommandLine/Command.h"

#include <QFile>
#include <QFileInfo>

using namespace ReferenceHost;

namespace TabletSimulation {

PortLink::PortLink(const QString& port, const QString& link) : m_port(port)
{
    if (link.isEmpty())
        return;
    const QFileInfo taken(link);
    if (taken.exists() && !taken.isSymLink())
        throw CommandError(QStringLiteral("%1 exists and is not a symbolic link").arg(link));
    QFile::remove(link);
    if (!QFile::link(port, link))
        throw CommandError(QStringLiteral("cannot create the link %1").arg(link));
    m_link = link;
}

PortLink::~PortLink()
{
    // Another simulator may have replaced the link meanwhile.
    if (!m_link.isEmpty() && QFileInfo(m_link).symLinkTarget() == m_port)
        QFile::remove(m_link);
}

} // namespace TabletSimulation
