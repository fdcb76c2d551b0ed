// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace ReferenceHost {

/// The reports in what an unknown tablet sent for a row of presses.
struct ReportSplit
{
    /// What shows where a report ends.
    enum class Evidence {
        LineEnd,    ///< the carriage return or line feed at its end
        Repetition, ///< the text repeats itself after as many characters
        WholePress, ///< nothing but the pause: what came with one press is one report
    };

    QVector<QByteArray> reports; ///< the first report of each press, all of one length
    Evidence evidence = Evidence::LineEnd;
    int mostReportsInPress = 1;
    QString error; ///< why there is no common length; empty when there is one
};

/// Finds the length of a report. \a presses are the bytes of each press; none of them is empty.
ReportSplit splitReports(const QVector<QByteArray>& presses);

} // namespace ReferenceHost
