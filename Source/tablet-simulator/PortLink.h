// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace TabletSimulation {

/// A symbolic link to a port, removed when the object goes.
class PortLink
{
public:
    /// Links \a link to \a port, in place of a link that is there; an empty \a link makes none.
    /// Throws CommandError when the name is taken by anything but a link or cannot be made.
    PortLink(const QString& port, const QString& link);
    ~PortLink();
    PortLink(const PortLink&) = delete;
    PortLink& operator=(const PortLink&) = delete;

    /// Returns the path to open: the link's, or the port's own without a link.
    QString path() const { return m_link.isEmpty() ? m_port : m_link; }

private:
    QString m_port;
    QString m_link;
};

} // namespace TabletSimulation
