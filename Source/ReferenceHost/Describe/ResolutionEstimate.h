// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <QString>

namespace ReferenceHost {

/// The resolution that a measured distance leads to.
struct ResolutionEstimate
{
    int lines = 0; ///< 0 when no resolution of a description fits
    MavSystem::ResolutionUnit unit = MavSystem::LPI;
    bool isUsual = false;     ///< one that tablets have; otherwise the nearest whole number
    double measuredLines = 0; ///< what the distance gave, in lines per inch
};

/// Returns the resolution with which \a counts of the tablet are \a centimetres for the driver.
/// One that tablets have is preferred when the distance agrees with it within half a per cent.
ResolutionEstimate estimateResolution(double counts, double centimetres);

/// Returns "1000 LPI" or the like.
QString resolutionText(int lines, MavSystem::ResolutionUnit unit);

} // namespace ReferenceHost
