// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

namespace MavSystem {

/// The characters that tablets send as text, in the order of their codes.
inline constexpr char firstPrintable = ' ';
inline constexpr char lastPrintable = '~';

inline constexpr bool isPrintable(char character)
{
    return character >= firstPrintable && character <= lastPrintable;
}

} // namespace MavSystem
