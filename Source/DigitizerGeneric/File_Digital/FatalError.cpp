// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/FatalError.h"

namespace MavSystem {

// NOLINTNEXTLINE(bugprone-throw-keyword-missing): a base, not an exception of its own
FatalError::FatalError(const QString& message) : std::runtime_error(message.toStdString()) {}

} // namespace MavSystem
