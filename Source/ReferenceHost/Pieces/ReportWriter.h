// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Pieces/PointRole.h"

#include <QPointF>
#include <QString>

namespace ReferenceHost {

/// A report on its way to the user.
struct NumberedReport
{
    int number;    ///< counted from 1
    QPointF point; ///< centimetres
    int button;
    PointRole role;
};

/// Formats of reports as lines of text. Numbers know no locale. In CSV and JSON they are exact:
/// they read back as the same double. Text has 4 decimal places of a centimetre, and none for
/// reports that are not points.
class ReportWriter
{
public:
    enum Format {
        Text, ///< columns for the eye
        Csv,  ///< a header line, then one line a report
        Json, ///< one object a line
    };

    explicit ReportWriter(Format format) : m_format(format) {}

    /// Returns what comes before the first report, a line or nothing.
    QString header() const;

    /// Returns the line of \a report, line feed included.
    QString line(const NumberedReport& report) const;

    /// Returns the names of the formats in the order of the enumerators.
    static QStringList formatNames();

private:
    Format m_format;
};

} // namespace ReferenceHost
