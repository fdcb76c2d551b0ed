// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/StandardHost.h"

#include "ReferenceHost/Console.h"
#include "ReferenceHost/ShippedDescriptions.h"

#include <QCoreApplication>
#include <QStandardPaths>

namespace {

const char organization[] = "DigitizerGeneric";

void showLine(const QString& text, const QString& details)
{
    printError(details.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, details));
}

} // namespace

StandardHost::StandardHost(const QString& programName)
{
    QCoreApplication::setOrganizationName(QLatin1String(organization));
    QCoreApplication::setApplicationName(programName);
    setInstance(this);
    const QString problem = installShippedDescriptions(
        StandardHost::pluginsDir().filePath(QStringLiteral("digitizer/generated")),
        StandardHost::appDataLocation());
    if (!problem.isEmpty())
        printError(problem);
}

QDir StandardHost::pluginsDir() const
{
    return QDir(QCoreApplication::applicationDirPath() +
                QStringLiteral("/../share/DigitizerGeneric/Plugins"));
}

QDir StandardHost::appDataLocation() const
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                QLatin1Char('/') + QLatin1String(organization));
}

void StandardHost::displayWarning(const QString& text, const QString& details,
                                  QWidget* /*parent*/) const
{
    showLine(text, details);
}

void StandardHost::displayError(const QString& text, const QString& details,
                                QWidget* /*parent*/) const
{
    showLine(text, details);
}

int StandardHost::confirmContinue(const QString& text, const QString& /*title*/,
                                  const QString& /*first*/, const QString& /*second*/,
                                  const QString& third, QWidget* /*parent*/) const
{
    showLine(text, third);
    return 2;
}
