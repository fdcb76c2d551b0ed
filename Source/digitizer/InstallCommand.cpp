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
        return QStringLiteral("cannot read %1: %2").arg(file.path, *file.unreadable);
    if (file.hasErrors())
        return QStringLiteral("%1 was not installed; correct the errors above first")
            .arg(file.path);
    const auto installed = DescriptionFolder::install(file.path, existing);
    if (installed.problem.isEmpty())
        printOutput(QStringLiteral("\"%1\" is installed: %2\n")
                        .arg(installed.driver.name, installed.driver.file));
    return installed.isReplaceable
               ? QStringLiteral("%1 (--%2 replaces it)").arg(installed.problem, forceOption)
               : installed.problem;
}

int run(const QCommandLineParser& parser)
{
    const auto existing = parser.isSet(forceOption) ? DescriptionFolder::ExistingFile::Replaced
                                                    : DescriptionFolder::ExistingFile::Kept;
    int status = ExitSuccess;
    for (const LintedFile& file : lintFiles(parser.positionalArguments())) {
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
    command.summary = QStringLiteral("install device descriptions");
    command.description = QStringList{
        QStringLiteral(
            "Checks each file as 'digitizer lint' does, copies it to the folder of installed "
            "descriptions and prints its new path. From then on --driver accepts the name in it. A "
            "file with errors is not installed; warnings are only shown."),
        QStringLiteral("Other applications have separate folders. To use the description there, "
                       "install it with that application, or copy it to the folder \"generated\" "
                       "in the application's data folder.")};
    command.arguments = {
        {QStringLiteral("FILE..."), QStringLiteral("The description files to install.")}};
    command.options = {
        {forceOption, QStringLiteral("Replace an installed file of the same name.")}};
    command.examples = {
        {QStringLiteral("digitizer install my-table.xml"),
         QStringLiteral("Install a description; 'digitizer drivers' then lists it.")}};
    command.exitStatusNotes =
        QStringList{QStringLiteral("'install' exits with 0 if all files were installed.")};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
