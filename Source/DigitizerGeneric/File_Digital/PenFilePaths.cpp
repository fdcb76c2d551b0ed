// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/PenFilePaths.h"

#include <QDir>
#include <QSettings>

namespace MavSystem {

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
        QSettings().value(QStringLiteral("digitizer_file_directory"), QDir::rootPath()).toString());
}

} // namespace MavSystem
