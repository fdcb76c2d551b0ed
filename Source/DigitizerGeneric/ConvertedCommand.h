// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

/// The parts of a converted command of the digital pen: code, x, separator, y, line feed, carriage
/// return, in this order.
namespace MavSystem {

inline constexpr char IDLE_CODE[] = "";
inline constexpr char LINE_CODE[] = "1";
inline constexpr char CURVE_CODE[] = "2";
inline constexpr char PUNCH_HOLE_CODE[] = "3";
inline constexpr char TERMINATE_CODE[] = "4";
inline constexpr char COORDINATE_SEPARATOR[] = " ";
inline constexpr char LINE_FEED[] = "\n";
inline constexpr char CARRIAGE_RETURN[] = "\r";

} // namespace MavSystem
