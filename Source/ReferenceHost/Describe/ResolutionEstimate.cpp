// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Describe/ResolutionEstimate.h"

#include "DigitizerGeneric/Digitizer/Resolution.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

constexpr double tolerance = 0.005;

// Measuring by hand cannot tell resolutions apart that are closer than this: 2540 lines per inch
// and 100 per millimetre differ by 0.0125 %. The one listed first is taken.
constexpr double indistinguishable = 0.0005;

struct UsualResolution
{
    int lines;
    ResolutionUnit unit;

    double countsPerCentimetre() const { return Resolution::countsPerCentimetre(lines, unit); }
};

constexpr UsualResolution usual[] = {
    {100, LPI},  {200, LPI},  {400, LPI},  {500, LPI},  {508, LPI},  {1000, LPI},
    {1016, LPI}, {1270, LPI}, {2000, LPI}, {2032, LPI}, {2540, LPI}, {1, LPMM},
    {10, LPMM},  {20, LPMM},  {25, LPMM},  {40, LPMM},  {50, LPMM},  {100, LPMM},
};

ResolutionEstimate nearestWhole(double linesPerInch)
{
    // 40 lines per inch is a special case of the driver, which takes it as 40 lines per millimetre.
    const double whole = std::round(linesPerInch);
    if (whole < 1 || whole > Resolution::mostLines || Resolution::isFortyLines(whole, LPI))
        return {};
    return {int(whole), LPI, false, linesPerInch};
}

} // namespace

ResolutionEstimate estimateResolution(double counts, double centimetres)
{
    const double countsPerCentimetre = counts / centimetres;
    const auto errorOf = [countsPerCentimetre](const UsualResolution& resolution) {
        return std::abs(countsPerCentimetre / resolution.countsPerCentimetre() - 1.0);
    };
    double smallest = std::numeric_limits<double>::infinity();
    for (const UsualResolution& resolution : usual)
        smallest = std::min(smallest, errorOf(resolution));
    const double linesPerInch = countsPerCentimetre * Resolution::centimetresPerInch;
    if (!(smallest <= tolerance))
        return nearestWhole(linesPerInch);
    const auto best =
        std::find_if(std::begin(usual), std::end(usual), [&](const UsualResolution& other) {
            return errorOf(other) <= smallest + indistinguishable;
        });
    return {best->lines, best->unit, true, linesPerInch};
}

} // namespace ReferenceHost
