// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Pieces/PointRole.h"

#include <QPointF>
#include <QString>

namespace ReferenceHost {

/// A report to be shown to the user.
struct NumberedReport
{
    int number;    ///< counted from 1
    QPointF point; ///< centimetres
    int button;
    PointRole role;
};

/// Formats reports as lines of text. Numbers do not depend on the locale. In CSV and JSON they are
/// exact: reading them gives the same double. Text has 4 decimal places of a centimetre, and no
/// numbers for reports that are not points.
class ReportWriter
{
public:
    enum Format {
        Text, ///< columns to be read by people
        Csv,  ///< a header line, then one line per report
        Json, ///< one object per line
    };

    explicit ReportWriter(Format format) : m_format(format) {}

    /// Returns the line before the first report, or an empty text.
    QString header() const;

    /// Returns the line for \a report, including the line feed.
    QString line(const NumberedReport& report) const;

    /// Returns the names of the formats in the order of the enumerators.
    static QStringList formatNames();

private:
    Format m_format;
};

} // namespace ReferenceHost
