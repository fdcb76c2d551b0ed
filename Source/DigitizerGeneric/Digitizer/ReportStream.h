// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <QByteArray>

#include <bitset>
#include <optional>
#include <vector>

namespace MavSystem {

/// An item of a stream of bytes: one report, or bytes that do not belong to a report.
struct StreamItem
{
    QByteArray bytes;
    bool isReport = false;
};

/// Finds the reports in a stream of bytes by the template, also after garbage or a lost byte. Bytes
/// and pauses go in, items come out; every byte comes out once, in order.
///
/// Each character of a report must be one that its role allows. A report begins where the previous
/// one ended, or after a pause. After bytes that do not fit, the next report begins:
/// - With line ends in the template: after a line end, or at one if the template begins with it. A
///   line that is longer than its report is passed over completely.
/// - Without: anywhere.
/// - If two overlapping reports would fit, everything is kept until a pause. If the template has no
///   line ends and all bytes since the previous pause are whole reports, those are taken. Otherwise
///   the bytes are passed over.
/// Damage that leaves a well-formed report cannot be detected.
class ReportStream
{
public:
    explicit ReportStream(const DigitizerArgument& description);

    /// Continues with the template of \a description; waiting bytes are kept.
    void setTemplate(const DigitizerArgument& description);

    /// Returns whether the template can be checked: it is not empty, and the decoding does not cut
    /// it.
    bool canCheck() const;

    /// Adds bytes that have arrived.
    void append(const QByteArray& bytes);

    /// To be called when nothing has arrived for a while. No report contains a pause: an incomplete
    /// report will not be completed, and the next byte is the first of a report.
    void pause();

    /// Returns the next item, or nothing if more bytes or a pause are needed.
    std::optional<StreamItem> next();

    /// Returns whether a pause would change anything.
    bool needsPause() const { return size() > 0 || m_lost; }

    /// Returns the number of characters in a report.
    int reportSize() const { return int(m_allowed.size()); }

    /// Returns whether a report may have \a character at \a position.
    bool allows(int position, char character) const;

    /// Returns how many milliseconds without a byte are a pause with the serial \a settings.
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
    std::optional<int> m_pauseAt; ///< number of waiting bytes that came before the pause
    bool m_lost = false;          ///< the first waiting byte need not be the first of a report
    int m_certain = 0;            ///< number of waiting bytes that are known to be whole reports
};

} // namespace MavSystem
