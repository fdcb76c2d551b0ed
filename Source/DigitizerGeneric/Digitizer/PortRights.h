// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace MavSystem {

/// The rights on a device file, in names.
struct PortRights
{
    QString path;
    QString owner;
    QString group;
    unsigned mode = 0; ///< permission bits
};

/// Returns the path of the port that a user may also name without "/dev/".
QString portPath(const QString& device);

/// Returns why this user may not use \a device as a serial port and what to do, or an empty text.
/// Does not open it.
QString rightsProblem(const QString& device);

/// Returns what a user can do to be allowed to use the port: which group to join and how, or that
/// its rights have to be changed.
QString rightsAdvice(const PortRights& rights);

} // namespace MavSystem
