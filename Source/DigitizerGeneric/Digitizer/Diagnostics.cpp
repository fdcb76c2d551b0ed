// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Diagnostics.h"

namespace MavSystem {

// QtFatalMsg as the lowest level enabled by default: nothing is printed unless a rule asks for it.
Q_LOGGING_CATEGORY(lcDescriptions, "mavsystem.descriptions", QtFatalMsg)
Q_LOGGING_CATEGORY(lcSerial, "mavsystem.serial", QtFatalMsg)
Q_LOGGING_CATEGORY(lcPen, "mavsystem.pen", QtFatalMsg)

} // namespace MavSystem
