// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitalReport.h"
#include "DigitizerGeneric/Digitizer/ReportStream.h"

#include <QString>

#include <functional>

namespace ReferenceHost {

/// Lists what arrives at a port: each byte in hexadecimal and as text, with the time. With a
/// description, it also lists the role of each byte and the decoded reports. These are the reports
/// that the driver delivers with checked reading; it passes over everything else.
///
/// Bytes in, text out. Times are milliseconds since the listing began. Each returned text is empty
/// or ends with a line feed.
class LineMonitor
{
public:
    /// Decodes the bytes of one report; returns nothing if the driver could not.
    using Decoder = std::function<std::optional<MavSystem::DigitalReport>(const QByteArray&)>;

    /// A listing without a description.
    LineMonitor();

    /// A listing with \a description. If that has no template, each chunk is a report.
    LineMonitor(const MavSystem::DigitizerArgument& description, Decoder decoder);

    /// Returns the lines for everything that \a bytes complete.
    QString take(qint64 milliseconds, const QByteArray& bytes);

    /// Returns the lines for everything that is decided by pauseMilliseconds() without input.
    QString pause(qint64 milliseconds);

    int pauseMilliseconds() const { return m_pauseMilliseconds; }

    /// Returns a summary so far: bytes, reports, reports per second between the first and the last,
    /// bytes passed over, the largest x and y in centimetres.
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
