// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitalReport.h"
#include "ReferenceHost/ReportCutter.h"

#include <QString>

#include <functional>

/// Lists what a line sends: each byte in hexadecimal and as text, with the time; under a
/// description the role of each byte beneath it and the decoded report.
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

    /// Returns the lines for the start of a report that has not been completed. To be called when
    /// the line has been quiet for quietMilliseconds.
    QString flush(qint64 milliseconds);

    /// Returns what has been seen so far: bytes, reports, reports a second between the first and
    /// the last, stray bytes, unexpected characters, the largest x and y in centimetres.
    QString summary() const;

    /// Longer than the time between two characters at the slowest line speed, 150 baud.
    static constexpr int quietMilliseconds = 500;

private:
    QString pieceLines(qint64 milliseconds, const LinePiece& piece);
    QString marksOf(const LinePiece& piece) const;
    QString meaningOf(qint64 milliseconds, const LinePiece& piece);
    QString reportText(qint64 milliseconds, const QByteArray& bytes);
    bool isReport(const LinePiece& piece) const;
    int misfits(const QByteArray& bytes) const;

    std::vector<MavSystem::ReportFormatValues> m_roles;
    QString m_letters;
    Decoder m_decoder;
    ReportCutter m_cutter;

    int m_bytes = 0;
    int m_strayBytes = 0;
    int m_misfits = 0;
    int m_reports = 0;
    qint64 m_firstReport = 0;
    qint64 m_lastReport = 0;
    double m_largestX;
    double m_largestY;
};
