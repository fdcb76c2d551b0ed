// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "PenTally.h"

#include "NumberedPenFile.h"
#include "NumberedReport.h"

#include <algorithm>

void PenTally::take(const MavSystem::DigitalReport& report)
{
    if (m_next == 0 || !NumberedReport::isSame(report, NumberedPenFile::reportOf(m_file, m_next))) {
        m_cutShort += m_next > 0 ? 1 : 0;
        m_next = 0;
        m_file = NumberedPenFile::numberOf(report);
        if (m_file < 0 || m_file >= m_whole.size()) {
            ++m_wrong;
            return;
        }
    }
    if (++m_next < NumberedPenFile::points)
        return;
    m_next = 0;
    m_whole[m_file] = quint8(std::min(m_whole.at(m_file) + 1, 255));
    ++m_wholeFiles;
}

int PenTally::filesThatCame(bool (*often)(quint8)) const
{
    return int(std::count_if(m_whole.begin(), m_whole.end(), often));
}

bool PenTally::isAsPromised() const
{
    return filesThatCame([](quint8 times) { return times == 1; }) == m_whole.size() &&
           m_cutShort == 0 && m_wrong == 0 && m_next == 0;
}

QString PenTally::summary() const
{
    return QStringLiteral("files %1, whole and right once %2, more than once %3, lost %4, cut "
                          "short %5, wrong reports %6\n")
        .arg(m_whole.size())
        .arg(filesThatCame([](quint8 times) { return times == 1; }))
        .arg(filesThatCame([](quint8 times) { return times > 1; }))
        .arg(filesThatCame([](quint8 times) { return times == 0; }))
        .arg(m_cutShort + (m_next > 0 ? 1 : 0))
        .arg(m_wrong);
}
