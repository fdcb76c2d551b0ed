// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"
#include "DigitizerGeneric/Digitizer/DescriptionParsing.h"
#include "DigitizerGeneric/Digitizer/FieldDecoding.h"
#include "ReferenceHost/Lint/DescriptionLint.h"

#include <QtTest>

#include <map>

/// The descriptions of this repository, and what the driver and the checker make of any.
namespace Descriptions {

/// Returns the content of a file of the repository, which ends the program if it cannot be read.
inline QByteArray contentOf(const QString& path)
{
    QFile file(QDir(QStringLiteral(SOURCE_DIRECTORY)).filePath(path));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

inline std::map<QString, QByteArray> filesIn(const QString& folder)
{
    std::map<QString, QByteArray> files;
    for (const QFileInfo& file :
         QDir(QStringLiteral(SOURCE_DIRECTORY "/") + folder).entryInfoList(QDir::Files))
        files[file.fileName()] = contentOf(file.filePath());
    return files;
}

/// Returns the shipped descriptions and the annotated example, by their file names.
inline std::map<QString, QByteArray> files()
{
    auto files = filesIn(QStringLiteral("Plugins/digitizer/generated"));
    files.merge(filesIn(QStringLiteral("Examples/descriptions")));
    return files;
}

inline MavSystem::DigitizerArgument parse(const QByteArray& content)
{
    const auto file = MavSystem::DescriptionFiles::parse({QString(), content, QString()});
    return MavSystem::parseDescription(file.document.documentElement()).description;
}

inline MavSystem::DigitalReport decode(const MavSystem::DigitizerArgument& description,
                                       const QByteArray& report)
{
    using namespace MavSystem;
    return FieldDecoding::reportOf(description, ReportLayout(description), report.constData(),
                                   FieldDecoding::decodeButton | FieldDecoding::decodeCoordinate);
}

inline QString textOf(const MavSystem::DigitalReport& report)
{
    return QStringLiteral("%1 %2 %3")
        .arg(report.coordinate().x(), 0, 'f', 9)
        .arg(report.coordinate().y(), 0, 'f', 9)
        .arg(report.m_button_number);
}

/// Returns what lint says of the file "x" with \a content, one finding a line.
inline QString lintOf(const QByteArray& content)
{
    QStringList lines;
    for (const ReferenceHost::LintFinding& finding : ReferenceHost::lintDescription(content))
        lines << ReferenceHost::textOf(QStringLiteral("x"), finding);
    return lines.join(QLatin1Char('\n'));
}

} // namespace Descriptions
