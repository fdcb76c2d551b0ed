// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <QString>

#include <limits>

/// The resolution of a tablet: what its counts are in centimetres.
namespace MavSystem::Resolution {

/// A description's number is read as one of 16 bits.
inline constexpr int mostLines = std::numeric_limits<short>::max();

/// The inch of the drawing system, which existing drawings were digitized with; it is not 2.54.
inline constexpr double centimetresPerInch = 2.5396825396825;

/// The makers' factor of the tables with 40 lines per inch; it is not the quotient of the rule for
/// all others, but that of 40 lines per millimetre.
inline constexpr double fortyLineCentimetres = 0.0025;

inline constexpr bool isFortyLines(double lines, ResolutionUnit unit)
{
    return unit == LPI && lines == 40.0;
}

/// Returns \a counts in centimetres.
inline constexpr double centimetres(double counts, double lines, ResolutionUnit unit)
{
    if (unit != LPI)
        return counts / lines / 10.0;
    return isFortyLines(lines, unit) ? counts * fortyLineCentimetres
                                     : counts * centimetresPerInch / lines;
}

/// Returns the counts of one centimetre.
inline constexpr double countsPerCentimetre(double lines, ResolutionUnit unit)
{
    if (unit != LPI)
        return lines * 10.0;
    return isFortyLines(lines, unit) ? 1.0 / fortyLineCentimetres : lines / centimetresPerInch;
}

/// Returns the unit as a description file writes it: "LPI" or "LPMM".
QString unitText(ResolutionUnit unit);

/// Returns the unit that a description file means with \a text; everything but "LPI" is LPMM.
ResolutionUnit unitOf(const QString& text);

/// Returns the resolution in words: "1000 LPI".
QString text(double lines, ResolutionUnit unit);

} // namespace MavSystem::Resolution
