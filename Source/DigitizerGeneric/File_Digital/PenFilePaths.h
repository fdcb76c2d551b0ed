// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace MavSystem {

/// Returns what Digitizer::selectDevice() takes for the directory of pen files: "File:".
QString penDevice();

/// Returns the pattern of the names of files to import: "*.dat".
QString penFilePattern();

/// Returns the pattern of the names of imported files: "*.txt".
QString importedFilePattern();

/// Returns the path that the pen file \a path gets when it is imported.
QString importedPath(const QString& path);

/// Returns \a directory and \a name joined as they are. Qt's own ways take a name that begins with
/// a colon for a resource and resolve ".." in the path itself, which behind a link leads to another
/// directory.
QString joinedPath(const QString& directory, const QString& name);

/// Returns the absolute path of \a directory, which is taken as it is; empty when that is empty.
QString absoluteDirectory(const QString& directory);

/// Returns the absolute path of the directory of pen files, the host's setting
/// "digitizer_file_directory": the root directory without it, empty when it is empty.
QString penDirectory();

} // namespace MavSystem
