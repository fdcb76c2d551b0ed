// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Lint/LintFiles.h"

#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "ReferenceHost/Lint/DescriptionLint.h"

#include <algorithm>

namespace ReferenceHost {

namespace {

using MavSystem::DescriptionFiles::Content;

struct NamedFile
{
    QString path;
    QString driver;
};

QString driverIn(const Content& content)
{
    return MavSystem::DescriptionFiles::nameOf(
        MavSystem::DescriptionFiles::parse(content).document);
}

QString fileNameOf(const QString& path)
{
    return QFileInfo(path).fileName();
}

QMap<QString, QString> namesBeside(const QString& path, const QVector<NamedFile>& files)
{
    QMap<QString, QString> names;
    for (const NamedFile& file : files) {
        if (fileNameOf(file.path) != fileNameOf(path))
            names.insert(file.driver, file.path);
    }
    return names;
}

LintedFile lintFile(const Content& content, const QVector<NamedFile>& others)
{
    if (QFileInfo(content.path).isDir())
        return {content.path, QStringLiteral("not a regular file"), {}};
    if (!content.unreadable.isEmpty())
        return {content.path, content.unreadable, {}};
    return {content.path, std::nullopt,
            lintDescription(content.bytes, namesBeside(content.path, others))};
}

} // namespace

bool LintedFile::hasErrors() const
{
    return unreadable || std::any_of(findings.begin(), findings.end(), [](const auto& finding) {
               return finding.severity == LintFinding::Error;
           });
}

QVector<LintedFile> lintFiles(const QStringList& paths)
{
    QVector<NamedFile> named;
    for (const MavSystem::DescribedDriver& driver : MavSystem::DescriptionFolder::drivers())
        named.append({driver.file, driver.name});
    QVector<Content> contents;
    for (const QString& path : paths) {
        contents.append(MavSystem::DescriptionFiles::contentOf(path));
        named.append({path, driverIn(contents.constLast())});
    }
    QVector<LintedFile> linted;
    for (const Content& content : contents)
        linted.append(lintFile(content, named));
    return linted;
}

QVector<LintedFile> lintInstalledFiles()
{
    const QDir folder(MavSystem::DescriptionFolder::path());
    QStringList paths;
    for (const QString& file : folder.entryList(QDir::Files, QDir::Name))
        paths << folder.filePath(file);
    return lintFiles(paths);
}

} // namespace ReferenceHost
