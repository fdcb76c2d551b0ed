// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Pieces/PieceRecorder.h"

#include <cmath>
#include <utility>

namespace ReferenceHost {

void PieceRecorder::add(const QPointF& point, PointRole role)
{
    // A description without a resolution yields such points. The end of a piece needs no place.
    if (role != PointRole::End && !(std::isfinite(point.x()) && std::isfinite(point.y())))
        return;
    switch (role) {
    case PointRole::Corner:
    case PointRole::Curve:
    case PointRole::Notch:
        m_current.outline.append({point, role});
        break;
    case PointRole::Hole:
        m_current.holes.append(point);
        break;
    case PointRole::End:
        // A second press at the end of a piece does not make another piece.
        if (!m_current.isEmpty()) {
            m_current.finished = true;
            m_finished.append(std::exchange(m_current, Piece()));
        }
        break;
    case PointRole::Other:
    case PointRole::Closing:
    case PointRole::Rejected:
        break;
    }
}

QVector<Piece> PieceRecorder::pieces() const
{
    QVector<Piece> pieces = m_finished;
    if (!m_current.isEmpty())
        pieces.append(m_current);
    return pieces;
}

} // namespace ReferenceHost
