// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/ShippedDescriptions.h"

#include "DigitizerGeneric/Digitizer/RegularFile.h"
#include "ReferenceHost/FileReplacement.h"

#include <QCryptographicHash>
#include <QFile>
#include <QSettings>

#include <optional>

namespace {

std::optional<QByteArray> contentOf(const QString& path)
{
    QFile file(path);
    if (!MavSystem::openRegularFile(file).isEmpty())
        return std::nullopt;
    return file.readAll();
}

QString digestOf(const QByteArray& content)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex());
}

// Returns whether the installed file is up to date or not ours to change.
bool installFile(const QByteArray& content, const QString& target, const QString& name,
                 QSettings& record)
{
    const QString digest = digestOf(content);
    const std::optional<QByteArray> installed = contentOf(target);
    if (!installed && QFile::exists(target))
        return true;
    const bool isShippedOne = installed && digestOf(*installed) == digest;
    const bool isOurs = !installed || digestOf(*installed) == record.value(name).toString();
    if (!isShippedOne && !isOurs)
        return true;
    if (!isShippedOne && !replaceFile(target, content).isEmpty())
        return false;
    if (record.value(name).toString() != digest)
        record.setValue(name, digest);
    return true;
}

} // namespace

QString installShippedDescriptions(const QDir& shipped, const QDir& data)
{
    const QString folder = data.absoluteFilePath(QStringLiteral("generated"));
    if (!QDir().mkpath(folder))
        return QStringLiteral("cannot create the folder %1").arg(folder);
    QSettings record(data.absoluteFilePath(QStringLiteral("shipped-descriptions.ini")),
                     QSettings::IniFormat);
    for (const QString& name : QDir(shipped.path()).entryList(QDir::Files)) {
        const QString target = folder + QLatin1Char('/') + name;
        const std::optional<QByteArray> content = contentOf(shipped.absoluteFilePath(name));
        if (content && !installFile(*content, target, name, record))
            return QStringLiteral("cannot write the description %1").arg(target);
    }
    return {};
}
