// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/BeepCommand.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/RegularFile.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Descriptions/DriverOptions.h"
#include "ReferenceHost/Lint/XmlOutline.h"
#include "ReferenceHost/Serial/DeviceCheck.h"

#include <QFile>

namespace ReferenceHost {

namespace {

bool hasBeep(const MavSystem::DescribedDriver& driver)
{
    QFile file(driver.file);
    if (!MavSystem::openRegularFile(file).isEmpty())
        return false;
    const XmlOutline outline = xmlOutline(file.readAll());
    const XmlElement* beepString =
        outline.root ? outline.root->child(QStringLiteral("beepString")) : nullptr;
    return beepString && beepString->child(QStringLiteral("character"));
}

void requireBeep(const QString& driver)
{
    const auto described = requiredDriver(driver);
    if (!hasBeep(described))
        throw CommandError(
            QStringLiteral("the description %1 has no beep (an element \"beepString\")")
                .arg(described.file));
}

int run(const QCommandLineParser& parser)
{
    const QString driver = requiredValue(parser, QStringLiteral("driver"),
                                         QStringLiteral("'digitizer drivers' lists the names"));
    const QString device = requiredValue(parser, QStringLiteral("device"),
                                         QStringLiteral("'digitizer ports' lists the ports"));
    if (device == QLatin1String("File:"))
        throw CommandError(QStringLiteral("--device is File:, but a digital pen cannot beep"),
                           ExitUsage);
    requireBeep(driver);
    const QString problem = deviceProblem(driver, device);
    if (!problem.isEmpty())
        throw CommandError(problem);
    const auto digitizer = MavSystem::Digitizer::instance();
    if (!digitizer->open())
        return ExitFailure; // the library has shown why
    digitizer->digitBeep();
    digitizer->close();
    return ExitSuccess;
}

} // namespace

Command beepCommand()
{
    Command command;
    command.name = QStringLiteral("beep");
    command.summary = QStringLiteral("make a tablet beep");
    command.description = QStringList{
        QStringLiteral("Opens the tablet, sends the bytes of the description's \"beepString\", "
                       "shows them, and closes it. A tablet that beeps is at that port and "
                       "understands its settings; one that stays silent may have no beep.")};
    command.options = {{QStringLiteral("driver"),
                        QStringLiteral("The description to use; 'digitizer drivers' lists them."),
                        QStringLiteral("NAME")},
                       {QStringLiteral("device"),
                        QStringLiteral("The serial port, such as /dev/ttyUSB0."),
                        QStringLiteral("PORT")}};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
