// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/CommandLine.h"
#include "ReferenceHost/StandardHost.h"
#include "digitizer/DriversCommand.h"
#include "digitizer/LintCommand.h"

#include <QCoreApplication>

namespace {

Program digitizerProgram()
{
    Program program;
    program.name = QStringLiteral("digitizer");
    program.version = QStringLiteral(DIGITIZER_VERSION);
    program.summary = QStringLiteral("take points from digitizing tablets and digital pens");
    program.description = QStringList{
        QStringLiteral("Takes points from a digitizing tablet on a serial port, described by an "
                       "XML file, or from the files of a digital pen. Coordinates are "
                       "centimetres.")};
    program.commands = {
        driversCommand(),
        lintCommand(),
    };
    program.files = {
        {QStringLiteral("~/.local/share/DigitizerGeneric/generated"),
         QStringLiteral("The installed device descriptions. Files of your own may be added; a "
                        "file that you have changed is never overwritten.")},
        {QStringLiteral("~/.config/DigitizerGeneric/digitizer.conf"),
         QStringLiteral("The settings.")}};
    return program;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const Program program = digitizerProgram();
    const StandardHost host(program.name);
    return runProgram(program, application.arguments());
}
