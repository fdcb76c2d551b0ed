// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Pieces/Piece.h"

namespace ReferenceHost {

/// Puts points together to pieces.
class PieceRecorder
{
public:
    /// Adds a point in centimetres. PointRole::End completes the piece; roles that are no part of
    /// a piece, and points that are not finite, change nothing.
    void add(const QPointF& point, PointRole role);

    /// Returns the pieces so far, the last of them unfinished when its end has not come.
    QVector<Piece> pieces() const;

private:
    QVector<Piece> m_finished;
    Piece m_current;
};

} // namespace ReferenceHost
