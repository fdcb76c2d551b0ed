// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/FatalError.h"

namespace MavSystem {

FatalError::FatalError(const QString& message) : std::runtime_error(message.toStdString()) {}

} // namespace MavSystem
