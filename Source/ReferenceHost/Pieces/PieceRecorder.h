// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Pieces/Piece.h"

namespace ReferenceHost {

/// Collects points into pieces.
class PieceRecorder
{
public:
    /// Adds a point in centimetres. PointRole::End completes the piece. Roles that do not belong to
    /// a piece, and points that are not finite, change nothing.
    void add(const QPointF& point, PointRole role);

    /// Returns the pieces so far. The last one may be unfinished.
    QVector<Piece> pieces() const;

private:
    QVector<Piece> m_finished;
    Piece m_current;
};

} // namespace ReferenceHost
