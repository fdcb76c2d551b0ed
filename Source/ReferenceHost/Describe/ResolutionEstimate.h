// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <QString>

namespace ReferenceHost {

/// The resolution that follows from a measured distance.
struct ResolutionEstimate
{
    int lines = 0; ///< 0 if no resolution in a description fits
    MavSystem::ResolutionUnit unit = MavSystem::LPI;
    bool isUsual = false; ///< a resolution that tablets have; otherwise the nearest whole number
    double measuredLines = 0; ///< the measured value, in lines per inch
};

/// Returns the resolution with which the driver turns \a counts into \a centimetres. A resolution
/// that tablets have is preferred if it agrees with the distance within half a per cent.
ResolutionEstimate estimateResolution(double counts, double centimetres);

} // namespace ReferenceHost
