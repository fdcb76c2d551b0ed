// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <QByteArray>

#include <bitset>
#include <optional>
#include <vector>

namespace MavSystem {

/// What comes out of a stream of bytes: one report, or bytes that belong to none.
struct StreamItem
{
    QByteArray bytes;
    bool isReport = false;
};

/// Finds the reports in a stream of bytes by the template, and finds them again after garbage or a
/// lost byte. Bytes and pauses in, items out; every byte comes out once, in order.
///
/// Each character of a report has to be one that its role allows. A report begins where the one
/// before ended or after a pause. How the place is found again after bytes that do not fit:
/// - With line ends in the template: behind a line end, or at one that the template begins with. A
///   line that is longer than its report is passed over whole.
/// - Without: anywhere.
/// - Where two reports would fit that overlap each other, all is kept until a pause. After it,
///   reports of a template without line ends are taken if they are whole ones from the pause
///   before to this one, and everything else is passed over.
/// Damage that leaves a well-formed report behind cannot be seen.
class ReportStream
{
public:
    /// Longer templates are not checked, since the decoding cuts them.
    static constexpr int maximumCharacters = 512;

    explicit ReportStream(const DigitizerArgument& description);

    /// Goes on by the template of \a description; what waits stays.
    void setTemplate(const DigitizerArgument& description);

    /// Returns whether the template can be checked: it has 1 to maximumCharacters characters.
    bool canCheck() const;

    /// Adds bytes that have arrived.
    void append(const QByteArray& bytes);

    /// Says that nothing has arrived for a while. No report has a pause in it: what has begun will
    /// not be completed, and the next byte is the first one of a report.
    void pause();

    /// Returns the next item, or nothing until more bytes or a pause come.
    std::optional<StreamItem> next();

    /// Returns whether a pause would change anything.
    bool needsPause() const { return size() > 0 || m_lost; }

    /// Returns the characters of a report.
    int reportSize() const { return int(m_allowed.size()); }

    /// Returns whether a report may have \a character at \a position.
    bool allows(int position, char character) const;

    /// Returns the milliseconds without a byte that make a pause on a line with \a settings.
    static int pauseMilliseconds(const PortSettings& settings);

private:
    using Characters = std::bitset<256>;
    enum class Match { No, SoFar, Whole };

    int size() const { return m_bytes.size() - m_begin; }
    int visible() const { return m_pauseAt.value_or(size()); }
    bool mayBeginAt(int offset) const;
    Match matchAt(int offset) const;
    int firstCandidate() const;
    int strayBefore(int candidate) const;
    bool hasRival() const;
    bool isWholeReports() const;
    std::optional<StreamItem> find();
    std::optional<StreamItem> resolveRivals();
    StreamItem takeReport();
    StreamItem takeStray(int count);
    QByteArray take(int count);

    std::vector<Characters> m_allowed; ///< for each position of the template
    bool m_hasLineEnds = false;
    bool m_beginsWithLineEnd = false;
    std::optional<char> m_lineEnd; ///< the last character of each report

    QByteArray m_bytes;
    int m_begin = 0;              ///< of what waits, in m_bytes
    char m_before = 0;            ///< the last byte that came out
    std::optional<int> m_pauseAt; ///< so many of the waiting bytes came before the pause
    bool m_lost = false;          ///< the first waiting byte need not be the first of a report
    int m_certain = 0;            ///< so many of the waiting bytes are known to be whole reports
};

} // namespace MavSystem
