// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/PenFilePaths.h"

#include "DigitizerGeneric/Digitizer/SettingKeys.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace MavSystem {

namespace {

const char importedExtension[] = ".txt";

} // namespace

QString penDevice()
{
    return QStringLiteral("File:");
}

QString penFilePattern()
{
    return QStringLiteral("*.dat");
}

QString importedFilePattern()
{
    return QLatin1Char('*') + QLatin1String(importedExtension);
}

QString importedPath(const QString& path)
{
    return path.left(path.lastIndexOf(QLatin1Char('/')) + 1) + QFileInfo(path).completeBaseName() +
           QLatin1String(importedExtension);
}

QString joinedPath(const QString& directory, const QString& name)
{
    return directory.endsWith(QLatin1Char('/')) ? directory + name
                                                : directory + QLatin1Char('/') + name;
}

QString absoluteDirectory(const QString& directory)
{
    const bool relative = QDir::isRelativePath(directory) || directory.startsWith(QLatin1Char(':'));
    return relative && !directory.isEmpty() ? joinedPath(QDir::currentPath(), directory)
                                            : directory;
}

QString penDirectory()
{
    return absoluteDirectory(
        QSettings().value(QLatin1String(SettingKeys::penDirectory), QDir::rootPath()).toString());
}

} // namespace MavSystem
