// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "MavGeo/GeoPoint2D.h"

namespace MavSystem {

/// The null point of the process, the coordinate of a closing report: both coordinates the smallest
/// positive normal double.
const GeoPoint2D& closingPoint();

} // namespace MavSystem
