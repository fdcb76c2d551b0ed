// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace ReferenceHost {

/// What a host can see of an import from outside: the pen files of a directory. The driver library
/// itself tells nobody which files it has imported. Reads the directory anew at each call.
class PenDirectory
{
public:
    explicit PenDirectory(const QString& path) : m_path(path) {}

    /// Returns the number of files that wait to be imported.
    int waiting() const;

    /// Returns the waiting file that changed last, or an empty text.
    QString lastChanged() const;

    /// Returns the number of files that carry the extension of an imported one.
    int imported() const;

    /// Returns the waiting files that cannot be read. An import passes over them and renames them
    /// all the same.
    QStringList unreadable() const;

    struct Left
    {
        QString name;
        QString reason; ///< the rest of a sentence about the file
    };

    /// Returns the files that are waiting after an import, and why.
    QVector<Left> left() const;

private:
    QString m_path;
};

} // namespace ReferenceHost
