// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Pieces/PieceDrawing.h"
#include "ReferenceHost/Pieces/PieceGeometry.h"
#include "ReferenceHost/Pieces/PieceRecorder.h"
#include "support/SmallDisk.h"

#include <QTemporaryDir>
#include <QtTest>

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

Piece pieceOf(const QByteArray& roles, const QVector<QPointF>& points, bool finished = true)
{
    Piece piece;
    piece.finished = finished;
    for (int index = 0; index < points.size(); ++index)
        piece.outline.append({points.at(index), roleOf(roles.at(index))});
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

const QVector<QPointF> square = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};

} // namespace

/// From points to pieces and from pieces to lines.
class PieceTest : public QObject
{
    Q_OBJECT

private slots:
    void pointsBecomePieces_data();
    void pointsBecomePieces();
    void outlinesAreDrawnAsByHand_data();
    void outlinesAreDrawnAsByHand();
    void curvesAreSmoothAndRound();
    void notchesPointInwards_data();
    void notchesPointInwards();
    void labelsLieInsideOfThePiece();
    void overlappingPiecesLieSideBySide_data();
    void overlappingPiecesLieSideBySide();
    void aFullDiskLeavesNoPartOfAPicture_data();
    void aFullDiskLeavesNoPartOfAPicture();
};

void PieceTest::pointsBecomePieces_data()
{
    QTest::addColumn<QByteArray>("roles"); // lower case: without a finite place
    QTest::addColumn<QByteArray>("pieces");
    QTest::newRow("one") << QByteArray("CCUHCNE") << QByteArray("CCUCN+1.");
    QTest::newRow("two") << QByteArray("CCEUUE") << QByteArray("CC+0.UU+0.");
    QTest::newRow("end missing") << QByteArray("CCEUH") << QByteArray("CC+0.U+1");
    QTest::newRow("end pressed twice") << QByteArray("ECCEE") << QByteArray("CC+0.");
    QTest::newRow("hole alone") << QByteArray("HE") << QByteArray("+1.");
    QTest::newRow("button without meaning") << QByteArray("COCE") << QByteArray("CC+0.");
    QTest::newRow("no finite place") << QByteArray("CchnCe") << QByteArray("CC+0.");
    QTest::newRow("nothing") << QByteArray() << QByteArray();
}

void PieceTest::pointsBecomePieces()
{
    QFETCH(QByteArray, roles);
    constexpr double infinity = std::numeric_limits<double>::infinity();
    PieceRecorder recorder;
    for (int index = 0; index < roles.size(); ++index) {
        const bool finite = QChar::isUpper(uint(roles.at(index)));
        recorder.add({finite ? double(index) : infinity, 0.0}, roleOf(roles.toUpper().at(index)));
    }
    QByteArray text; // roles of the outline, +holes, a full stop at the end
    for (const Piece& piece : recorder.pieces()) {
        for (const Piece::OutlinePoint& point : piece.outline)
            text += letters.at(int(point.role));
        text += '+' + QByteArray::number(piece.holes.size()) + (piece.finished ? "." : "");
    }
    QTEST(text, "pieces");
}

void PieceTest::outlinesAreDrawnAsByHand_data()
{
    QTest::addColumn<QByteArray>("roles");
    QTest::addColumn<QVector<QPointF>>("points");
    QTest::addColumn<bool>("finished");
    QTest::addColumn<QByteArray>("shape");
    const auto row = [](const char* name, const char* roles, const QVector<QPointF>& points,
                        bool finished, const char* shape) {
        QTest::newRow(name) << QByteArray(roles) << points << finished << QByteArray(shape);
    };
    row("corners", "CCCC", square, true, "MLLLL");
    row("corners, unfinished", "CCCC", square, false, "MLLL");
    row("curve between corners", "CUCC", square, true, "MCCLL");
    row("traced from within a curve", "UCCC", square, true, "MLLCC");
    row("notch on a straight line", "CNCC", square, true, "MLLLL");
    row("notch in a curve", "CNUC", square, true, "MCCCL");
    row("no corner", "UUUU", square, true, "MCCCC");
    row("curve at an open end", "CUU", square.mid(0, 3), false, "MCC");
    row("point traced twice", "CCUUC", {{0, 0}, {9, 0}, {5, 5}, {5, 5}, {0, 5}}, true, "MLCCL");
    row("first point traced again", "UUUU", {{0, 0}, {9, 0}, {5, 5}, {0, 0}}, true, "MCCC");
    row("two points", "CC", square.mid(0, 2), true, "MLL");
    row("one point", "C", square.mid(0, 1), true, "");
    row("the same point only", "CUC", {{1, 1}, {1, 1}, {1, 1}}, true, "");
}

