// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitalReport.h"

#include <QByteArray>

/// Pen files that carry their number in each of their points.
namespace NumberedPenFile {

inline constexpr int largest = 999999;
inline constexpr int points = 7;

/// Returns the content of file \a number, which is 0 to largest: three corners, three curve points,
/// the end of the piece.
QByteArray contentOf(int number);

/// Returns what the host must get for a point of file \a number; \a point is 0 to points - 1.
MavSystem::DigitalReport reportOf(int number, int point);

/// Returns the number of the file that begins with \a report, or -1 when none does.
int numberOf(const MavSystem::DigitalReport& report);

} // namespace NumberedPenFile
