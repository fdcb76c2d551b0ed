// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReportTally.h"

#include "NumberedReport.h"

#include <algorithm>
#include <utility>

using MavSystem::DigitalReport;

ReportTally::ReportTally(int sent, QMap<int, QByteArray> damaged)
    : m_sent(sent), m_damaged(std::move(damaged)), m_lastCertain(sent - 1)
{
    while (m_lastCertain >= 0 && !mustCome(m_lastCertain))
        --m_lastCertain;
}

// Where a damaged report has lost its line end, the report behind it is in the same line.
bool ReportTally::mustCome(int number) const
{
    return !m_damaged.contains(number) && !m_damaged.contains(number - 1);
}

void ReportTally::take(const DigitalReport& report)
{
    ++m_handedOver;
    const int number = NumberedReport::numberOf(report);
    if (number >= 0 && number < m_sent) {
        takeNumber(number);
    } else if (!takeDamaged(report)) {
        ++m_wrong;
        noteFault(QStringLiteral("wrong: (%1, %2) button %3")
                      .arg(report.coordinate().x(), 0, 'g', 17)
                      .arg(report.coordinate().y(), 0, 'g', 17)
                      .arg(report.m_button_number));
    }
}

void ReportTally::takeNumber(int number)
{
    if (number < m_next) {
        ++m_doubled;
        noteFault(QStringLiteral("once more or too late: %1").arg(number));
        return;
    }
    skipTo(number);
    m_next = number + 1;
    if (m_damaged.contains(number))
        ++m_damagedHandedOver[QLatin1String(
            NumberedReport::damageKind(number, m_damaged.value(number)))];
    else
        ++m_right;
}

// A damaged report that still fits the template is handed over as what it has become.
bool ReportTally::takeDamaged(const DigitalReport& report)
{
    for (auto damaged = m_damaged.lowerBound(m_next); damaged != m_damaged.end(); ++damaged) {
        const auto become = NumberedReport::decoded(damaged.value());
        if (become && NumberedReport::isSame(*become, report)) {
            skipTo(damaged.key());
            m_next = damaged.key() + 1;
            ++m_damagedHandedOver[QLatin1String(
                NumberedReport::damageKind(damaged.key(), damaged.value()))];
            return true;
        }
    }
    return false;
}

void ReportTally::skipTo(int number)
{
    for (; m_next < number; ++m_next) {
        if (mustCome(m_next)) {
            ++m_missing;
            noteFault(QStringLiteral("missing: %1").arg(m_next));
        } else {
            ++(m_damaged.contains(m_next) ? m_damagedMissing : m_missingBehindDamage);
        }
    }
}

void ReportTally::finish()
{
    skipTo(m_sent);
}

void ReportTally::noteFault(const QString& fault)
{
    if (m_faults.size() < 5)
        m_faults
            << QStringLiteral("  %1, when %2 had been handed over").arg(fault).arg(m_handedOver);
}

bool ReportTally::isAsPromised() const
{
    return m_missing == 0 && m_doubled == 0 && m_wrong == 0 &&
           (!m_damaged.isEmpty() || (m_handedOver == m_sent && m_right == m_sent));
}

QString ReportTally::summary() const
{
    QStringList lines = {
        QStringLiteral("sent %1, handed over %2, right %3, doubled %4, missing %5, wrong %6")
            .arg(m_sent)
            .arg(m_handedOver)
            .arg(m_right)
            .arg(m_doubled)
            .arg(m_missing)
            .arg(m_wrong)};
    if (!m_damaged.isEmpty()) {
        lines << QStringLiteral("damaged %1, of these not handed over %2")
                     .arg(m_damaged.size())
                     .arg(m_damagedMissing)
              << QStringLiteral("undamaged, behind a damaged one, not handed over %1")
                     .arg(m_missingBehindDamage);
        for (auto kind = m_damagedHandedOver.begin(); kind != m_damagedHandedOver.end(); ++kind)
            lines << QStringLiteral("damaged and handed over %1: %2")
                         .arg(kind.value())
                         .arg(kind.key());
    }
    return (lines + m_faults).join(QLatin1Char('\n')) + QLatin1Char('\n');
}
