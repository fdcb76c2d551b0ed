// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/ReportLayout.h"

#include <cstddef>

namespace MavSystem {

/// The text of the last chunk read from a port, one for the process: zero-terminated, zero at
/// start. A shorter chunk leaves the tail of a longer one behind its terminator.
inline constexpr int receiveBufferCharacters = ReportLayout::maximumCharacters;
char* receiveBuffer();

/// Puts \a count characters, which are no more than receiveBufferCharacters, into the buffer.
void storeReportText(const char* characters, std::size_t count);

} // namespace MavSystem
