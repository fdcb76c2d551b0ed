// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <tl/expected.hpp>

namespace TabletSimulation {

/// A symbolic link to a port, removed when the object is destroyed.
class PortLink
{
public:
    PortLink() = default;
    ~PortLink();
    PortLink(const PortLink&) = delete;
    PortLink& operator=(const PortLink&) = delete;

    /// Creates the link \a link to \a port and replaces an existing link. The error says why there
    /// is none: something else has that name, or the link cannot be created.
    tl::expected<void, QString> create(const QString& link, const QString& port);

private:
    QString m_port;
    QString m_link;
};

} // namespace TabletSimulation
