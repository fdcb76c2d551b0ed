// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Pieces/PieceGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ReferenceHost {

namespace {

using Points = QVector<Piece::OutlinePoint>;

/// A part of the outline without a corner inside.
struct Run
{
    Points points;
    bool closed = false; ///< an outline without any corner

    bool isCurved() const
    {
        return std::any_of(points.begin(), points.end(), [](const Piece::OutlinePoint& point) {
            return point.role == PointRole::Curve;
        });
    }
};

double lengthOf(const QPointF& vector)
{
    return std::hypot(vector.x(), vector.y());
}

Points withoutRepetitions(const Piece& piece)
{
    Points points = piece.outline;
    const auto samePlace = [](const Piece::OutlinePoint& left, const Piece::OutlinePoint& right) {
        return left.point == right.point;
    };
    points.erase(std::unique(points.begin(), points.end(), samePlace), points.end());
    while (piece.finished && points.size() > 1 && samePlace(points.first(), points.last()))
        points.removeLast();
    return points;
}

bool isCorner(const Piece::OutlinePoint& point)
{
    return point.role == PointRole::Corner;
}

QVector<Run> splitAtCorners(const Points& points)
{
    QVector<Run> runs;
    Run run;
    for (const Piece::OutlinePoint& point : points) {
        run.points.append(point);
        if (isCorner(point) && run.points.size() > 1) {
            runs.append(run);
            run.points = {point};
        }
    }
    if (run.points.size() > 1)
        runs.append(run);
    return runs;
}

QVector<Run> runsOf(const Piece& piece)
{
    Points points = withoutRepetitions(piece);
    if (points.size() < 2)
        return {};
    if (!piece.finished)
        return splitAtCorners(points);
    const auto corner = std::find_if(points.begin(), points.end(), isCorner);
    if (corner == points.end())
        return {Run{points, true}};
    std::rotate(points.begin(), corner, points.end());
    points.append(points.first());
    return splitAtCorners(points);
}

// The direction of the curve. Weighted by the distances to both neighbours: people do not trace in
// even steps, and an unweighted mean would bulge where the steps differ.
QPointF slopeBetween(const QPointF& before, const QPointF& here, const QPointF& after)
{
    const double in = lengthOf(here - before);
    const double out = lengthOf(after - here);
    return ((here - before) / in * out + (after - here) / out * in) / (in + out);
}

QPointF slopeAtEnd(const QPointF& end, const QPointF& neighbour, const QPointF& neighbourSlope)
{
    const QPointF chord = (neighbour - end) / lengthOf(neighbour - end);
    return chord * 1.5 - neighbourSlope * 0.5;
}

QVector<QPointF> slopesOf(const Run& run)
{
    const Points& points = run.points;
    const int count = points.size();
    QVector<QPointF> slopes(count);
    const auto at = [&](int index) { return points.at((index + count) % count).point; };
    if (count == 2) {
        const QPointF chord = at(1) - at(0);
        slopes.fill(chord / lengthOf(chord));
        return slopes;
    }
    for (int index = run.closed ? 0 : 1; index < (run.closed ? count : count - 1); ++index)
        slopes[index] = slopeBetween(at(index - 1), at(index), at(index + 1));
    if (!run.closed) {
        slopes.first() = slopeAtEnd(at(0), at(1), slopes.at(1));
        slopes.last() = -slopeAtEnd(at(count - 1), at(count - 2), -slopes.at(count - 2));
    }
    return slopes;
}

void appendCurve(QPainterPath& path, const Run& run)
{
    const QVector<QPointF> slopes = slopesOf(run);
    const int count = run.points.size();
    for (int index = 0; index < (run.closed ? count : count - 1); ++index) {
        const int next = (index + 1) % count;
        const QPointF start = run.points.at(index).point;
        const QPointF end = run.points.at(next).point;
        const double third = lengthOf(end - start) / 3.0;
        path.cubicTo(start + slopes.at(index) * third, end - slopes.at(next) * third, end);
    }
}

double distanceToSegment(const QPointF& place, const QPointF& start, const QPointF& end)
{
    const QPointF direction = end - start;
    const double squaredLength = QPointF::dotProduct(direction, direction);
    const double along =
        squaredLength > 0.0 ? QPointF::dotProduct(place - start, direction) / squaredLength : 0.0;
    return lengthOf(place - start - direction * qBound(0.0, along, 1.0));
}

double roomAround(const QPointF& place, const QPolygonF& outline, const QVector<QPointF>& holes)
{
    double room = std::numeric_limits<double>::max();
    for (int index = 1; index < outline.size(); ++index)
        room = std::min(room, distanceToSegment(place, outline.at(index - 1), outline.at(index)));
    for (const QPointF& hole : holes)
        room = std::min(room, lengthOf(place - hole));
    return room;
}

double signedArea(const Piece& piece)
{
    double doubled = 0.0;
    const int count = piece.outline.size();
    for (int index = 0; index < count; ++index) {
        const QPointF here = piece.outline.at(index).point;
        const QPointF next = piece.outline.at((index + 1) % count).point;
        doubled += here.x() * next.y() - next.x() * here.y();
    }
    return doubled / 2.0;
}

} // namespace

QPainterPath outlineOf(const Piece& piece)
{
    QPainterPath path;
    for (const Run& run : runsOf(piece)) {
        if (path.isEmpty())
            path.moveTo(run.points.first().point);
        if (run.isCurved()) {
            appendCurve(path, run);
            continue;
        }
        for (const Piece::OutlinePoint& point : run.points.mid(1))
            path.lineTo(point.point);
    }
    if (piece.finished && !path.isEmpty())
        path.closeSubpath();
    return path;
}

QVector<QLineF> notchesOf(const Piece& piece, double length)
{
    const double inwards = signedArea(piece) >= 0.0 ? length : -length;
    QVector<QLineF> notches;
    for (const Run& run : runsOf(piece)) {
        const QVector<QPointF> slopes = slopesOf(run);
        for (int index = 0; index < run.points.size(); ++index) {
            const QPointF slope = slopes.at(index) / lengthOf(slopes.at(index));
            const QPointF start = run.points.at(index).point;
            if (run.points.at(index).role == PointRole::Notch)
                notches.append({start, start + QPointF(-slope.y(), slope.x()) * inwards});
        }
    }
    return notches;
}

QPointF labelPlaceOf(const Piece& piece)
{
    constexpr int steps = 32;
    const QPainterPath path = outlineOf(piece);
    const QPolygonF outline = path.toFillPolygon();
    const QRectF bounds =
        outline.isEmpty() ? QPolygonF(piece.holes).boundingRect() : outline.boundingRect();
    QPointF best = bounds.center();
    double widest = 0.0;
    for (int step = 0; step < steps * steps; ++step) {
        const int column = step % steps;
        const int row = step / steps;
        const QPointF place(bounds.left() + bounds.width() * (column + 0.5) / steps,
                            bounds.top() + bounds.height() * (row + 0.5) / steps);
        const double room = path.contains(place) ? roomAround(place, outline, piece.holes) : 0.0;
        if (room > widest) {
            widest = room;
            best = place;
        }
    }
    return best;
}

} // namespace ReferenceHost
