// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Host/StandardHost.h"

#include "ReferenceHost/CommandLine/Console.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <memory>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

const char organization[] = "DigitizerGeneric";

std::unique_ptr<QTemporaryDir> s_onlyData; // see useOnly()

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
    const QString problem = DescriptionFolder::prepare();
    if (!problem.isEmpty())
        printError(problem);
}

DescriptionFolder::Result StandardHost::useOnly(const QString& file)
{
    s_onlyData = std::make_unique<QTemporaryDir>();
    DescriptionFolder::Result only = DescriptionFolder::install(file);
    only.driver.file = file;
    return only;
}

QDir StandardHost::appDataLocation() const
{
    if (s_onlyData)
        return QDir(s_onlyData->path());
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

} // namespace ReferenceHost
