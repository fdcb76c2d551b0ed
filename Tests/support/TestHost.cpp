// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "support/TestHost.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace {
// A host's folders may have filters, which the driver must not apply: these hide all files.
QDir filtered(const QString& path)
{
    return QDir(path, QStringLiteral("*.none"), QDir::Name, QDir::Dirs);
}

} // namespace

TestHost::TestHost()
{
    QCoreApplication::setOrganizationName(QStringLiteral("DigitizerTests"));
    QCoreApplication::setApplicationName(QStringLiteral("test"));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       path(QStringLiteral("settings")));
    QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope,
                       path(QStringLiteral("system-settings")));
    setInstance(this);
}

TestHost::~TestHost()
{
    setInstance(nullptr);
}

QDir TestHost::pluginsDir() const
{
    return filtered(path(QStringLiteral("plugins")));
}

QDir TestHost::appDataLocation() const
{
    return filtered(path(QStringLiteral("data")));
}

void TestHost::displayWarning(const QString& text, const QString& details,
                              QWidget* /*parent*/) const
{
    warnings << text + details;
    duringDialog();
}

void TestHost::displayError(const QString& text, const QString& details, QWidget* /*parent*/) const
{
    errors << text + details;
    duringDialog();
}

int TestHost::confirmContinue(const QString& text, const QString& title, const QString& first,
                              const QString& second, const QString& third,
                              QWidget* /*parent*/) const
{
    questions << QStringList{text, title, first, second, third}.join(QLatin1Char('|'));
    duringDialog();
    return answer;
}

QString TestHost::write(const QString& relativePath, const QByteArray& content)
{
    const QString name = path(relativePath);
    QDir().mkpath(QFileInfo(name).path());
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(name));
    return name;
}

QString TestHost::writeDescription(const QString& name, const QByteArray& content)
{
    return write(QStringLiteral("data/generated/") + name, content);
}
