// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/DigitizerGenericVersion.h"
#include "ReferenceHost/CommandLine/CommandLine.h"
#include "ReferenceHost/Host/StandardHost.h"
#include "digitizer/BeepCommand.h"
#include "digitizer/CaptureCommand.h"
#include "digitizer/CheckCommand.h"
#include "digitizer/DescribeCommand.h"
#include "digitizer/DoctorCommand.h"
#include "digitizer/DriversCommand.h"
#include "digitizer/ImportCommand.h"
#include "digitizer/InstallCommand.h"
#include "digitizer/LintCommand.h"
#include "digitizer/MonitorCommand.h"
#include "digitizer/PortsCommand.h"

#include <QGuiApplication>

#include <algorithm>
#include <memory>

using namespace ReferenceHost;

namespace {

Program digitizerProgram()
{
    Program program;
    program.name = QStringLiteral("digitizer");
    program.version = MavSystem::versionText();
    program.summary = QStringLiteral("take points from digitizing tablets and digital pens");
    program.description = QStringList{QStringLiteral(
        "Takes points from a digitizing tablet on a serial port or from the files of a digital "
        "pen. An XML description says what the tablet sends. Coordinates are in centimetres.")};
    program.commands = {
        captureCommand(), importCommand(),  driversCommand(), checkCommand(),
        portsCommand(),   beepCommand(),    monitorCommand(), describeCommand(),
        lintCommand(),    installCommand(), doctorCommand(),
    };
    program.files = {
        {QStringLiteral("~/.local/share/DigitizerGeneric/generated"),
         QStringLiteral("The installed device descriptions. 'digitizer install' adds more. An "
                        "update never overwrites a file that you have changed.")},
        {QStringLiteral("~/.config/DigitizerGeneric/digitizer.conf"),
         QStringLiteral("The settings of this program.")}};
    return program;
}

bool paintsPicture(int argc, char** argv)
{
    return std::any_of(argv, argv + argc, [](const char* argument) {
        return qstrncmp(argument, "--picture", 9) == 0;
    });
}

// Only the text in pictures needs a QGuiApplication; nothing needs a display.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv)
{
    if (!paintsPicture(argc, argv))
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // A program without windows need not warn about a missing desktop session.
    const QtMessageHandler handler =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    auto application = std::make_unique<QGuiApplication>(argc, argv);
    qInstallMessageHandler(handler);
    return application;
}

} // namespace

int main(int argc, char** argv)
{
    const auto application = makeApplication(argc, argv);
    const Program program = digitizerProgram();
    const StandardHost host(program.name);
    return runProgram(program, application->arguments());
}
