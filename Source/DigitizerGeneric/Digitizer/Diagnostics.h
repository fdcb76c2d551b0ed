// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>

// Messages that the library must not show to the user go to these categories. They are off by
// default; QT_LOGGING_RULES="mavsystem.*=true" turns them on.
namespace MavSystem {

Q_DECLARE_LOGGING_CATEGORY(lcDescriptions) // mavsystem.descriptions
Q_DECLARE_LOGGING_CATEGORY(lcSerial)       // mavsystem.serial
Q_DECLARE_LOGGING_CATEGORY(lcPen)          // mavsystem.pen

} // namespace MavSystem
