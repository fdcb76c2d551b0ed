// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace ReferenceHost {

/// What a host can see of an import from outside: the pen files of a directory. The driver library
/// does not say which files it has imported. Reads the directory anew at each call.
class PenDirectory
{
public:
    explicit PenDirectory(const QString& path) : m_path(path) {}

    /// Returns the number of files waiting to be imported.
    int waiting() const;

    /// Returns the waiting file that changed last, or an empty text.
    QString lastChanged() const;

    /// Returns the number of files with the extension of an imported file.
    int imported() const;

    /// Returns the waiting files that cannot be read. An import renames them without importing
    /// anything.
    QStringList unreadable() const;

    struct Left
    {
        QString name;
        QString reason; ///< the rest of a sentence that begins with the file
    };

    /// Returns the files that an import has left, and why.
    QVector<Left> left() const;

private:
    QString m_path;
};

} // namespace ReferenceHost
