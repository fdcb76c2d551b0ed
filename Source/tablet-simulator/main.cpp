// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/DigitizerGenericVersion.h"
#include "ReferenceHost/CommandLine/CommandLine.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/StopSignals.h"
#include "ReferenceHost/Host/StandardHost.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "tablet-simulator/PortLink.h"
#include "tablet-simulator/SimulatorOptions.h"
#include "tablet-simulator/TabletRun.h"

#include <QCoreApplication>

using namespace TabletSimulation;
using namespace ReferenceHost;

namespace {

int run(const QCommandLineParser& parser)
{
    const SimulatorOptions options = SimulatorOptions::parse(parser);
    PseudoTerminal tablet;
    if (!tablet.isOpen())
        throw CommandError(
            QStringLiteral("cannot open a pseudo-terminal: %1").arg(tablet.errorString()));
    PortLink link;
    if (!options.link.isEmpty())
        valueOrThrow(link.create(options.link, tablet.path()));
    TabletRun tabletRun(tablet, options.run);
    const StopSignals stop;
    QObject::connect(&stop, &StopSignals::stopRequested, &tabletRun, &TabletRun::stop);
    printOutput((options.link.isEmpty() ? tablet.path() : options.link) + QLatin1Char('\n'));
    return tabletRun.send(options.writes) ? ExitSuccess : ExitFailure;
}

Command simulatorCommand()
{
    Command command;
    command.options = SimulatorOptions::accepted();
    command.examples = {
        {QStringLiteral("tablet-simulator --driver 'Generic 5-5-1 (ASCII)' --link /tmp/tablet"),
         QStringLiteral("Wait until a program opens /tmp/tablet, then trace a bodice front.")},
        {QStringLiteral("tablet-simulator --replay session.log --fast"),
         QStringLiteral("Send a recorded session again.")},
    };
    command.exitStatusNotes = QStringList{QStringLiteral(
        "The status is 0 if everything was sent, and 1 if the simulator was stopped before that.")};
    command.run = run;
    return command;
}

Program simulatorProgram()
{
    Program program;
    program.name = QStringLiteral("tablet-simulator");
    program.version = MavSystem::versionText();
    program.summary = QStringLiteral("simulate a digitizing tablet on a pseudo-terminal");
    program.description = QStringList{
        QStringLiteral("Opens a pseudo-terminal, prints its path, waits until a program opens it "
                       "as a serial port, and sends reports as the tablet would. What the program "
                       "sends, such as a beep, is printed on standard error."),
        QStringLiteral("The built-in piece is a bodice front. Button 1 is a corner, 2 a curve "
                       "point, 3 a punch hole, 4 the end of the piece and, on tablets with sixteen "
                       "buttons, 5 a notch. With four buttons, the notches are left out. The "
                       "\"Lectra E92\" numbers its four buttons from 2.")};
    program.commands = {simulatorCommand()};
    return program;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const Program program = simulatorProgram();
    const StandardHost host(program.name);
    return runProgram(program, application.arguments());
}
