// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <tl/expected.hpp>

namespace ReferenceHost {

/// The reports that an unknown tablet sent for a series of presses.
struct ReportSplit
{
    /// What shows where a report ends.
    enum class Evidence {
        LineEnd,    ///< the carriage return or line feed at its end
        Repetition, ///< the bytes repeat after a report's length
        WholePress, ///< only the pause: everything sent for one press is one report
    };

    QVector<QByteArray> reports; ///< the first report of each press, all of the same length
    Evidence evidence = Evidence::LineEnd;
    int mostReportsInPress = 1;
};

/// Finds the length of a report. \a presses are the bytes of each press, none of them empty.
/// The error says why there is no common length.
tl::expected<ReportSplit, QString> splitReports(const QVector<QByteArray>& presses);

} // namespace ReferenceHost
