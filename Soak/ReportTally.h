// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitalReport.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// Compares the reports that a host is handed with the numbered ones that were sent. Keeps counts
/// only, however many reports there are.
class ReportTally
{
public:
    /// Reports 0 to \a sent - 1 are sent, those of \a damaged with these bytes in their place.
    ReportTally(int sent, QMap<int, QByteArray> damaged);

    /// Takes what the host was handed.
    void take(const MavSystem::DigitalReport& report);

    /// Counts what has not come, once nothing more comes.
    void finish();

    /// Returns whether the last report that has to come has come.
    bool isComplete() const { return m_next > m_lastCertain; }

    /// Returns whether all is as promised for checked reading.
    bool isAsPromised() const;

    /// Returns the counts, a line each, and the first faults.
    QString summary() const;

private:
    bool mustCome(int number) const;
    void takeNumber(int number);
    bool takeDamaged(const MavSystem::DigitalReport& report);
    void skipTo(int number);
    void noteFault(const QString& fault);

    const int m_sent;
    const QMap<int, QByteArray> m_damaged;
    int m_lastCertain; ///< number of the last one that has to come
    int m_next = 0;    ///< number of the report that is due
    int m_handedOver = 0;
    int m_right = 0;
    int m_doubled = 0;
    int m_wrong = 0;
    int m_missing = 0;             ///< undamaged behind an undamaged one, or the first
    int m_missingBehindDamage = 0; ///< undamaged behind a damaged one
    int m_damagedMissing = 0;
    QMap<QString, int> m_damagedHandedOver; ///< by the kind of damage
    QStringList m_faults;                   ///< the first few
};
