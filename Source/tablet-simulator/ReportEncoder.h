// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"
#include "MavGeo/GeoPoint2D.h"

#include <QByteArray>
#include <QString>

namespace TabletSimulation {

/// What a tablet is told to send: a point in centimetres and the number that its report is to have.
struct Press
{
    MavSystem::GeoPoint2D point;
    int button = 0;
};

/// The bytes of a report, or why there are none.
struct EncodedReport
{
    QByteArray bytes;
    QString error; ///< names the point and the limit; empty when there are bytes
};

/// Returns the report that the driver library decodes to \a press by \a description, its point
/// rounded to the nearest step of the resolution.
EncodedReport encodeReport(const MavSystem::DigitizerArgument& description, const Press& press);

/// The same in the fixed layout of the "Lectra E92": positive coordinates in steps of 0.01, buttons
/// 2 to 5, with a carriage return and a line feed behind it.
EncodedReport encodeLectraE92Report(const Press& press);

} // namespace TabletSimulation
