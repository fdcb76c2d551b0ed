// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitalReport.h"

#include <QString>

/// The "Lectra E92", the only tablet whose reports have a built-in layout.
namespace MavSystem::LectraE92 {

/// The characters of a report that are read.
inline constexpr int characters = 23;

/// The four buttons are numbered from 2, and have the codes from 31 on.
inline constexpr int firstButton = 2;
inline constexpr int buttons = 4;
inline constexpr int firstCode = 31;

/// Returns whether \a driver is its name, in any letter case.
bool isName(const QString& driver);

/// Returns the report decoded from \a text, or button number -1 at (0, 0) if it is rejected. \a
/// text holds at least as many characters as are read.
DigitalReport reportOf(const char* text);

} // namespace MavSystem::LectraE92
