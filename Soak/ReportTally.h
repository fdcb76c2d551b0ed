// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "NumberedReport.h"

#include <QMap>

#include <cstdio>
#include <utility>

/// Compares the reports that a host gets with the numbered ones that were sent. Prints the first
/// faults immediately and keeps only counts, however many reports there are.
class ReportTally
{
public:
    /// Reports 0 to \a sent - 1 are sent; those in \a damaged are replaced by the bytes there.
    ReportTally(int sent, QMap<int, QByteArray> damaged)
        : m_sent(sent), m_damaged(std::move(damaged)), m_lastCertain(sent - 1)
    {
        while (m_lastCertain >= 0 && !mustCome(m_lastCertain))
            --m_lastCertain;
    }

    /// Adds a report that the host got.
    void take(const MavSystem::DigitalReport& report)
    {
        ++m_handedOver;
        int number = NumberedReport::numberOf(report);
        if (number < 0 || number >= m_sent)
            number = damagedLike(report);
        if (number < m_next)
            return fault(number < 0 ? m_wrong : m_doubled, number < 0 ? "wrong" : "duplicated",
                         number);
        skipTo(number);
        m_next = number + 1;
        ++(m_damaged.contains(number) ? m_become[kindOf(number, report)] : m_right);
    }

    /// Returns whether the last report that must arrive has arrived.
    bool isComplete() const { return m_next > m_lastCertain; }

    /// Prints the counts when no more reports arrive. Returns whether everything is as checked
    /// reading promises.
    bool finish()
    {
        skipTo(m_sent);
        std::printf("sent %d, delivered %d, right %d, duplicated %d, missing %d, wrong %d\n",
                    m_sent, m_handedOver, m_right, m_doubled, m_missing, m_wrong);
        if (!m_damaged.isEmpty())
            std::printf("damaged %d; of these not delivered %d, delivered with no value changed "
                        "%d, with another button %d, with another point %d; undamaged ones after "
                        "them not delivered %d\n",
                        int(m_damaged.size()), m_damagedMissing, m_become[0], m_become[1],
                        m_become[2], m_missingBehindDamage);
        return m_missing + m_doubled + m_wrong == 0 && (!m_damaged.isEmpty() || m_right == m_sent);
    }

private:
    // If a damaged report has lost its line end, the next report is on the same line.
    bool mustCome(int number) const
    {
        return !m_damaged.contains(number) && !m_damaged.contains(number - 1);
    }

    // A damaged report that still fits the template is delivered as it is.
    int damagedLike(const MavSystem::DigitalReport& report) const
    {
        for (auto damaged = m_damaged.lowerBound(m_next); damaged != m_damaged.end(); ++damaged) {
            const auto become = NumberedReport::decoded(damaged.value());
            if (become && NumberedReport::isSame(*become, report))
                return damaged.key();
        }
        return -1;
    }

    static int kindOf(int number, const MavSystem::DigitalReport& report)
    {
        MavSystem::DigitalReport sent = *NumberedReport::decoded(NumberedReport::bytesOf(number));
        if (NumberedReport::isSame(sent, report))
            return 0;
        sent.m_button_number = report.m_button_number;
        return NumberedReport::isSame(sent, report) ? 1 : 2;
    }

    void skipTo(int number)
    {
        for (; m_next < number; ++m_next) {
            if (mustCome(m_next))
                fault(m_missing, "missing", m_next);
            else
                ++(m_damaged.contains(m_next) ? m_damagedMissing : m_missingBehindDamage);
        }
    }

    void fault(int& count, const char* kind, int number)
    {
        if (++count <= 3)
            std::printf("  %s: number %d, after %d were delivered\n", kind, number, m_handedOver);
    }

    const int m_sent;
    const QMap<int, QByteArray> m_damaged;
    int m_lastCertain; ///< number of the last one that must arrive
    int m_next = 0;    ///< number of the next report
    int m_handedOver = 0;
    int m_right = 0;
    int m_doubled = 0;
    int m_wrong = 0;
    int m_missing = 0;             ///< undamaged, after an undamaged one or first
    int m_missingBehindDamage = 0; ///< undamaged, after a damaged one
    int m_damagedMissing = 0;
    int m_become[3] = {}; ///< damaged and delivered: no value changed, the button, the point
};
