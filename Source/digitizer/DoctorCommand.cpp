// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/DoctorCommand.h"

#include "DigitizerGeneric/Digitizer/SettingKeys.h"
#include "DigitizerGeneric/DigitizerGenericVersion.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/PrivateNames.h"
#include "ReferenceHost/Lint/LintFiles.h"
#include "ReferenceHost/Serial/PortList.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QSysInfo>

namespace ReferenceHost {

namespace {

QString section(const QString& title, const QString& lines)
{
    return QStringLiteral("%1\n%2\n")
        .arg(title, lines.isEmpty() ? QStringLiteral("  none\n") : lines);
}

QString entry(const QString& name, const QString& value)
{
    return QStringLiteral("  %1  %2\n").arg(name.leftJustified(16), value);
}

QString versions()
{
    return entry(QStringLiteral("DigitizerGeneric"), MavSystem::versionText()) +
           entry(QStringLiteral("Qt"),
                 QStringLiteral("%1, built with %2")
                     .arg(QLatin1String(qVersion()), QLatin1String(QT_VERSION_STR))) +
           entry(QStringLiteral("kernel"),
                 QSysInfo::kernelType() + QLatin1Char(' ') + QSysInfo::kernelVersion()) +
           entry(QStringLiteral("distribution"), QSysInfo::prettyProductName()) +
           entry(QStringLiteral("processor"), QSysInfo::currentCpuArchitecture());
}

QString ports()
{
    QString lines;
    for (const PortEntry& port : serialPorts())
        lines += QStringLiteral("  ") +
                 textOf(port).trimmed().replace(QLatin1Char('\n'), QLatin1String("\n  ")) +
                 QLatin1Char('\n');
    return lines;
}

QString descriptions()
{
    QString lines;
    for (const LintedFile& file : lintInstalledFiles()) {
        const QString name = QFileInfo(file.path).fileName();
        const QString state = file.unreadable           ? *file.unreadable
                              : file.findings.isEmpty() ? QStringLiteral("no faults")
                                                        : QStringLiteral("see below");
        lines += QStringLiteral("  %1: %2\n").arg(name, state);
        for (const LintFinding& finding : file.findings)
            lines += QStringLiteral("    %1\n").arg(textOf(name, finding));
    }
    return lines;
}

// Only the keys that the driver reads; a host may keep private values in the same place.
QString settings()
{
    const QSettings stored;
    QString lines;
    for (const char* const key : MavSystem::SettingKeys::all) {
        if (stored.contains(QLatin1String(key)))
            lines += entry(QLatin1String(key), stored.value(QLatin1String(key)).toString());
    }
    return lines;
}

int run(const QCommandLineParser& /*parser*/)
{
    const QString report = section(QStringLiteral("Versions"), versions()) +
                           section(QStringLiteral("Serial ports"), ports()) +
                           section(QStringLiteral("Installed descriptions"), descriptions()) +
                           section(QStringLiteral("Settings"), settings());
    const bool printed = printOutput(withoutPrivateNames(report, ownPrivateNames()));
    return printed ? ExitSuccess : ExitFailure;
}

} // namespace

Command doctorCommand()
{
    Command command;
    command.name = QStringLiteral("doctor");
    command.summary = QStringLiteral("print system information to attach to a question");
    command.description = QStringList{
        QStringLiteral("Prints what others need to know to help you: versions, serial ports and "
                       "who may use them, the installed descriptions and their faults, and the "
                       "driver's settings. Your home folder is shown as ~. The names of the user "
                       "and of the machine, and all environment variables, are left out.")};
    command.examples = {{QStringLiteral("digitizer doctor > doctor.txt"),
                         QStringLiteral("Write the information to a file.")}};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
