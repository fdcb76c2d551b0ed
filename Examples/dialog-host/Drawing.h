// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsItem>
#include <QGraphicsView>

#include <optional>

/// Shows the points, joined by lines in their order.
class Drawing : public QGraphicsView
{
public:
    Drawing()
    {
        setScene(&m_scene);
        setRenderHint(QPainter::Antialiasing);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        scale(1, -1); // y points up on the tablet
    }

    /// Adds a point in centimetres. Button 3 is a punch hole, 4 ends a piece.
    void addPoint(double x, double y, int button)
    {
        const QPointF point(x, y);
        auto* const mark = m_scene.addEllipse(-3, -3, 6, 6, QPen(Qt::darkBlue)); // pixels
        mark->setFlag(QGraphicsItem::ItemIgnoresTransformations);
        mark->setPos(point);
        if (button != 3) {
            if (m_last)
                m_scene.addLine(QLineF(*m_last, point), QPen(Qt::darkBlue, 0));
            m_last = button == 4 ? std::nullopt : std::make_optional(point);
        }
        showAll();
    }

protected:
    void resizeEvent(QResizeEvent* /*event*/) override { showAll(); }

private:
    void showAll() { fitInView(m_scene.itemsBoundingRect(), Qt::KeepAspectRatio); }

    QGraphicsScene m_scene;
    std::optional<QPointF> m_last; // of the piece that is being traced
};
