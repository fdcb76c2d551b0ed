// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/CheckCommand.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/File_Digital/PenFilePaths.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Descriptions/DriverLookup.h"
#include "ReferenceHost/Serial/DeviceCheck.h"
#include "digitizer/DriverOptions.h"

namespace ReferenceHost {

using namespace MavSystem;

namespace {

int run(const QCommandLineParser& parser)
{
    const DescribedDriver driver = DriverOptions::chosen(parser);
    const QString device = requiredValue(parser, QStringLiteral("device"),
                                         QStringLiteral("'digitizer ports' lists the ports"));
    if (device != penDevice())
        valueOrThrow(DriverLookup::takingReports(driver));
    const QString problem = deviceProblem(driver, device);
    if (!problem.isEmpty())
        throw CommandError(problem);
    return printOutput(Digitizer::deviceExist() + QLatin1Char('\n')) ? ExitSuccess : ExitFailure;
}

} // namespace

Command checkCommand()
{
    Command command;
    command.name = QStringLiteral("check");
    command.summary = QStringLiteral("check whether a tablet or a pen can be used");
    command.description = QStringList{QStringLiteral(
        "Checks that the driver exists and that the port can be opened. Prints \"No Error has "
        "occurred\", or why the device cannot be used and what to do about it. Nothing is "
        "sent to the tablet, so a tablet that is switched off passes as well.")};
    command.options = {
        DriverOptions::driver(),
        DriverOptions::description(),
        {QStringLiteral("device"),
         QStringLiteral(
             "Use serial port PORT, such as /dev/ttyUSB0, or File: for the digital pen."),
         QStringLiteral("PORT")}};
    command.examples = {{QStringLiteral("digitizer check --driver \"Generic 5-5-1 (ASCII)\" "
                                        "--device /dev/ttyUSB0"),
                         QStringLiteral("Check whether that tablet can be used at that port.")}};
    command.exitStatusNotes =
        QStringList{QStringLiteral("'check' exits with 0 if the device can be used.")};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
