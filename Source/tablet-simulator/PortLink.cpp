// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "tablet-simulator/PortLink.h"

#include <QFile>
#include <QFileInfo>

namespace TabletSimulation {

tl::expected<void, QString> PortLink::create(const QString& link, const QString& port)
{
    const QFileInfo taken(link);
    if (taken.exists() && !taken.isSymLink())
        return tl::unexpected(
            QStringLiteral(
                "--link: %1 already exists and is not a symbolic link; choose another path")
                .arg(link));
    QFile::remove(link);
    QFile target(port);
    if (!target.link(link))
        return tl::unexpected(
            QStringLiteral("cannot create the link %1: %2").arg(link, target.errorString()));
    m_port = port;
    m_link = link;
    return {};
}

PortLink::~PortLink()
{
    // Another simulator may have replaced the link meanwhile.
    if (!m_link.isEmpty() && QFileInfo(m_link).symLinkTarget() == m_port)
        QFile::remove(m_link);
}

} // namespace TabletSimulation
