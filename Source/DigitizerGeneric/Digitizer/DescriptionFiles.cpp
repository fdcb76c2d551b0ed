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

std::optional<QByteArray> contentWithinLimit(const QString& path)
{
    QFile file(path);
    const QString problem = openRegularFile(file);
    if (!problem.isEmpty()) {
        qCDebug(lcDescriptions).noquote() << path << "cannot be opened:" << problem;
        return std::nullopt;
    }
    QByteArray content = file.size() > DescriptionLimits::bytes
                             ? QByteArray()
                             : file.read(DescriptionLimits::bytes + 1);
    if (file.size() <= DescriptionLimits::bytes && content.size() <= DescriptionLimits::bytes)
        return content;
    qCDebug(lcDescriptions).noquote()
        << path << "is larger than" << DescriptionLimits::bytes << "bytes";
    return std::nullopt;
}

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

QDomDocument parse(const QString& path, const QByteArray& content)
{
    BoundedXmlReader reader(content);
    while (reader.readNext()) {
    }
    QDomDocument document;
    if (!reader.hasProblem() && document.setContent(reader.text(), false))
        return document;
    qCDebug(lcDescriptions).noquote() << path << "is not well-formed:" << reader.problem();
    return QDomDocument();
}

} // namespace

std::optional<QDir> installedFolder()
{
    QDir folder(MavApplication::instance()->appDataLocation().path());
    if (folder.cd(QStringLiteral("generated")))
        return folder;
    qCDebug(lcDescriptions).noquote()
        << "there is no folder \"generated\" in" << folder.absolutePath();
    return std::nullopt;
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
        const QString path = file.absoluteFilePath();
        const std::optional<QByteArray> content = contentWithinLimit(path);
        if (content && !mayMatch(*content, driverName, brokenFile))
            continue;
        const QDomDocument document = content ? parse(path, *content) : QDomDocument();
        if (document.isNull() && brokenFile == BrokenFile::Skipped)
            continue;
        if (document.documentElement().attribute(QStringLiteral("name")) == driverName)
            return Found{path, document};
    }
    qCDebug(lcDescriptions).noquote()
        << "no file in" << folder->absolutePath() << "describes" << driverName;
    return std::nullopt;
}

} // namespace MavSystem::DescriptionFiles
