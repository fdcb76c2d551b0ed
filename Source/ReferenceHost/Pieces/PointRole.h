// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>

#include <tl/expected.hpp>

namespace MavSystem {
class DescribedDriver;
class DigitalReport;
} // namespace MavSystem

namespace ReferenceHost {

/// What a report means to the hosts. The library knows only button numbers.
enum class PointRole {
    Corner,   ///< the outline turns here
    Curve,    ///< the outline passes here smoothly
    Hole,     ///< a punch hole
    End,      ///< the piece is complete; the point does not matter
    Notch,    ///< a point of the outline with a notch
    Other,    ///< a button without a meaning
    Closing,  ///< the library's last report: the device was closed
    Rejected, ///< the library could not decode what the tablet sent
};

/// The meaning of each button number.
using ButtonRoles = QMap<int, PointRole>;

/// Returns "corner", "curve", "hole", "end", "notch", "other", "closing" or "rejected".
QString roleName(PointRole role);

/// Returns the meaning of the buttons of \a driver: 1 corner, 2 curve, 3 hole, 4 end. With sixteen
/// buttons, 5 is a notch. The others have no meaning, not even 0, which is also the number of an
/// unknown code. "Lectra E92" numbers its four buttons from 2 to 5.
ButtonRoles standardButtonRoles(const MavSystem::DescribedDriver& driver);

/// Returns the map in a text such as "1=corner,2=curve,3=hole,4=end,5=notch". The error
/// names the wrong entry.
tl::expected<ButtonRoles, QString> parseButtonRoles(const QString& text);

/// Returns what \a report means.
PointRole roleOf(const MavSystem::DigitalReport& report, const ButtonRoles& roles);

} // namespace ReferenceHost
