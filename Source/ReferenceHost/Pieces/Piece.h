// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Pieces/PointRole.h"

#include <QPointF>
#include <QVector>

namespace ReferenceHost {

/// A traced garment piece. Coordinates are centimetres, y upwards.
struct Piece
{
    struct OutlinePoint
    {
        QPointF point;
        PointRole role; ///< Corner, Curve or Notch
    };

    QVector<OutlinePoint> outline; ///< in the order traced
    QVector<QPointF> holes;
    bool finished = false; ///< the outline is closed; otherwise tracing stopped too early

    bool isEmpty() const { return outline.isEmpty() && holes.isEmpty(); }
};

} // namespace ReferenceHost
