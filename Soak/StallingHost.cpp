// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "StallingHost.h"

#include <QFile>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <utility>

#include <unistd.h>

using MavSystem::DigitalReport;

namespace {

constexpr int tickMilliseconds = 200;
constexpr int completeTicks = 10;
constexpr int givenUpTicks = 100;

qint64 residentKibibytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return -1;
    return statm.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / 1024;
}

} // namespace

StallingHost::StallingHost(unsigned seed, int sleepOneIn, int expected, Take take)
    : m_random(seed),
      m_sleepOneIn(sleepOneIn),
      m_tenth(expected / 10),
      m_take(std::move(take)),
      m_startMemory(residentKibibytes())
{
    DigitalReport::registerHandle([this](const DigitalReport& report) { handle(report); });
}

StallingHost::~StallingHost()
{
    DigitalReport::unregisterHandle();
}

void StallingHost::handle(const DigitalReport& report)
{
    if (m_reports == 0)
        m_clock.start();
    m_last = m_clock.elapsed();
    if (++m_reports == m_tenth)
        m_tenthMemory = residentKibibytes();
    m_take(report);
    stall();
}

// Half of the time outside of the handler, as a host does that is busy with work of its own.
void StallingHost::stall()
{
    if (happens(2 * m_sleepOneIn))
        sleep();
    if (happens(2 * m_sleepOneIn))
        QTimer::singleShot(upTo(20), &m_loop, [this] { sleep(); });
    if (m_depth < 3 && happens(1000))
        nest();
}

void StallingHost::sleep()
{
    const int milliseconds = upTo(500);
    ++m_sleeps;
    m_slept += milliseconds;
    QThread::msleep(static_cast<unsigned long>(milliseconds));
}

void StallingHost::nest()
{
    ++m_nested;
    ++m_depth;
    QEventLoop loop;
    QTimer::singleShot(upTo(20), &loop, &QEventLoop::quit);
    loop.exec();
    --m_depth;
}

bool StallingHost::happens(int oneIn)
{
    return m_random() % unsigned(oneIn) == 0;
}

int StallingHost::upTo(int milliseconds)
{
    return std::uniform_int_distribution<int>(0, milliseconds)(m_random);
}

void StallingHost::run(const std::function<bool()>& isComplete)
{
    int before = 0;
    int quietTicks = 0;
    QTimer ticks;
    QObject::connect(&ticks, &QTimer::timeout, &m_loop, [&] {
        quietTicks = m_reports == std::exchange(before, m_reports) ? quietTicks + 1 : 0;
        if (quietTicks >= (isComplete() ? completeTicks : givenUpTicks))
            stop();
    });
    ticks.start(tickMilliseconds);
    m_loop.exec();
}

QString StallingHost::summary() const
{
    return QStringLiteral(
               "%1 reports a second over %2 s; slept %3 times, %4 s in all; nested event "
               "loops %5\nresident memory in KiB: %6 at start, %7 after a tenth, %8 at "
               "the end\n")
        .arg(qint64(m_reports) * 1000 / std::max<qint64>(m_last, 1))
        .arg(double(m_last) / 1000, 0, 'f', 1)
        .arg(m_sleeps)
        .arg(double(m_slept) / 1000, 0, 'f', 1)
        .arg(m_nested)
        .arg(m_startMemory)
        .arg(m_tenthMemory < 0 ? QStringLiteral("(not reached)") : QString::number(m_tenthMemory))
        .arg(residentKibibytes());
}
