// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

namespace ReferenceHost {

/// How often a port that was lost is tried again.
inline constexpr int portRetryMilliseconds = 500;

} // namespace ReferenceHost
