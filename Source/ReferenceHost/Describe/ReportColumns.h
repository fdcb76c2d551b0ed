// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Describe/PressProtocol.h"

#include <QByteArray>
#include <QVector>

namespace ReferenceHost {

/// The positions of a number in a report: digits, possibly with a point among them or a sign in
/// front.
struct ReportNumber
{
    int start = 0;
    int end = 0; ///< one past the last
    int sign = -1;
    int point = -1;

    bool isEmpty() const { return start == end; }
    bool contains(int position) const;
};

/// The reports of the presses, position by position: the bytes of all reports at one position are a
/// column.
class ReportColumns
{
public:
    /// \a reports have the same length, one for each press of the protocol in its order.
    explicit ReportColumns(const QVector<QByteArray>& reports);

    int size() const { return m_columns.size(); }
    int presses() const { return m_reports.size(); }

    /// Returns the bytes of all reports at \a position, one for each press.
    const QByteArray& at(int position) const { return m_columns.at(position); }

    bool isConstant(int position) const;
    bool isAlways(int position, char character) const;
    bool isText(int position) const;
    bool isDigits(int position) const;
    bool hasDigits(int position) const;

    /// Returns whether the column changes with the button and with nothing else: it is the same
    /// wherever button 1 is pressed.
    bool followsButton(int position) const;

    /// Returns the runs of digits that change with the place.
    QVector<ReportNumber> numbers() const;

    /// Returns the number in a range of digits and points, with its sign. Points at the ends are
    /// not part of it.
    ReportNumber numberAt(int start, int end) const;

    /// Returns by how much \a number differs at \a place from the first press.
    double movement(const ReportNumber& number, PressProtocol::Place place) const;

    /// Returns the characters of the report of \a press at \a positions.
    QByteArray characters(int press, const QVector<int>& positions) const;

    /// Returns how many different texts the reports have in that range.
    int differentTexts(int start, int width) const;

private:
    bool isSign(int position) const;
    bool isPointBetweenDigits(int position) const;
    bool moves(const ReportNumber& number) const;
    double valueOf(const ReportNumber& number, int press) const;

    QVector<QByteArray> m_reports;
    QVector<QByteArray> m_columns;
};

} // namespace ReferenceHost
