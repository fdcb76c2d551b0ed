// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace ReferenceHost {

/// An open question about a layout, and the part of the description that it concerns.
struct Doubt
{
    enum class About { Line, Resolution, Template, Buttons };
    About about;
    QString text;
};

/// The layout of an unknown tablet's report.
struct FoundLayout
{
    QByteArray roles;          ///< a template of a description, one character for each position
    QVector<QByteArray> codes; ///< the code of each button that was pressed, in that order
    double xCounts = 0;        ///< from the first press to the one at its right
    double yCounts = 0;        ///< from the first press to the one above it
    QVector<Doubt> doubts;
    QString error; ///< why there is no template; otherwise empty
};

/// Finds the layout. \a reports have the same length, one for each press of the protocol in its
/// order, with at least two buttons.
FoundLayout findLayout(const QVector<QByteArray>& reports);

} // namespace ReferenceHost
