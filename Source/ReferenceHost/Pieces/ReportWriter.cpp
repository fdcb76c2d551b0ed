// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Pieces/ReportWriter.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QStringList>

namespace ReferenceHost {

namespace {

QString exact(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

QString column(double centimetres, PointRole role)
{
    const bool isPoint = role != PointRole::Closing && role != PointRole::Rejected;
    return (isPoint ? QString::number(centimetres, 'f', 4) : QStringLiteral("-"))
        .rightJustified(11);
}

QString textLine(const NumberedReport& report)
{
    return QStringLiteral("%1%2%3%4  %5\n")
        .arg(QString::number(report.number).rightJustified(6),
             column(report.point.x(), report.role), column(report.point.y(), report.role),
             QString::number(report.button).rightJustified(8), roleName(report.role));
}

QString csvLine(const NumberedReport& report)
{
    return QStringLiteral("%1,%2,%3,%4,%5\n")
        .arg(QString::number(report.number), exact(report.point.x()), exact(report.point.y()),
             QString::number(report.button), roleName(report.role));
}

QString jsonLine(const NumberedReport& report)
{
    const QJsonObject object = {{QStringLiteral("number"), report.number},
                                {QStringLiteral("x"), report.point.x()},
                                {QStringLiteral("y"), report.point.y()},
                                {QStringLiteral("button"), report.button},
                                {QStringLiteral("kind"), roleName(report.role)}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)) +
           QLatin1Char('\n');
}

} // namespace

QString ReportWriter::header() const
{
    switch (m_format) {
    case Text:
        return QStringLiteral("number     x (cm)     y (cm)  button  kind\n");
    case Csv:
        return QStringLiteral("number,x_cm,y_cm,button,kind\n");
    case Json:
        break;
    }
    return {};
}

QString ReportWriter::line(const NumberedReport& report) const
{
    switch (m_format) {
    case Text:
        return textLine(report);
    case Csv:
        return csvLine(report);
    case Json:
        break;
    }
    return jsonLine(report);
}

QStringList ReportWriter::formatNames()
{
    return {QStringLiteral("text"), QStringLiteral("csv"), QStringLiteral("json")};
}

} // namespace ReferenceHost
