// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitalReport.h"

#include <QString>
#include <QVector>

#include <atomic>

/// Compares the reports that a host is handed with the numbered pen files that were written.
class PenTally
{
public:
    /// Files 0 to \a files - 1 are written.
    explicit PenTally(int files) : m_whole(files) {}

    /// Takes what the host was handed.
    void take(const MavSystem::DigitalReport& report);

    /// Returns how many files have come whole; may be asked from any thread.
    int wholeFiles() const { return m_wholeFiles; }

    bool isAsPromised() const;

    /// Returns the counts in a line.
    QString summary() const;

private:
    int filesThatCame(bool (*often)(quint8)) const;

    QVector<quint8> m_whole; ///< how often each file has come whole
    std::atomic<int> m_wholeFiles{0};
    int m_file = -1; ///< that is coming
    int m_next = 0;  ///< its point that is due
    int m_cutShort = 0;
    int m_wrong = 0;
};
