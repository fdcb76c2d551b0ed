// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/ShippedDescriptions.h"

#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"
#include "DigitizerGeneric/Digitizer/RegularFile.h"

#include <QCryptographicHash>
#include <QSettings>

namespace MavSystem {

namespace {

QVector<ShippedDescription> descriptionsOfHost()
{
    QVector<ShippedDescription> shipped;
    for (const QFileInfo& file : DescriptionFiles::candidates(DescriptionFiles::folderOfHost())) {
        const auto content = DescriptionFiles::contentOf(file.absoluteFilePath());
        if (content.problem().isEmpty())
            shipped.append({file.fileName(), content.bytes});
    }
    return shipped;
}

QVector<ShippedDescription> descriptionsOfLibrary()
{
    QVector<ShippedDescription> shipped;
    for (const QFileInfo& resource :
         DescriptionFiles::candidates(DescriptionFiles::folderOfLibrary())) {
        QFile file(resource.filePath());
        if (file.open(QIODevice::ReadOnly))
            shipped.append({resource.fileName(), file.readAll()});
    }
    return shipped;
}

QString digestOf(const QByteArray& content)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex());
}

// Returns why the file is not up to date; one that is not ours to change is.
QString installFile(const ShippedDescription& shipped, const QString& target, QSettings& record)
{
    const bool exists = QFileInfo(target).isSymLink() || QFileInfo::exists(target);
    const QString digest = digestOf(shipped.content);
    const QString recorded = record.value(shipped.name).toString();
    // Up to date or changed by its owner: there is no need to read it.
    if (exists && recorded == digest)
        return {};
    const auto installed = DescriptionFiles::contentOf(target);
    if (exists && !installed.problem().isEmpty())
        return {};
    if (!exists || installed.bytes != shipped.content) {
        if (exists && digestOf(installed.bytes) != recorded)
            return {};
        const QString problem = writeDescription(target, shipped.content);
        if (!problem.isEmpty())
            return problem;
    }
    if (recorded != digest)
        record.setValue(shipped.name, digest);
    return {};
}

} // namespace

QVector<ShippedDescription> shippedDescriptions()
{
    const QVector<ShippedDescription> ofHost = descriptionsOfHost();
    return ofHost.isEmpty() ? descriptionsOfLibrary() : ofHost;
}

QString installShippedDescriptions(const QVector<ShippedDescription>& shipped,
                                   const QString& folder)
{
    if (!QDir().mkpath(folder))
        return QStringLiteral("cannot create the folder %1; a file may have its name, or you may "
                              "not write there")
            .arg(folder);
    const QString recordPath =
        QFileInfo(folder).path() + QStringLiteral("/shipped-descriptions.ini");
    QSettings record(recordPath, QSettings::IniFormat);
    for (const ShippedDescription& description : shipped) {
        const QString problem =
            installFile(description, folder + QLatin1Char('/') + description.name, record);
        if (!problem.isEmpty())
            return problem;
    }
    record.sync();
    return record.status() == QSettings::NoError
               ? QString()
               : QStringLiteral("cannot write to %1, which records the shipped descriptions")
                     .arg(recordPath);
}

QString writeDescription(const QString& path, const QByteArray& content)
{
    const QString folder = QFileInfo(path).path();
    if (!QDir().mkpath(folder))
        return QStringLiteral("cannot create the folder %1; a file may have its name, or you may "
                              "not write there")
            .arg(folder);
    const QString problem = replaceFile(path, content);
    return problem.isEmpty()
               ? QString()
               : QStringLiteral("cannot write the description %1: %2").arg(path, problem);
}

} // namespace MavSystem
