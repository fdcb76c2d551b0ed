// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace MavSystem {

/// The permissions of a device file, with the names of its owner and group.
struct PortRights
{
    QString path;
    QString owner;
    QString group;
    unsigned mode = 0; ///< permission bits
};

/// Returns the path of the port \a device, which may be given without "/dev/".
QString portPath(const QString& device);

/// Returns why this user may not use \a device as a serial port and what to do about it, or an
/// empty text. Does not open it.
QString rightsProblem(const QString& device);

/// Returns the sentence for a \a device that could not be opened, although its rights are
/// sufficient. \a answer is the text of the port's error.
QString openProblem(const QString& device, const QString& answer);

/// Returns what a user can do to get access to the port: which group to join and how, or that its
/// permissions must be changed.
QString rightsAdvice(const PortRights& rights);

} // namespace MavSystem
