// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Lint/LintFinding.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace ReferenceHost {

/// The findings of one description file.
struct LintedFile
{
    QString path;
    std::optional<QString> unreadable; ///< why the file cannot be read
    QVector<LintFinding> findings;

    bool hasErrors() const;
};

/// Checks the files; none may have the name of another of them or of an installed driver. A file in
/// another folder with an equal file name counts as another version of the same description.
QVector<LintedFile> lintFiles(const QStringList& paths);

/// Checks the installed descriptions.
QVector<LintedFile> lintInstalledFiles();

} // namespace ReferenceHost
