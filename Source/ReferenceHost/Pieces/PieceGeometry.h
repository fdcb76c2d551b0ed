// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Pieces/Piece.h"

#include <QLineF>
#include <QPainterPath>
#include <QVector>

namespace ReferenceHost {

/// The geometry of a traced piece as a person would draw it. Lengths are in centimetres.

/// Returns the outline: a straight line between two corners, or a smooth curve if there are curve
/// points between them. Closed if the piece is finished. A point traced twice in a row counts once.
QPainterPath outlineOf(const Piece& piece);

/// Returns the notches: lines of \a length from the outline into the piece, at right angles to it.
QVector<QLineF> notchesOf(const Piece& piece, double length);

/// Returns the place for a piece's label: the centre of the largest free area in the outline, or
/// the centre of its points if there is none.
QPointF labelPlaceOf(const Piece& piece);

} // namespace ReferenceHost
