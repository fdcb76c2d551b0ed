// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitalReport.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QString>

#include <functional>
#include <random>

/// A busy host: now and then it sleeps for up to half a second, in its handler or outside of it, or
/// runs a nested event loop in its handler. One at a time, since a process has one handler.
class StallingHost
{
public:
    using Take = std::function<void(const MavSystem::DigitalReport&)>;

    /// \a take gets each report before the host stalls. It sleeps at one report in \a sleepOneIn.
    /// The memory is looked at after a tenth of \a expected reports.
    StallingHost(unsigned seed, int sleepOneIn, int expected, Take take);
    ~StallingHost();

    /// Runs the event loop until \a isComplete and nothing has been handed over for two seconds, or
    /// nothing for twenty seconds, or stop().
    void run(const std::function<bool()>& isComplete);

    void stop() { m_loop.quit(); }

    /// Returns the reports a second, the stalls and the memory, a line each.
    QString summary() const;

private:
    void handle(const MavSystem::DigitalReport& report);
    void stall();
    void sleep();
    void nest();
    bool happens(int oneIn);
    int upTo(int milliseconds);

    std::mt19937 m_random;
    const int m_sleepOneIn;
    const int m_tenth;
    const Take m_take;
    QEventLoop m_loop;
    QElapsedTimer m_clock; ///< from the first report on
    qint64 m_last = 0;     ///< milliseconds to the last report
    int m_reports = 0;
    int m_sleeps = 0;
    qint64 m_slept = 0; ///< milliseconds
    int m_nested = 0;
    int m_depth = 0;
    qint64 m_startMemory;      ///< KiB, as the others
    qint64 m_tenthMemory = -1; ///< -1 when it was not reached
};
