// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Host/PenDirectory.h"

#include "DigitizerGeneric/File_Digital/PenFilePaths.h"

#include <QDateTime>
#include <QDirIterator>
#include <QFileInfo>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

template <class Action>
void forEachFile(const QString& directory, const QString& pattern, Action action)
{
    for (QDirIterator files(directory, {pattern}, QDir::Files); files.hasNext();) {
        files.next();
        action(files.fileInfo());
    }
}

int count(const QString& directory, const QString& pattern)
{
    int found = 0;
    forEachFile(directory, pattern, [&](const QFileInfo& /*file*/) { ++found; });
    return found;
}

QString reasonToStay(const QFileInfo& file)
{
    const QFileInfo target(importedPath(file.filePath()));
    if (target.exists() || target.isSymLink())
        return QStringLiteral("its points were delivered, but %1 already exists; the next import "
                              "delivers them again")
            .arg(target.fileName());
    if (!QFileInfo(file.path()).isWritable())
        return QStringLiteral("its points were delivered, but the directory is not writable; the "
                              "next import delivers them again");
    return QStringLiteral("it arrived during the import or was not complete");
}

} // namespace

int PenDirectory::waiting() const
{
    return count(m_path, penFilePattern());
}

QString PenDirectory::lastChanged() const
{
    QFileInfo last;
    forEachFile(m_path, penFilePattern(), [&](const QFileInfo& file) {
        if (last.fileName().isEmpty() || file.lastModified() > last.lastModified())
            last = file;
    });
    return last.fileName();
}

int PenDirectory::imported() const
{
    return count(m_path, importedFilePattern());
}

QStringList PenDirectory::unreadable() const
{
    QStringList names;
    forEachFile(m_path, penFilePattern(), [&](const QFileInfo& file) {
        if (!file.isReadable())
            names << file.fileName();
    });
    return names;
}

QVector<PenDirectory::Left> PenDirectory::left() const
{
    QVector<Left> left;
    forEachFile(m_path, penFilePattern(), [&](const QFileInfo& file) {
        left.append({file.fileName(), reasonToStay(file)});
    });
    return left;
}

} // namespace ReferenceHost
