// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>

namespace MavSystem {

/// Tells whether a file has changed or has been replaced by another one.
///
/// Times are for comparison with each other only: the clock of a file server is not that of this
/// machine.
struct PenFileStamp
{
    qint64 size = -1;    ///< bytes; -1 when there is no such file
    qint64 modified = 0; ///< nanoseconds
    quint64 device = 0;
    quint64 number = 0; ///< of the file on its device

    /// Of the file named \a path, through links.
    static PenFileStamp of(const QString& path);
    /// Of an open file, even if it has been renamed or removed.
    static PenFileStamp of(const QFile& file);

    bool exists() const { return size >= 0; }

    /// Whether nothing was written between the two. The number is left out: some network file
    /// systems make up another one at each look.
    bool sameContent(const PenFileStamp& other) const
    {
        return size == other.size && modified == other.modified;
    }

    bool sameFile(const PenFileStamp& other) const
    {
        return exists() && other.exists() && device == other.device && number == other.number;
    }
};

} // namespace MavSystem
