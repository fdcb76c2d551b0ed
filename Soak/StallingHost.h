// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitalReport.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <random>
#include <utility>

#include <unistd.h>

/// A busy host: now and then it sleeps for up to half a second, in its handler or outside of it, or
/// runs a nested event loop in its handler. Only one at a time, because a process has only one
/// handler.
class StallingHost
{
public:
    using Take = std::function<void(const MavSystem::DigitalReport&)>;

    /// \a take gets each report before the host stalls, which happens at one report in \a
    /// sleepOneIn. Memory is measured after a tenth of \a expected reports.
    StallingHost(unsigned seed, int sleepOneIn, int expected, Take take)
        : m_random(seed), m_sleepOneIn(sleepOneIn), m_tenth(expected / 10), m_take(std::move(take))
    {
        MavSystem::DigitalReport::registerHandle([this](const auto& report) { handle(report); });
    }
    ~StallingHost() { MavSystem::DigitalReport::unregisterHandle(); }

    /// Runs the event loop until \a isComplete and nothing has been delivered for two seconds, or
    /// nothing for twenty seconds, or stop(). Then prints the speed, the stalls and the memory.
    void run(const std::function<bool()>& isComplete)
    {
        int before = 0;
        int quietTicks = 0;
        QTimer ticks;
        QObject::connect(&ticks, &QTimer::timeout, &m_loop, [&] {
            quietTicks = m_reports == std::exchange(before, m_reports) ? quietTicks + 1 : 0;
            if (quietTicks >= (isComplete() ? 10 : 100))
                stop();
        });
        ticks.start(200);
        m_loop.exec();
        print();
    }

    void stop() { m_loop.quit(); }

private:
    void handle(const MavSystem::DigitalReport& report)
    {
        if (m_reports == 0)
            m_clock.start();
        m_last = m_clock.elapsed();
        if (++m_reports == m_tenth)
            m_tenthMemory = residentKibibytes();
        m_take(report);
        stall();
    }

    void stall()
    {
        if (happens(2 * m_sleepOneIn))
            sleep();
        if (happens(2 * m_sleepOneIn))
            QTimer::singleShot(upTo(20), &m_loop, [this] { sleep(); });
        if (m_depth < 3 && happens(1000))
            nest();
    }

    void sleep()
    {
        const int milliseconds = upTo(500);
        ++m_sleeps;
        m_slept += milliseconds;
        QThread::msleep(static_cast<unsigned long>(milliseconds));
    }

    void nest()
    {
        ++m_nested;
        ++m_depth;
        QEventLoop loop;
        QTimer::singleShot(upTo(20), &loop, &QEventLoop::quit);
        loop.exec();
        --m_depth;
    }

    bool happens(int oneIn) { return m_random() % unsigned(oneIn) == 0; }
    int upTo(int milliseconds) { return int(m_random() % unsigned(milliseconds + 1)); }

    static long residentKibibytes()
    {
        QFile statm(QStringLiteral("/proc/self/statm"));
        if (!statm.open(QIODevice::ReadOnly))
            return -1;
        return statm.readAll().split(' ').value(1).toLong() * sysconf(_SC_PAGESIZE) / 1024;
    }

    void print() const
    {
        std::printf("%lld reports a second over %lld ms; slept %d times, %lld ms in all; %d nested "
                    "event loops\nresident memory in KiB: %ld at start, ",
                    m_reports * 1000LL / std::max(m_last, 1LL), m_last, m_sleeps, m_slept, m_nested,
                    m_startMemory);
        if (m_tenthMemory >= 0)
            std::printf("%ld after a tenth, ", m_tenthMemory);
        std::printf("%ld at the end\n", residentKibibytes());
    }

    std::mt19937 m_random;
    const int m_sleepOneIn;
    const int m_tenth;
    const Take m_take;
    QEventLoop m_loop;
    QElapsedTimer m_clock; ///< since the first report
    long long m_last = 0;  ///< milliseconds to the last report
    int m_reports = 0;
    int m_sleeps = 0;
    long long m_slept = 0; ///< milliseconds
    int m_nested = 0;
    int m_depth = 0;
    const long m_startMemory = residentKibibytes();
    long m_tenthMemory = -1; ///< -1 before that
};
