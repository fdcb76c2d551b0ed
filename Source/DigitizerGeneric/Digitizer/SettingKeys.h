// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

/// The keys of the host's QSettings that the driver reads.
namespace MavSystem::SettingKeys {

inline constexpr char driver[] = "driver";
inline constexpr char device[] = "device";
inline constexpr char extended4Buttons[] = "extended4Buttons";
inline constexpr char digitizePiecesView[] = "digitizePiecesView";
inline constexpr char viewDigizedPoints[] = "viewDigizedPoints";
inline constexpr char highPrecision[] = "highPrecision";
inline constexpr char penDirectory[] = "digitizer_file_directory";

inline constexpr const char* all[] = {
    driver,        device,      extended4Buttons, digitizePiecesView, viewDigizedPoints,
    highPrecision, penDirectory};

} // namespace MavSystem::SettingKeys
