// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>

namespace MavSystem {
class DescribedDriver;
class DigitalReport;
} // namespace MavSystem

namespace ReferenceHost {

/// What a report means to the hosts. The library knows button numbers only.
enum class PointRole {
    Corner,   ///< the outline turns here
    Curve,    ///< the outline passes here smoothly
    Hole,     ///< a punch hole
    End,      ///< the piece is complete; where it was pressed does not matter
    Notch,    ///< a point of the outline with a notch
    Other,    ///< a button without a meaning
    Closing,  ///< the library's last report: the device was closed
    Rejected, ///< the library could not decode what the tablet sent
};

/// The meaning of each button number.
using ButtonRoles = QMap<int, PointRole>;

/// Returns "corner", "curve", "hole", "end", "notch", "other", "closing" or "rejected".
QString roleName(PointRole role);

/// Returns the meaning of the buttons of \a driver: 1 corner, 2 curve, 3 hole, 4 end. A table with
/// sixteen buttons has 5 for a notch too; the others, 0 among them, have none, since 0 is also what
/// an unknown code arrives as. "Lectra E92" numbers its four buttons from 2 to 5.
ButtonRoles standardButtonRoles(const MavSystem::DescribedDriver& driver);

/// Returns the map that \a text gives in the manner "1=corner,2=curve,3=hole,4=end,5=notch".
/// Throws a CommandError with ExitUsage that names the wrong part.
ButtonRoles parseButtonRoles(const QString& text);

/// Returns what \a report means.
PointRole roleOf(const MavSystem::DigitalReport& report, const ButtonRoles& roles);

} // namespace ReferenceHost
