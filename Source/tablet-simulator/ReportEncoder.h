// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"
#include "MavGeo/GeoPoint2D.h"

#include <QByteArray>
#include <QString>

#include <tl/expected.hpp>

namespace TabletSimulation {

/// What a tablet is to send: a point in centimetres and the button number that the driver is to
/// deliver.
struct Press
{
    MavSystem::GeoPoint2D point;
    int button = 0;
};

/// Returns the report that the driver library decodes to \a press with \a description. The point is
/// rounded to the nearest step of the resolution. The error names the point and the limit.
tl::expected<QByteArray, QString> encodeReport(const MavSystem::DigitizerArgument& description,
                                               const Press& press);

/// The same in the fixed layout of the "Lectra E92": positive coordinates in steps of 0.01 cm,
/// buttons 2 to 5, a carriage return and a line feed at the end.
tl::expected<QByteArray, QString> encodeLectraE92Report(const Press& press);

} // namespace TabletSimulation
