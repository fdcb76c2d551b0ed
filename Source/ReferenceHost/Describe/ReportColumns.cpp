// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Describe/ReportColumns.h"

#include "DigitizerGeneric/Digitizer/PrintableCharacter.h"

#include <QSet>

#include <algorithm>

namespace ReferenceHost {

using namespace PressProtocol;

namespace {

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

// The presses of button 1.
bool isConstantWithButton(const QByteArray& column)
{
    return std::count(column.begin(), column.begin() + placeCount, column.at(0)) == placeCount;
}

} // namespace

bool ReportNumber::contains(int position) const
{
    return (position >= start && position < end) || position == sign;
}

ReportColumns::ReportColumns(const QVector<QByteArray>& reports) : m_reports(reports)
{
    for (int position = 0; position < reports.first().size(); ++position) {
        QByteArray column;
        for (const QByteArray& report : reports)
            column += report.at(position);
        m_columns.append(column);
    }
}

bool ReportColumns::isConstant(int position) const
{
    return isAlways(position, at(position).at(0));
}

bool ReportColumns::isAlways(int position, char character) const
{
    return at(position).count(character) == presses();
}

bool ReportColumns::isText(int position) const
{
    const QByteArray& column = at(position);
    return std::all_of(column.begin(), column.end(), MavSystem::isPrintable);
}

bool ReportColumns::isDigits(int position) const
{
    return std::all_of(at(position).begin(), at(position).end(), isDigit);
}

bool ReportColumns::hasDigits(int position) const
{
    return std::any_of(at(position).begin(), at(position).end(), isDigit);
}

bool ReportColumns::followsButton(int position) const
{
    return isConstantWithButton(at(position)) && !isConstant(position);
}

bool ReportColumns::isSign(int position) const
{
    const QByteArray& column = at(position);
    const int signs = column.count('+') + column.count('-');
    return signs > 0 && signs + column.count(' ') == column.size();
}

bool ReportColumns::isPointBetweenDigits(int position) const
{
    return position > 0 && position + 1 < size() && isAlways(position, '.') &&
           isDigits(position - 1) && isDigits(position + 1);
}

bool ReportColumns::moves(const ReportNumber& number) const
{
    return !std::all_of(m_columns.begin() + number.start, m_columns.begin() + number.end,
                        isConstantWithButton);
}

QVector<ReportNumber> ReportColumns::numbers() const
{
    QVector<ReportNumber> found;
    int position = 0;
    while (position < size()) {
        const int start = position;
        while (position < size() && (isDigits(position) || isPointBetweenDigits(position)))
            ++position;
        const ReportNumber number = numberAt(start, position);
        if (position > start && moves(number))
            found.append(number);
        else if (position == start)
            ++position;
    }
    return found;
}

ReportNumber ReportColumns::numberAt(int start, int end) const
{
    while (start < end && !isDigits(start))
        ++start;
    while (end > start && !isDigits(end - 1))
        --end;
    ReportNumber number;
    number.start = start;
    number.end = end;
    if (start > 0 && isSign(start - 1))
        number.sign = start - 1;
    for (int position = start; position < end && number.point < 0; ++position) {
        if (!isDigits(position))
            number.point = position;
    }
    return number;
}

double ReportColumns::valueOf(const ReportNumber& number, int press) const
{
    const QByteArray& report = m_reports.at(press);
    const double magnitude = report.mid(number.start, number.end - number.start).toDouble();
    return number.sign >= 0 && report.at(number.sign) == '-' ? -magnitude : magnitude;
}

double ReportColumns::movement(const ReportNumber& number, Place place) const
{
    return valueOf(number, place) - valueOf(number, LowerLeft);
}

QByteArray ReportColumns::characters(int press, const QVector<int>& positions) const
{
    QByteArray text;
    for (const int position : positions)
        text += m_reports.at(press).at(position);
    return text;
}

int ReportColumns::differentTexts(int start, int width) const
{
    QSet<QByteArray> texts;
    for (const QByteArray& report : m_reports)
        texts.insert(report.mid(start, width));
    return texts.size();
}

} // namespace ReferenceHost
