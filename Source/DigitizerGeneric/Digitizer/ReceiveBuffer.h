// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/ReportLayout.h"

#include <cstddef>

namespace MavSystem {

/// The last chunk read from a port, zero-terminated; one buffer for the process, initially zero.
/// After a shorter chunk, the tail of a longer one remains behind the terminator.
inline constexpr int receiveBufferCharacters = ReportLayout::maximumCharacters;
char* receiveBuffer();

/// Copies \a count characters to the buffer, at most receiveBufferCharacters.
void storeReportText(const char* characters, std::size_t count);

} // namespace MavSystem
