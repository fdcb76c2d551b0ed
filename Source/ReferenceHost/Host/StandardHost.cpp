// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Host/StandardHost.h"

#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "ReferenceHost/CommandLine/Console.h"

#include <QCoreApplication>
#include <QStandardPaths>

namespace ReferenceHost {

using namespace MavSystem;

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
    const QString problem = DescriptionFolder::prepare();
    if (!problem.isEmpty())
        printError(problem);
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

} // namespace ReferenceHost
