// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"

#include "DigitizerGeneric/Digitizer/BoundedXmlReader.h"
#include "DigitizerGeneric/Digitizer/Diagnostics.h"
#include "DigitizerGeneric/Digitizer/RegularFile.h"
#include "MavCore/MavApplication.h"

#include <QFile>

namespace MavSystem::DescriptionFiles {

namespace {

const char folderName[] = "generated";

// The name as the root element alone tells it; empty when there is none. A file broken further down
// has none all the same; this is only good for passing over files that cannot match.
QString nameAtRoot(const QByteArray& content)
{
    BoundedXmlReader reader(content);
    while (reader.readNext() && !reader.token().isStartElement()) {
    }
    for (const QXmlStreamAttribute& attribute : reader.token().attributes()) {
        // The document parser does not know defaults that a document type declares.
        if (attribute.qualifiedName() == QLatin1String("name") && !attribute.isDefault())
            return attribute.value().toString();
    }
    return {};
}

// The two parsers differ in the white space of attributes, so that must not exclude a file. A
// broken file has no name.
bool mayMatch(const QByteArray& content, const QString& driverName)
{
    return driverName.isEmpty() || nameAtRoot(content).simplified() == driverName.simplified();
}

} // namespace

QString Content::problem() const
{
    if (!unreadable.isEmpty())
        return QStringLiteral("%1 cannot be read: %2").arg(path, unreadable);
    if (bytes.size() > DescriptionLimits::bytes)
        return QStringLiteral("%1 is larger than %2 bytes").arg(path).arg(DescriptionLimits::bytes);
    return {};
}

Content contentOf(const QString& path)
{
    QFile file(path);
    const QString unreadable = openRegularFile(file);
    if (!unreadable.isEmpty())
        return {path, QByteArray(), unreadable};
    return {path, file.read(DescriptionLimits::bytes + 1), QString()};
}

Loaded parse(const Content& content)
{
    const QString problem = content.problem();
    if (!problem.isEmpty())
        return {content.path, QDomDocument(), problem};
    BoundedXmlReader reader(content.bytes);
    const QDomDocument document = reader.document();
    if (!reader.hasProblem())
        return {content.path, document, QString()};
    return {content.path, QDomDocument(),
            QStringLiteral("%1 is not well-formed: %2").arg(content.path, reader.problem())};
}

Loaded load(const QString& path)
{
    return parse(contentOf(path));
}

QString nameOf(const QDomDocument& document)
{
    return document.documentElement().attribute(QStringLiteral("name"));
}

QString installedPath()
{
    return QDir(MavApplication::instance()->appDataLocation().path())
        .absoluteFilePath(QLatin1String(folderName));
}

std::optional<QDir> installedFolder()
{
    const QDir folder(installedPath());
    if (folder.exists())
        return folder;
    qCDebug(lcDescriptions).noquote() << "there is no folder" << folder.path();
    return std::nullopt;
}

QDir folderOfHost()
{
    return QDir(MavApplication::instance()->pluginsDir().path() + QLatin1String("/digitizer/") +
                QLatin1String(folderName));
}

QDir folderOfLibrary()
{
    return QDir(QLatin1String(":/DigitizerGeneric/") + QLatin1String(folderName));
}

QFileInfoList candidates(const QDir& folder)
{
    // Filters that a host has set on its QDir are not about descriptions.
    return QDir(folder.path()).entryInfoList(QDir::Files, QDir::Unsorted);
}

QVector<Loaded> all()
{
    QVector<Loaded> files;
    for (const QFileInfo& file : candidates(QDir(installedPath())))
        files.append(load(file.absoluteFilePath()));
    return files;
}

std::optional<Loaded> find(const QString& driverName, BrokenFile brokenFile)
{
    const std::optional<QDir> folder = installedFolder();
    if (!folder)
        return std::nullopt;
    for (const QFileInfo& file : candidates(*folder)) {
        const Content content = contentOf(file.absoluteFilePath());
        if (content.problem().isEmpty() && !mayMatch(content.bytes, driverName))
            continue;
        Loaded loaded = parse(content);
        if (!loaded.problem.isEmpty()) {
            qCDebug(lcDescriptions).noquote() << loaded.problem;
            if (brokenFile == BrokenFile::Skipped)
                continue;
        }
        if (nameOf(loaded.document) == driverName)
            return loaded;
    }
    qCDebug(lcDescriptions).noquote()
        << "no file in" << folder->absolutePath() << "describes" << driverName;
    return std::nullopt;
}

} // namespace MavSystem::DescriptionFiles
