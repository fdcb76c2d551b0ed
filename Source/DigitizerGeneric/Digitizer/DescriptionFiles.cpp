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

// The name as the root element alone tells it. A file broken further down has none all the same;
// this is only good for passing over files that cannot match.
std::optional<QString> nameAtRoot(const QByteArray& content)
{
    BoundedXmlReader reader(content);
    while (reader.readNext() && !reader.token().isStartElement()) {
    }
    if (!reader.token().isStartElement())
        return std::nullopt;
    for (const QXmlStreamAttribute& attribute : reader.token().attributes()) {
        // The document parser does not know defaults that a document type declares.
        if (attribute.qualifiedName() == QLatin1String("name") && !attribute.isDefault())
            return attribute.value().toString();
    }
    return QString();
}

// The two parsers differ in the white space of attributes, so that must not exclude a file.
bool mayMatch(const QByteArray& content, const QString& driverName, BrokenFile brokenFile)
{
    if (driverName.isEmpty() && brokenFile == BrokenFile::Unnamed)
        return true;
    const std::optional<QString> name = nameAtRoot(content);
    return name && name->simplified() == driverName.simplified();
}

} // namespace

Content contentOf(const QString& path)
{
    QFile file(path);
    const QString problem = openRegularFile(file);
    if (!problem.isEmpty())
        return {path, QByteArray(), QStringLiteral("%1 cannot be read: %2").arg(path, problem)};
    const QByteArray bytes = file.read(DescriptionLimits::bytes + 1);
    if (bytes.size() <= DescriptionLimits::bytes)
        return {path, bytes, QString()};
    return {path, QByteArray(),
            QStringLiteral("%1 is larger than %2 bytes").arg(path).arg(DescriptionLimits::bytes)};
}

Parsed parse(const Content& content)
{
    if (!content.problem.isEmpty())
        return {QDomDocument(), content.problem};
    BoundedXmlReader reader(content.bytes);
    while (reader.readNext()) {
    }
    QDomDocument document;
    if (!reader.hasProblem() && document.setContent(reader.text(), false))
        return {document, QString()};
    return {QDomDocument(),
            QStringLiteral("%1 is not well-formed: %2").arg(content.path, reader.problem())};
}

QString nameOf(const QDomDocument& document)
{
    return document.documentElement().attribute(QStringLiteral("name"));
}

QString installedPath()
{
    return QDir(MavApplication::instance()->appDataLocation().path())
        .absoluteFilePath(QStringLiteral("generated"));
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
    return QDir(MavApplication::instance()->pluginsDir().path() +
                QStringLiteral("/digitizer/generated"));
}

QFileInfoList candidates(const QDir& folder)
{
    // Filters that a host has set on its QDir are not about descriptions.
    return QDir(folder.path()).entryInfoList(QDir::Files, QDir::Unsorted);
}

std::optional<Found> find(const QString& driverName, BrokenFile brokenFile)
{
    const std::optional<QDir> folder = installedFolder();
    if (!folder)
        return std::nullopt;
    for (const QFileInfo& file : candidates(*folder)) {
        const Content content = contentOf(file.absoluteFilePath());
        if (content.problem.isEmpty() && !mayMatch(content.bytes, driverName, brokenFile))
            continue;
        const Parsed parsed = parse(content);
        if (!parsed.problem.isEmpty()) {
            qCDebug(lcDescriptions).noquote() << parsed.problem;
            if (brokenFile == BrokenFile::Skipped)
                continue;
        }
        if (nameOf(parsed.document) == driverName)
            return Found{content.path, parsed.document};
    }
    qCDebug(lcDescriptions).noquote()
        << "no file in" << folder->absolutePath() << "describes" << driverName;
    return std::nullopt;
}

} // namespace MavSystem::DescriptionFiles