void PieceTest::outlinesAreDrawnAsByHand()
{
    QFETCH(QByteArray, roles);
    QFETCH(QVector<QPointF>, points);
    QFETCH(bool, finished);
    const QPainterPath path = outlineOf(pieceOf(roles, points, finished));
    QTEST(shapeOf(path), "shape");
    for (int index = 0; index < path.elementCount(); ++index) {
        const QPointF point = path.elementAt(index);
        QVERIFY(std::isfinite(point.x()) && std::isfinite(point.y()));
    }
}

void PieceTest::curvesAreSmoothAndRound()
{
    // Uneven steps, as a hand makes them.
    QVector<QPointF> circle;
    for (const double degrees : {0., 20., 65., 90., 140., 165., 200., 250., 300., 330.})
        circle.append(
            {10 * std::cos(qDegreesToRadians(degrees)), 10 * std::sin(qDegreesToRadians(degrees))});
    const QPainterPath path = outlineOf(pieceOf(QByteArray(circle.size(), 'U'), circle));
    for (double at = 0.0; at < 1.0; at += 0.001) {
        const double radius = std::hypot(path.pointAtPercent(at).x(), path.pointAtPercent(at).y());
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

void PieceTest::notchesPointInwards_data()
{
    QTest::addColumn<QByteArray>("roles");
    QTest::addColumn<QVector<QPointF>>("points");
    const QVector<QPointF> points = {{0, 0}, {10, 0}, {10, 5}, {10, 10}, {0, 10}};
    QTest::newRow("traced to the left") << QByteArray("CCNCC") << points;
    QVector<QPointF> reversed = points;
    std::reverse(reversed.begin(), reversed.end());
    QTest::newRow("traced to the right") << QByteArray("CCNCC") << reversed;
    QTest::newRow("in a curve") << QByteArray("CUNUC") << points;
    QTest::newRow("traced from the notch")
        << QByteArray("NCCCC") << QVector<QPointF>{{10, 5}, {10, 10}, {0, 10}, {0, 0}, {10, 0}};
}

void PieceTest::notchesPointInwards()
{
    QFETCH(QByteArray, roles);
    QFETCH(QVector<QPointF>, points);
    const QVector<QLineF> notches = notchesOf(pieceOf(roles, points), 0.5);
    QCOMPARE(notches.size(), 1);
    QCOMPARE(notches.at(0).p1(), QPointF(10, 5));
    QVERIFY(QLineF(notches.at(0).p2(), QPointF(9.5, 5)).length() < 1e-9);
}

void PieceTest::labelsLieInsideOfThePiece()
{
    const QVector<QPointF> dart = {{0, 0}, {4, 0}, {5, 9}, {6, 0}, {10, 0}, {10, 10}, {0, 10}};
    const Piece piece = pieceOf("CCCCCCC", dart);
    const QPointF label = labelPlaceOf(piece);
    QVERIFY(outlineOf(piece).contains(QRectF(label - QPointF(1, 1), QSizeF(2, 2))));
}

void PieceTest::overlappingPiecesLieSideBySide_data()
{
    QTest::addColumn<double>("distance"); // of the second piece from the first
    QTest::addColumn<double>("width");    // without margins and marks
    QTest::newRow("traced at one place") << 0.0 << 22.0;
    QTest::newRow("traced beside each other") << 15.0 << 25.0;
}

void PieceTest::overlappingPiecesLieSideBySide()
{
    QFETCH(double, distance);
    QFETCH(double, width);
    QVector<QPointF> moved = square;
    for (QPointF& point : moved)
        point.rx() += distance;
    const auto sizeOf = [](const QVector<Piece>& pieces) { return PieceDrawing(pieces).size(); };
    const QSizeF one = sizeOf({pieceOf("CCCC", square)});
    const QSizeF two = sizeOf({pieceOf("CCCC", square), pieceOf("CCCC", moved)});
    QCOMPARE(two.height(), one.height());
    QVERIFY2(std::abs(two.width() - one.width() - (width - 10.0)) < 0.7,
             qPrintable(QString::number(two.width() - one.width())));
}

void PieceTest::aFullDiskLeavesNoPartOfAPicture_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("SVG") << QStringLiteral("picture.svg");
    QTest::newRow("PNG") << QStringLiteral("picture.png");
}

void PieceTest::aFullDiskLeavesNoPartOfAPicture()
{
    QFETCH(QString, name);
    const QTemporaryDir directory;
    const SmallDisk disk(directory.filePath(QStringLiteral("disk")), 4);
    if (!disk.problem().isEmpty())
        QSKIP(qPrintable(disk.problem()));
    const QDir folder(directory.filePath(QStringLiteral("disk")));
    const QVector<Piece> pieces(10, pieceOf("CCCC", square));
    const QString problem = PieceDrawing(pieces).save(folder.filePath(name));
    QVERIFY2(problem.startsWith(QLatin1String("cannot write ")), qPrintable(problem));
    QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden), QStringList());
}

QTEST_MAIN(PieceTest)
#include "PieceTest.moc"
