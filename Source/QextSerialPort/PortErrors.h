// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

/// The texts of QextSerialPort::errorString() that are compared elsewhere.
namespace PortErrors {

inline constexpr char none[] = "No Error has occurred";
inline constexpr char locked[] = "Device is already locked";
inline constexpr char denied[] = "Permission denied";

} // namespace PortErrors
