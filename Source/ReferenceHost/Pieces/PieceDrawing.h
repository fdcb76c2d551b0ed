// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Pieces/Piece.h"

#include <QRectF>
#include <QString>
#include <QVector>

class QPainter;

namespace ReferenceHost {

/// A drawing of traced pieces on white paper, with a scale bar: outlines, notches, punch holes,
/// a mark on each corner and a number in each piece. Painting text needs a QGuiApplication.
///
/// The pieces are drawn where they were traced. If two of them overlap, because they were traced at
/// the same place on the table, all are drawn side by side.
class PieceDrawing
{
public:
    explicit PieceDrawing(const QVector<Piece>& pieces);

    /// Returns the drawing's size in centimetres, margins and scale bar included.
    QSizeF size() const { return m_area.size(); }

    /// Paints the drawing into the upper left corner of the painter's device.
    void paint(QPainter& painter, double pixelsPerCentimetre) const;

    /// Writes the drawing to \a path, as SVG at true size or as PNG, depending on the extension.
    /// Returns an empty text, or what went wrong.
    QString save(const QString& path) const;

    /// Returns whether save() knows the extension of \a path.
    static bool canSave(const QString& path);

private:
    QString saveSvg(const QString& path) const;
    QString savePng(const QString& path) const;
    void paintScaleBar(QPainter& painter) const;

    QVector<Piece> m_pieces; // at the place where they are drawn
    QRectF m_area;           // y upwards, so its top is the drawing's lower edge
};

} // namespace ReferenceHost
