// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Pieces/PieceDrawing.h"

#include "DigitizerGeneric/Digitizer/RegularFile.h"
#include "ReferenceHost/Pieces/PieceGeometry.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>

#include <algorithm>
#include <cmath>

namespace ReferenceHost {

namespace {

// Centimetres.
constexpr double margin = 2.0;
constexpr double gapBetweenPieces = 2.0;
constexpr double lineThickness = 0.1;
constexpr double notchLength = 0.8;
constexpr double holeRadius = 0.4;
constexpr double cornerMark = 0.3;
constexpr double labelHeight = 1.2;
constexpr double scaleBarHeight = 0.3;
constexpr double scaleBarRoom = 2.5;

constexpr QRgb ink = 0xff202020;
constexpr QRgb faintInk = 0xff8a8a8a;
constexpr QRgb paper = 0xfff3ead9;

QRectF boundsOf(const Piece& piece)
{
    QPainterPath extent = outlineOf(piece);
    for (const Piece::OutlinePoint& point : piece.outline)
        extent.addEllipse(point.point, cornerMark, cornerMark);
    for (const QPointF& hole : piece.holes)
        extent.addEllipse(hole, holeRadius, holeRadius);
    return extent.boundingRect();
}

Piece moved(Piece piece, const QPointF& distance)
{
    for (Piece::OutlinePoint& point : piece.outline)
        point.point += distance;
    for (QPointF& hole : piece.holes)
        hole += distance;
    return piece;
}

bool overlap(const QVector<Piece>& pieces)
{
    for (int first = 0; first < pieces.size(); ++first) {
        for (int second = 0; second < first; ++second) {
            if (boundsOf(pieces.at(first)).intersects(boundsOf(pieces.at(second))))
                return true;
        }
    }
    return false;
}

QVector<Piece> sideBySide(const QVector<Piece>& pieces)
{
    QVector<Piece> row;
    double left = 0.0;
    for (const Piece& piece : pieces) {
        const QRectF bounds = boundsOf(piece);
        row.append(moved(piece, QPointF(left, 0.0) - bounds.topLeft()));
        left += bounds.width() + gapBetweenPieces;
    }
    return row;
}

// Painters measure text in pixels, with y downwards, so it is drawn without the scaling to
// centimetres.
void drawText(QPainter& painter, const QPointF& centre, double height, const QString& text)
{
    const QPointF pixel = painter.transform().map(centre);
    const double pixelHeight = height * painter.transform().m11();
    painter.save();
    painter.resetTransform();
    QFont font(QStringLiteral("sans-serif"));
    font.setPixelSize(std::max(int(pixelHeight), 1));
    painter.setFont(font);
    painter.setPen(QColor(faintInk));
    const double width = pixelHeight * text.size() + pixelHeight;
    painter.drawText(QRectF(pixel.x() - width / 2, pixel.y() - pixelHeight, width, 2 * pixelHeight),
                     Qt::AlignCenter, text);
    painter.restore();
}

void drawHole(QPainter& painter, const QPointF& centre)
{
    painter.setBrush(Qt::white);
    painter.drawEllipse(centre, holeRadius, holeRadius);
    const QPointF across(holeRadius * 1.5, 0.0);
    const QPointF along(0.0, holeRadius * 1.5);
    painter.drawLine(centre - across, centre + across);
    painter.drawLine(centre - along, centre + along);
}

void drawCornerMarks(QPainter& painter, const Piece& piece)
{
    for (const Piece::OutlinePoint& point : piece.outline) {
        const QRectF mark(point.point - QPointF(cornerMark / 2, cornerMark / 2),
                          QSizeF(cornerMark, cornerMark));
        if (point.role == PointRole::Corner)
            painter.fillRect(mark, QColor(ink));
    }
}

void drawPiece(QPainter& painter, const Piece& piece, int number)
{
    painter.setPen(QPen(QColor(ink), lineThickness, piece.finished ? Qt::SolidLine : Qt::DashLine,
                        Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(piece.finished ? QBrush(QColor(paper)) : QBrush(Qt::NoBrush));
    painter.drawPath(outlineOf(piece));
    painter.setPen(QPen(QColor(ink), lineThickness, Qt::SolidLine, Qt::RoundCap));
    for (const QLineF& notch : notchesOf(piece, notchLength))
        painter.drawLine(notch);
    for (const QPointF& hole : piece.holes)
        drawHole(painter, hole);
    drawCornerMarks(painter, piece);
    drawText(painter, labelPlaceOf(piece), labelHeight,
             piece.finished ? QString::number(number)
                            : QStringLiteral("%1 (unfinished)").arg(number));
}

QString writePicture(const QString& path, const QByteArray& picture)
{
    const QString problem = MavSystem::replaceFile(path, picture);
    return problem.isEmpty() ? problem
                             : QStringLiteral("cannot write to %1: %2").arg(path, problem);
}

} // namespace

PieceDrawing::PieceDrawing(const QVector<Piece>& pieces)
    : m_pieces(overlap(pieces) ? sideBySide(pieces) : pieces)
{
    for (const Piece& piece : m_pieces)
        m_area |= boundsOf(piece);
    m_area.adjust(-margin, -margin - scaleBarRoom, margin, margin);
    // Whole millimetres: a drawing's size is a whole number of units, and rounding it later would
    // change the scale.
    m_area.setSize(
        {std::ceil(m_area.width() * 10.0) / 10.0, std::ceil(m_area.height() * 10.0) / 10.0});
}

void PieceDrawing::paint(QPainter& painter, double pixelsPerCentimetre) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixelsPerCentimetre, -pixelsPerCentimetre);
    painter.translate(-m_area.left(), -m_area.bottom());
    painter.fillRect(m_area, Qt::white);
    for (int index = 0; index < m_pieces.size(); ++index)
        drawPiece(painter, m_pieces.at(index), index + 1);
    paintScaleBar(painter);
}

void PieceDrawing::paintScaleBar(QPainter& painter) const
{
    const int length = m_area.width() < 15 ? 5 : m_area.width() < 60 ? 10 : 20;
    const QPointF start = m_area.topLeft() + QPointF(margin, margin);
    painter.setPen(QPen(QColor(ink), lineThickness / 2));
    for (int centimetre = 0; centimetre < length; ++centimetre) {
        painter.setBrush(centimetre % 2 == 0 ? QColor(ink) : QColor(Qt::white));
        painter.drawRect(QRectF(start + QPointF(centimetre, 0.0), QSizeF(1.0, scaleBarHeight)));
    }
    drawText(painter, start + QPointF(length / 2.0, 1.0 + scaleBarHeight), labelHeight / 2,
             QStringLiteral("%1 cm").arg(length));
}

bool PieceDrawing::canSave(const QString& path)
{
    const QString extension = QFileInfo(path).suffix().toLower();
    return extension == QLatin1String("svg") || extension == QLatin1String("png");
}

QString PieceDrawing::save(const QString& path) const
{
    return QFileInfo(path).suffix().toLower() == QLatin1String("svg") ? saveSvg(path)
                                                                      : savePng(path);
}

QString PieceDrawing::saveSvg(const QString& path) const
{
    // Fine enough to tell the points of the finest tablets apart.
    constexpr double unitsPerCentimetre = 100.0;
    QBuffer picture;
    QSvgGenerator generator;
    generator.setOutputDevice(&picture);
    generator.setResolution(int(unitsPerCentimetre * 2.54));
    generator.setSize((size() * unitsPerCentimetre).toSize());
    generator.setViewBox(QRectF(QPointF(), size() * unitsPerCentimetre));
    generator.setTitle(QStringLiteral("Digitized pieces"));
    QPainter painter(&generator);
    paint(painter, unitsPerCentimetre);
    painter.end();
    return writePicture(path, picture.data());
}

QString PieceDrawing::savePng(const QString& path) const
{
    constexpr double pixelsPerCentimetre = 40.0;
    constexpr double maximumPixels = 6000.0;
    const double longest = std::max(size().width(), size().height());
    const double scale = std::min(pixelsPerCentimetre, maximumPixels / longest);
    QImage image((size() * scale).toSize(), QImage::Format_RGB32);
    image.setDotsPerMeterX(int(scale * 100));
    image.setDotsPerMeterY(int(scale * 100));
    image.fill(Qt::white);
    QPainter painter(&image);
    paint(painter, scale);
    painter.end();
    QBuffer picture;
    if (!image.save(&picture, "PNG"))
        return QStringLiteral("cannot draw %1").arg(path);
    return writePicture(path, picture.data());
}

} // namespace ReferenceHost
