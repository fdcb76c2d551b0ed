// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/PenFileSettling.h"

namespace MavSystem {

// Both tables are made anew, so that what is gone from the directory is gone from them. When in the
// look a file was seen is not known: its time counts from the end of one to the beginning of
// another.
QVector<PenFileSettling::File> PenFileSettling::look(const QVector<File>& found, qint64 begun,
                                                     qint64 ended)
{
    QVector<File> settled;
    QHash<QString, Still> waiting;
    QHash<QString, PenFileStamp> imported;
    for (const File& file : found) {
        const auto done = m_imported.constFind(file.name);
        if (done != m_imported.constEnd() && done->sameContent(file.stamp)) {
            imported.insert(file.name, file.stamp);
            continue;
        }
        const auto before = m_waiting.constFind(file.name);
        const bool still = before != m_waiting.constEnd() && before->stamp.sameContent(file.stamp);
        const qint64 since = still ? before->since : ended;
        waiting.insert(file.name, {file.stamp, since});
        if (begun - since >= m_settleTime)
            settled.push_back(file);
    }
    m_waiting.swap(waiting);
    m_imported.swap(imported);
    return settled;
}

void PenFileSettling::setImported(const File& file)
{
    m_waiting.remove(file.name);
    m_imported.insert(file.name, file.stamp);
}

void PenFileSettling::clear()
{
    m_waiting.clear();
    m_imported.clear();
}

} // namespace MavSystem
