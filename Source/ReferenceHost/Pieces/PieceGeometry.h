// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Pieces/Piece.h"

#include <QLineF>
#include <QPainterPath>
#include <QVector>

namespace ReferenceHost {

/// How a person draws a traced piece. Lengths are centimetres.

/// Returns the outline: straight lines between corners, and where curve points lie between two
/// corners a smooth curve through all points there. Closed when the piece is finished. A point
/// traced twice in a row counts once.
QPainterPath outlineOf(const Piece& piece);

/// Returns the notches: lines of \a length from the outline into the piece, at right angles to it.
QVector<QLineF> notchesOf(const Piece& piece, double length);

/// Returns the place for a piece's label: the middle of the widest free room in its outline, or
/// the middle of its points when it has no room inside.
QPointF labelPlaceOf(const Piece& piece);

} // namespace ReferenceHost
