// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <QByteArray>
#include <QVector>

#include <optional>

/// A piece of what a line has sent: one report, or bytes that belong to none.
struct LinePiece
{
    QByteArray bytes;
    bool isReport = false;
};

/// Finds the reports in a stream of bytes, and finds them again after garbage or a lost byte.
///
/// A template with a carriage return or a line feed is recognised by its line ends alone, so that
/// a report with damaged digits is still seen whole; any other template by its digits, signs and
/// points. This is for looking at a line: the driver itself never searches.
class ReportCutter
{
public:
    /// Without \a roles every byte is stray.
    explicit ReportCutter(std::vector<MavSystem::ReportFormatValues> roles);

    /// Returns the pieces that \a bytes complete. What may be the start of a report waits.
    QVector<LinePiece> take(const QByteArray& bytes);

    /// Returns what waits for the rest of its report, as stray bytes, or nothing. To be called when
    /// the line has been quiet, since no report has a pause in it.
    std::optional<LinePiece> flush();

    /// Returns whether \a character is one that a tablet would send in this role.
    static bool fits(MavSystem::ReportFormatValues role, char character);

private:
    enum class Match { No, Whole, SoFar };
    Match matchAt(int start) const;
    bool delimits(MavSystem::ReportFormatValues role, char character) const;

    std::vector<MavSystem::ReportFormatValues> m_roles;
    bool m_hasLineEnd;
    QByteArray m_waiting;
};
