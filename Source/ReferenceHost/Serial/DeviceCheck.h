// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DescribedDriver.h"

#include <QString>

namespace ReferenceHost {

/// Selects the driver and the device, a serial port or "File:". Returns why they cannot be used and
/// what to do about it, or an empty text if they can. Opens the port for a moment.
QString deviceProblem(const MavSystem::DescribedDriver& driver, const QString& device);

} // namespace ReferenceHost
