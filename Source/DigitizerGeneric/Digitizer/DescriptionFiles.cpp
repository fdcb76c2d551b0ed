// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"

#include "DigitizerGeneric/Digitizer/Diagnostics.h"
#include "MavCore/MavApplication.h"

#include <QFile>
#include <QXmlStreamReader>

namespace MavSystem::DescriptionFiles {

namespace {

struct Inspection
{
    bool wellFormed = false;
    QString problem; // why not, for the diagnostics
};

std::optional<QByteArray> contentWithinLimit(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qCDebug(lcDescriptions).noquote() << path << "cannot be opened:" << file.errorString();
        return std::nullopt;
    }
    QByteArray content = file.size() > maximumBytes ? QByteArray() : file.read(maximumBytes + 1);
    if (file.size() <= maximumBytes && content.size() <= maximumBytes)
        return content;
    qCDebug(lcDescriptions).noquote() << path << "is larger than" << maximumBytes << "bytes";
    return std::nullopt;
}

// The name as the root element alone tells it. A file broken further down has none all the same;
// this is only good for passing over files that cannot match.
std::optional<QString> nameAtRoot(const QByteArray& content)
{
    QXmlStreamReader reader(content);
    reader.setNamespaceProcessing(false);
    if (!reader.readNextStartElement())
        return std::nullopt;
    for (const QXmlStreamAttribute& attribute : reader.attributes()) {
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

qint64 expandedCharacters(const QXmlStreamReader& reader)
{
    qint64 characters = reader.text().size();
    for (const QXmlStreamAttribute& attribute : reader.attributes())
        characters += attribute.value().size();
    return characters;
}

Inspection inspect(const QByteArray& content)
{
    QXmlStreamReader reader(content);
    reader.setNamespaceProcessing(false);
    int nesting = 0;
    qint64 characters = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        nesting += reader.isStartElement() ? 1 : reader.isEndElement() ? -1 : 0;
        characters += expandedCharacters(reader);
        if (nesting > maximumNesting)
            return {false, QStringLiteral("more than %1 elements deep").arg(maximumNesting)};
        if (characters > maximumExpandedCharacters)
            return {
                false,
                QStringLiteral("text of more than %1 characters").arg(maximumExpandedCharacters)};
    }
    if (reader.hasError()) {
        return {false, QStringLiteral("line %1, column %2: %3")
                           .arg(reader.lineNumber())
                           .arg(reader.columnNumber())
                           .arg(reader.errorString())};
    }
    return {true, QString()};
}

// The document parser recurses and expands without limit, so it only sees what has been walked.
QDomDocument parse(const QString& path, const QByteArray& content)
{
    const Inspection inspection = inspect(content);
    QDomDocument document;
    if (inspection.wellFormed && document.setContent(content, false))
        return document;
    qCDebug(lcDescriptions).noquote() << path << "is not well-formed:" << inspection.problem;
    return QDomDocument();
}

} // namespace

std::optional<QDir> installedFolder()
{
    QDir folder = MavApplication::instance()->appDataLocation();
    if (folder.cd(QStringLiteral("generated")))
        return folder;
    qCDebug(lcDescriptions).noquote()
        << "there is no folder \"generated\" in" << folder.absolutePath();
    return std::nullopt;
}

QFileInfoList candidates(const QDir& folder)
{
    return folder.entryInfoList(QDir::Files, QDir::Unsorted);
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
