// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/ReportLayout.h"

namespace MavSystem {

/// The text of the last chunk read from a port, one for the process: zero-terminated, zero at
/// start. A shorter chunk leaves the tail of a longer one behind its terminator.
inline constexpr int receiveBufferCharacters = ReportLayout::maximumCharacters;
char* receiveBuffer();

} // namespace MavSystem
