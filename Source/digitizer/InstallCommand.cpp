// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/InstallCommand.h"

#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/Lint/LintFiles.h"

namespace ReferenceHost {

using namespace MavSystem;

namespace {

const QString forceOption = QStringLiteral("force");

// Returns an empty text, or why the file is not installed.
QString install(const LintedFile& file, DescriptionFolder::ExistingFile existing)
{
    for (const LintFinding& finding : file.findings)
        printError(textOf(file.path, finding));
    if (file.unreadable)
        return QStringLiteral("%1 cannot be read: %2").arg(file.path, *file.unreadable);
    if (file.hasErrors())
        return QStringLiteral("%1 is not installed: correct the errors above first").arg(file.path);
    const auto installed = DescriptionFolder::install(file.path, existing);
    if (installed.problem.isEmpty())
        printOutput(QStringLiteral("\"%1\" is installed: %2\n")
                        .arg(installed.driver.name, installed.driver.file));
    return installed.problem;
}

int run(const QCommandLineParser& parser)
{
    const auto existing = parser.isSet(forceOption) ? DescriptionFolder::ExistingFile::Replaced
                                                    : DescriptionFolder::ExistingFile::Kept;
    int status = ExitSuccess;
    for (const LintedFile& file : lintFiles(parser.positionalArguments(), installedFiles())) {
        const QString problem = install(file, existing);
        if (problem.isEmpty())
            continue;
        printError(problem);
        status = ExitFailure;
    }
    return status;
}

} // namespace

Command installCommand()
{
    Command command;
    command.name = QStringLiteral("install");
    command.summary = QStringLiteral("install device descriptions of your own");
    command.description = QStringList{
        QStringLiteral(
            "Checks each file as 'digitizer lint' does, copies it to the descriptions of "
            "this project's programs, and says where it went. A file with errors is not "
            "installed; warnings are shown. Its driver can then be used with --driver."),
        QStringLiteral("Another application has a folder of its own: install the file there too, "
                       "with what that application offers for it, or copy it to the folder "
                       "\"generated\" of its data.")};
    command.arguments = {{QStringLiteral("FILE..."), QStringLiteral("The descriptions.")}};
    command.options = {
        {forceOption, QStringLiteral("Replaces an installed file of the same name.")}};
    command.examples = {{QStringLiteral("digitizer install my-table.xml"),
                         QStringLiteral("From then on 'digitizer drivers' lists it.")}};
    command.exitStatusNotes =
        QStringList{QStringLiteral("'install' ends with 0 when all files are installed.")};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
