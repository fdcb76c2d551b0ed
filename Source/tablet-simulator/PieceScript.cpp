// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "tablet-simulator/PieceScript.h"

#include <QRegularExpression>

#include <cmath>

namespace TabletSimulation {

using namespace ReferenceHost;

namespace {

struct Mark
{
    double x;
    double y;
    PointRole meaning;
};

// Waist at the bottom, centre front at the left, in centimetres from the tablet's lower left
// corner.
constexpr Mark bodice[] = {
    {4.0, 3.5, PointRole::Corner},  // waist, centre front
    {4.0, 36.2, PointRole::Corner}, // neck, centre front
    {6.1, 36.4, PointRole::Curve},   {8.2, 37.2, PointRole::Curve},
    {9.9, 38.8, PointRole::Curve},   {10.8, 41.0, PointRole::Curve},
    {11.2, 43.6, PointRole::Corner}, // neck point
    {23.2, 39.4, PointRole::Corner}, // shoulder point
    {22.0, 36.3, PointRole::Curve},  {21.2, 33.0, PointRole::Curve},
    {20.9, 29.8, PointRole::Notch},  {21.3, 27.0, PointRole::Curve},
    {22.8, 24.9, PointRole::Curve},  {25.2, 23.9, PointRole::Curve},
    {27.6, 23.6, PointRole::Corner},                                 // underarm
    {27.0, 14.0, PointRole::Notch},  {26.2, 3.0, PointRole::Corner}, // waist, side seam
    {17.6, 3.2, PointRole::Corner},                                  // dart leg
    {15.9, 17.4, PointRole::Corner},                                 // dart tip
    {13.8, 3.4, PointRole::Corner},                                  // dart leg
    {15.8, 19.2, PointRole::Hole},                                   // bust point
    {4.0, 3.5, PointRole::End},
};

bool parseLine(const QString& line, Press& press)
{
    const QStringList fields =
        line.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    if (fields.size() != 3)
        return false;
    bool valid[3];
    press.point = {fields.at(0).toDouble(&valid[0]), fields.at(1).toDouble(&valid[1])};
    press.button = fields.at(2).toInt(&valid[2]);
    return valid[0] && valid[1] && valid[2] && std::isfinite(press.point.x()) &&
           std::isfinite(press.point.y());
}

} // namespace

tl::expected<QVector<Press>, QString> readScript(const QByteArray& content)
{
    QVector<Press> presses;
    int number = 0;
    for (const QByteArray& rawLine : content.split('\n')) {
        ++number;
        const QString line = QString::fromUtf8(rawLine).section(QLatin1Char('#'), 0, 0).trimmed();
        Press press;
        if (line.isEmpty())
            continue;
        if (!parseLine(line, press))
            return tl::unexpected(QStringLiteral("line %1: '%2' must be x and y in centimetres and "
                                                 "a button number, such as 12.5 30 1")
                                      .arg(number)
                                      .arg(line));
        presses.append(press);
    }
    return presses;
}

QVector<Press> bodiceFront(const ButtonRoles& roles)
{
    QVector<Press> presses;
    for (const Mark& mark : bodice) {
        const int button = roles.key(mark.meaning, -1);
        if (button >= 0)
            presses.append({{mark.x, mark.y}, button});
    }
    return presses;
}

} // namespace TabletSimulation
