// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ReferenceHost {

/// Selects the driver and the device, a serial port or "File:", and returns why they cannot be used
/// and what to do; an empty text when they can. A port is opened for a moment.
QString deviceProblem(const QString& driver, const QString& device);

} // namespace ReferenceHost
