// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

namespace MavSystem {

/// A point in the plane. The library delivers both coordinates in centimetres.
class GeoPoint2D
{
public:
    GeoPoint2D() = default;
    GeoPoint2D(double x, double y) : m_x(x), m_y(y) {}

    double x() const { return m_x; }
    double y() const { return m_y; }

private:
    double m_x = 0.0;
    double m_y = 0.0;
};

} // namespace MavSystem
