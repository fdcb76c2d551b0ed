// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace TabletSimulation {

/// A symbolic link to a port, removed when the object is destroyed.
class PortLink
{
public:
    /// Creates the link \a link to \a port and replaces an existing link. Does nothing if \a link
    /// is empty. Throws a CommandError if the name belongs to anything but a link, or if the link
    /// cannot be created.
    PortLink(const QString& port, const QString& link);
    ~PortLink();
    PortLink(const PortLink&) = delete;
    PortLink& operator=(const PortLink&) = delete;

    /// Returns the path to open: that of the link, or that of the port without a link.
    QString path() const { return m_link.isEmpty() ? m_port : m_link; }

private:
    QString m_port;
    QString m_link;
};

} // namespace TabletSimulation
