// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/File_Digital/PenFileStamp.h"

#include <QHash>
#include <QString>
#include <QVector>

namespace MavSystem {

/// Which pen files have stood still long enough to be imported, from one look at the directory to
/// the next. Knows no clock and no files: looks and times are passed in.
class PenFileSettling
{
public:
    struct File
    {
        QString name;
        PenFileStamp stamp;
    };

    /// Milliseconds for which a file has to stand still; 0, the default, when nobody asks for it.
    void setSettleTime(int milliseconds) { m_settleTime = milliseconds; }
    int settleTime() const { return m_settleTime; }

    /// Takes what a look that lasted from \a begun to \a ended found, all files of the directory;
    /// returns those that are to be imported, in the given order. Times are in milliseconds since
    /// any point of time and never go back.
    ///
    /// Each look returns them until they are forgotten, gone or marked as imported.
    QVector<File> look(const QVector<File>& found, qint64 begun, qint64 ended);

    /// Marks \a file as imported although it keeps its name: it no longer waits, unless it changes.
    void setImported(const File& file);

    /// The next look finds a file of this name anew.
    void forget(const QString& name) { m_waiting.remove(name); }

    /// Forgets all files.
    void clear();

    /// How many files of the last look are still to be imported.
    int waiting() const { return m_waiting.size(); }

private:
    struct Still
    {
        PenFileStamp stamp;
        qint64 since;
    };

    int m_settleTime = 0;
    QHash<QString, Still> m_waiting;
    QHash<QString, PenFileStamp> m_imported;
};

} // namespace MavSystem
