// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitalReport.h"
#include "DigitizerGeneric/Digitizer/ReportStream.h"

#include <QString>

#include <functional>

namespace ReferenceHost {

/// Lists what a line sends: each byte in hexadecimal and as text, with the time; under a
/// description the role of each byte beneath it and the decoded reports. These are the reports that
/// the driver hands over when it checks what it reads; all else it passes over.
///
/// Bytes in, text out. Times are milliseconds since the listing began. Every text that is returned
/// is empty or ends in a line feed.
class LineMonitor
{
public:
    /// Decodes the bytes of one report; returns nothing when the driver could not.
    using Decoder = std::function<std::optional<MavSystem::DigitalReport>(const QByteArray&)>;

    /// A listing without a description.
    LineMonitor();

    /// A listing under \a description. When that has no template, each chunk is a report.
    LineMonitor(const MavSystem::DigitizerArgument& description, Decoder decoder);

    /// Returns the lines for what \a bytes complete.
    QString take(qint64 milliseconds, const QByteArray& bytes);

    /// Returns the lines for what can be decided now that the line has been quiet for
    /// pauseMilliseconds().
    QString pause(qint64 milliseconds);

    int pauseMilliseconds() const { return m_pauseMilliseconds; }

    /// Returns what has been seen so far: bytes, reports, reports a second between the first and
    /// the last, bytes passed over, the largest x and y in centimetres.
    QString summary() const;

private:
    QString waitingLines(qint64 milliseconds);
    QString itemLines(qint64 milliseconds, const MavSystem::StreamItem& item);
    QString marksOf(const QByteArray& bytes) const;
    QString meaningOf(qint64 milliseconds, const MavSystem::StreamItem& item);
    QString misfitText(const QByteArray& bytes) const;
    QString reportText(qint64 milliseconds, const QByteArray& bytes);

    QString m_letters;
    Decoder m_decoder;
    MavSystem::ReportStream m_stream;
    int m_pauseMilliseconds;

    int m_bytes = 0;
    int m_strayBytes = 0;
    int m_reports = 0;
    qint64 m_firstReport = 0;
    qint64 m_lastReport = 0;
    double m_largestX;
    double m_largestY;
};

} // namespace ReferenceHost
