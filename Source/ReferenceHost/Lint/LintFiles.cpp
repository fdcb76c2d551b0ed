// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Lint/LintFiles.h"

#include "DigitizerGeneric/Digitizer/BoundedXmlReader.h"
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/RegularFile.h"
#include "ReferenceHost/Lint/DescriptionLint.h"
#include "ReferenceHost/Lint/XmlOutline.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace ReferenceHost {

namespace {

struct NamedFile
{
    QString path;
    QString driver;
};

// One byte more than a description may have, which is enough to find that it is too large.
QByteArray beginningOf(QFile& file)
{
    return file.read(MavSystem::DescriptionLimits::bytes + 1);
}

QString driverIn(const QString& path)
{
    QFile file(path);
    if (!MavSystem::openRegularFile(file).isEmpty())
        return {};
    const XmlOutline outline = xmlOutline(beginningOf(file));
    const XmlAttribute* name =
        outline.root ? outline.root->attribute(QStringLiteral("name")) : nullptr;
    return name ? name->value : QString();
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

LintedFile lintFile(const QString& path, const QVector<NamedFile>& others)
{
    QFile file(path);
    // Opening a folder works, and so does reading nothing from it.
    if (QFileInfo(path).isDir())
        return {path, QStringLiteral("it is a folder"), {}};
    const QString problem = MavSystem::openRegularFile(file);
    if (!problem.isEmpty())
        return {path, problem, {}};
    return {path, std::nullopt, lintDescription(beginningOf(file), namesBeside(path, others))};
}

} // namespace

bool LintedFile::hasErrors() const
{
    return unreadable || std::any_of(findings.begin(), findings.end(), [](const auto& finding) {
               return finding.severity == LintFinding::Error;
           });
}

QVector<LintedFile> lintFiles(const QStringList& paths, const QStringList& installed)
{
    QVector<NamedFile> named;
    for (const QString& path : installed + paths)
        named.append({path, driverIn(path)});
    QVector<LintedFile> linted;
    for (const QString& path : paths)
        linted.append(lintFile(path, named));
    return linted;
}

QStringList installedFiles()
{
    const QDir folder(MavSystem::DescriptionFolder::path());
    QStringList paths;
    for (const QString& file : folder.entryList(QDir::Files, QDir::Name))
        paths << folder.filePath(file);
    return paths;
}

} // namespace ReferenceHost
