// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "NumberedReport.h"

#include <QVector>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>

/// Pen files with their number in each point, and the comparison with the reports that a host gets.
class PenTally
{
public:
    static constexpr int largestFile = 999999;
    static constexpr int points = 7;

    /// Files 0 to \a files - 1 are written.
    explicit PenTally(int files) : m_times(files) {}

    /// Returns the content of file \a number: three corners, three curve points, the end of the
    /// piece.
    static QByteArray contentOf(int number)
    {
        QByteArray content;
        for (int point = 0; point < points; ++point) {
            if (point == 0 || buttons[point] != buttons[point - 1])
                content += "A button - " + QByteArray::number(buttons[point]) + "\r\n";
            content += "X: " + QByteArray::number(xOf(number)) +
                       " Y: " + QByteArray::number(yOf(number, point)) + "\r\n";
        }
        return content;
    }

    /// Adds a report that the host got.
    void take(const MavSystem::DigitalReport& report)
    {
        if (m_next == 0 || !isPoint(report, m_file, m_next)) {
            m_cutShort += m_next > 0 ? 1 : 0;
            m_file = fileOf(report);
            m_next = 0;
        }
        if (m_file < 0)
            ++m_wrong;
        else if (++m_next == points)
            takeWhole();
    }

    /// Returns how many complete files have arrived. Thread-safe.
    int wholeFiles() const { return m_whole; }

    /// Prints the counts. Returns whether each file has arrived exactly once, completely and
    /// correctly.
    bool finish() const
    {
        const auto files = [this](auto times) {
            return int(std::count_if(m_times.begin(), m_times.end(), times));
        };
        const int once = files([](quint8 times) { return times == 1; });
        const int cutShort = m_cutShort + (m_next > 0 ? 1 : 0);
        std::printf("files %d, whole and right once %d, more than once %d, lost %d, cut short %d, "
                    "wrong reports %d\n",
                    int(m_times.size()), once, files([](quint8 times) { return times > 1; }),
                    files([](quint8 times) { return times == 0; }), cutShort, m_wrong);
        return once == m_times.size() && cutShort + m_wrong == 0;
    }

private:
    // A coordinate has 15 bits.
    static int xOf(int number) { return 1 + number % 30000; }
    static int yOf(int number, int point) { return 1 + number / 30000 * 100 + point; }

    static bool isPoint(const MavSystem::DigitalReport& report, int number, int point)
    {
        return NumberedReport::isSame(
            report, NumberedReport::reportOf(xOf(number), yOf(number, point), buttons[point]));
    }

    // The number of the file that begins with the report, or -1.
    int fileOf(const MavSystem::DigitalReport& report) const
    {
        const auto x = int(std::lround(report.coordinate().x() * 100));
        const auto y = int(std::lround(report.coordinate().y() * 100));
        const int number = y / 100 * 30000 + x - 1;
        return number >= 0 && number < m_times.size() && isPoint(report, number, 0) ? number : -1;
    }

    void takeWhole()
    {
        m_times[m_file] = quint8(std::min(m_times.at(m_file) + 1, 255));
        m_next = 0;
        ++m_whole;
    }

    static constexpr int buttons[points] = {1, 1, 1, 2, 2, 2, 4};

    QVector<quint8> m_times; ///< how often each file has arrived completely
    std::atomic<int> m_whole{0};
    int m_file = -1; ///< the file whose points are arriving
    int m_next = 0;  ///< its next point
    int m_cutShort = 0;
    int m_wrong = 0;
};
