// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/BeepCommand.h"

#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"
#include "DigitizerGeneric/Digitizer/DescriptionParsing.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/File_Digital/PenFilePaths.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Serial/DeviceCheck.h"
#include "digitizer/DriverOptions.h"

namespace ReferenceHost {

namespace {

bool hasBeep(const MavSystem::DescribedDriver& driver)
{
    const auto file = MavSystem::DescriptionFiles::load(driver.file);
    return !MavSystem::beepCommandOf(file.document.documentElement()).isEmpty();
}

void requireBeep(const MavSystem::DescribedDriver& driver)
{
    if (!hasBeep(driver))
        throw CommandError(
            QStringLiteral(
                "the description %1 defines no beep: it has no \"beepString\" with a \"character\"")
                .arg(driver.file));
}

int run(const QCommandLineParser& parser)
{
    const auto driver = DriverOptions::installed(parser);
    const QString device = requiredValue(parser, QStringLiteral("device"),
                                         QStringLiteral("'digitizer ports' lists the ports"));
    if (device == MavSystem::penDevice())
        throw CommandError(
            QStringLiteral("--device is File:, but a digital pen cannot beep; give a serial port"),
            ExitUsage);
    requireBeep(driver);
    const QString problem = deviceProblem(driver, device);
    if (!problem.isEmpty())
        throw CommandError(problem);
    const auto digitizer = MavSystem::Digitizer::instance();
    if (!digitizer->open())
        return ExitFailure; // the library has shown the reason
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
        QStringLiteral("Opens the port, sends the bytes of \"beepString\" in the description, "
                       "prints them and closes the port. If the tablet beeps, the port and the "
                       "serial settings are right. If it stays silent, it may have no beeper.")};
    command.options = {DriverOptions::driver(),
                       {QStringLiteral("device"),
                        QStringLiteral("Use serial port PORT, such as /dev/ttyUSB0."),
                        QStringLiteral("PORT")}};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
