// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Pieces/PieceDrawing.h"
#include "ReferenceHost/Pieces/PieceGeometry.h"
#include "ReferenceHost/Pieces/PieceRecorder.h"
#include "support/SmallDisk.h"
#include "support/TextRows.h"

#include <QImage>
#include <QTemporaryDir>

#include <cmath>
#include <limits>

using namespace ReferenceHost;

namespace {
// One letter a role: Corner, curve (U), Hole, End, Notch, Other.
const QByteArray letters = "CUHENO";

PointRole roleOf(char letter)
{
    return PointRole(letters.indexOf(letter));
}

// Of points "x,y x,y".
Piece pieceOf(const QByteArray& roles, const QByteArray& points = "0,0 10,0 10,10 0,10")
{
    Piece piece;
    piece.finished = true;
    for (const QByteArray& point : points.split(' ')) {
        const QByteArrayList place = point.split(',');
        piece.outline.append({{place.at(0).toDouble(), place.at(1).toDouble()},
                              roleOf(roles.at(piece.outline.size()))});
    }
    return piece;
}

// "M" and "L" for the elements of a path, "C" for each curve.
QByteArray shapeOf(const QPainterPath& path)
{
    QByteArray shape;
    for (int index = 0; index < path.elementCount(); ++index)
        shape += "MLC-"[path.elementAt(index).type];
    return shape.replace("-", "");
}

} // namespace

/// From points to pieces, and from pieces to outlines and pictures.
class PieceTest : public QObject
{
    Q_OBJECT

private slots:
    void pointsBecomePieces_data() { addTextRows("pieces.txt", 2); }

    void pointsBecomePieces()
    {
        QFETCH(TextRow, row);
        const QByteArray roles = row.fields.at(0); // lower case: without a finite place
        constexpr double infinity = std::numeric_limits<double>::infinity();
        PieceRecorder recorder;
        for (int index = 0; index < roles.size(); ++index) {
            const bool finite = QChar::isUpper(uint(roles.at(index)));
            recorder.add({finite ? double(index) : infinity, 0.0},
                         roleOf(roles.toUpper().at(index)));
        }
        QByteArray text; // roles of the outline, +holes, a full stop at the end
        for (const Piece& piece : recorder.pieces()) {
            for (const Piece::OutlinePoint& point : piece.outline)
                text += letters.at(int(point.role));
            text += '+' + QByteArray::number(piece.holes.size()) + (piece.finished ? "." : "");
        }
        QCOMPARE(text, row.fields.at(1));
    }

    void outlinesAreDrawnAsByHand_data() { addTextRows("outlines.txt", 4); }

    void outlinesAreDrawnAsByHand()
    {
        QFETCH(TextRow, row);
        Piece piece = pieceOf(row.fields.at(0), row.fields.at(1));
        piece.finished = row.fields.at(2) == "finished";
        const QPainterPath path = outlineOf(piece);
        QCOMPARE(shapeOf(path), row.fields.at(3));
        for (int index = 0; index < path.elementCount(); ++index) {
            const QPointF point = path.elementAt(index);
            QVERIFY(std::isfinite(point.x()) && std::isfinite(point.y()));
        }
    }

    void curvesAreSmoothAndRound()
    {
        // Uneven steps, as a hand makes them, of a radius of 10.
        const QPainterPath path = outlineOf(pieceOf(
            "UUUUUUUUUU", "10,0 9.397,3.42 4.226,9.063 0,10 -7.66,6.428 -9.659,2.588 -9.397,-3.42 "
                          "-3.42,-9.397 5,-8.66 8.66,-5"));
        for (double at = 0.0; at < 1.0; at += 0.001) {
            const double radius =
                std::hypot(path.pointAtPercent(at).x(), path.pointAtPercent(at).y());
            QVERIFY2(std::abs(radius - 10.0) < 0.15, qPrintable(QString::number(radius)));
        }
        for (int curve = 1; curve + 3 < path.elementCount(); curve += 3) {
            const QPointF point = path.elementAt(curve + 2);
            const QLineF in(path.elementAt(curve + 1), point);
            const QLineF out(point, path.elementAt(curve + 3));
            QVERIFY2(std::abs(std::remainder(in.angleTo(out), 360.0)) < 1e-6,
                     qPrintable(QString::number(curve)));
        }
    }

    void notchesPointInwards_data() { addTextRows("notches.txt", 2); }

    void notchesPointInwards()
    {
        QFETCH(TextRow, row);
        const QVector<QLineF> found = notchesOf(pieceOf(row.fields.at(0), row.fields.at(1)), 0.5);
        QCOMPARE(found.size(), 1);
        QCOMPARE(found.at(0).p1(), QPointF(10, 5));
        QVERIFY(QLineF(found.at(0).p2(), QPointF(9.5, 5)).length() < 1e-9);
    }

    void labelsLieInsideOfThePiece()
    {
        const Piece dart = pieceOf("CCCCCCC", "0,0 4,0 5,9 6,0 10,0 10,10 0,10");
        const QPointF label = labelPlaceOf(dart);
        QVERIFY(outlineOf(dart).contains(QRectF(label - QPointF(1, 1), QSizeF(2, 2))));
    }

    // Traced at one place, they are moved; traced beside each other, they stay.
    void overlappingPiecesLieSideBySide()
    {
        const Piece piece = pieceOf("CCCC");
        const QSizeF one = PieceDrawing({piece}).size();
        for (const auto& [points, added] :
             {std::pair("0,0 10,0 10,10 0,10", 12.0), std::pair("15,0 25,0 25,10 15,10", 15.0)}) {
            const QSizeF two = PieceDrawing({piece, pieceOf("CCCC", points)}).size();
            QCOMPARE(two.height(), one.height());
            QVERIFY2(std::abs(two.width() - one.width() - added) < 0.7,
                     qPrintable(QString::number(two.width() - one.width())));
        }
    }

    void aPictureHasInk()
    {
        const QTemporaryDir directory;
        const QString path = directory.filePath("picture.png");
        QCOMPARE(PieceDrawing({pieceOf("CCCC")}).save(path), QString());
        const QImage image(path);
        QVERIFY(!image.isNull());
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
        int inked = 0;
        for (int pixel = 0; pixel < image.width() * image.height(); ++pixel)
            inked += qGray(image.pixel(pixel % image.width(), pixel / image.width())) < 64 ? 1 : 0;
        QVERIFY2(inked > 1000, qPrintable(QString::number(inked)));
    }

    void aFullDiskLeavesNoPartOfAPicture()
    {
        const QTemporaryDir directory;
        const SmallDisk disk(directory.filePath("disk"), 4);
        if (!disk.problem().isEmpty())
            QSKIP(qPrintable(disk.problem()));
        const QDir folder(directory.filePath("disk"));
        const QVector<Piece> pieces(10, pieceOf("CCCC"));
        for (const char* name : {"picture.svg", "picture.png"}) {
            const QString problem = PieceDrawing(pieces).save(folder.filePath(name));
            QVERIFY2(problem.startsWith("cannot write "), qPrintable(problem));
            QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden), QStringList());
        }
    }
};

QTEST_MAIN(PieceTest)
#include "PieceTest.moc"
