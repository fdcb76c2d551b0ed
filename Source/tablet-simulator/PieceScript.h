// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Pieces/PointRole.h"
#include "tablet-simulator/ReportEncoder.h"

#include <QString>
#include <QVector>

#include <tl/expected.hpp>

namespace TabletSimulation {

/// Returns the presses of a script. Each line is "x y button", in centimetres; "#" starts a
/// comment. The error begins with "line 7: ".
tl::expected<QVector<Press>, QString> readScript(const QByteArray& content);

/// Returns a bodice front of about 25 by 46 centimetres, traced once around: corners, curve points
/// along the armhole and the neckline, notches, the dart point as a punch hole, end of piece.
/// Points whose meaning no button has in \a roles are left out.
QVector<Press> bodiceFront(const ReferenceHost::ButtonRoles& roles);

} // namespace TabletSimulation
