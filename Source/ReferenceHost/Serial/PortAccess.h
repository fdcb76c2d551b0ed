// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ReferenceHost {

/// Returns why \a device cannot be used as a serial port and what to do about it, or an empty text.
/// Opens it for a moment: only that shows whether it is a terminal, and whether it is free.
QString portProblem(const QString& device);

} // namespace ReferenceHost
