// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

namespace MavSystem {

/// Returns whether the driver's m_host_mode, now, puts the pen input into its internal mode.
bool hostModeIsInternal();

} // namespace MavSystem
