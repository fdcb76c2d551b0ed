// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>

// What the library must keep silent about goes to these categories. They are off by default;
// QT_LOGGING_RULES="mavsystem.*=true" turns them on.
namespace MavSystem {

Q_DECLARE_LOGGING_CATEGORY(lcDescriptions) // mavsystem.descriptions
Q_DECLARE_LOGGING_CATEGORY(lcSerial)       // mavsystem.serial
Q_DECLARE_LOGGING_CATEGORY(lcPen)          // mavsystem.pen

} // namespace MavSystem
