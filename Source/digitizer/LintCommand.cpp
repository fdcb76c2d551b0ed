// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/LintCommand.h"

#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Lint/LintFiles.h"

#include <QJsonDocument>

#include <algorithm>

namespace ReferenceHost {

namespace {

QString jsonLineOf(const QString& file, const LintFinding& finding)
{
    const QJsonDocument document(jsonOf(file, finding));
    return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

int run(const QCommandLineParser& parser)
{
    const auto lineOf = wantsJson(parser) ? jsonLineOf : textOf;
    QString lines;
    const QVector<LintedFile> files = lintFiles(parser.positionalArguments(), installedFiles());
    for (const LintedFile& file : files) {
        for (const LintFinding& finding : file.findings)
            lines += lineOf(file.path, finding) + QLatin1Char('\n');
        if (file.unreadable)
            printError(QStringLiteral("%1 cannot be read: %2").arg(file.path, *file.unreadable));
    }
    const bool wrong = std::any_of(files.begin(), files.end(),
                                   [](const LintedFile& file) { return file.hasErrors(); });
    return printOutput(lines) && !wrong ? ExitSuccess : ExitFailure;
}

} // namespace

Command lintCommand()
{
    Command command;
    command.name = QStringLiteral("lint");
    command.summary = QStringLiteral("find faults in device descriptions");
    command.description = QStringList{
        QStringLiteral("Says of description files what the driver takes without a message: XML "
                       "that is not well-formed, unknown elements and attributes, texts and "
                       "numbers that are not accepted, a template that does not fit its length, "
                       "button codes that are equal or that no report can match, a name that "
                       "another installed file has. Each fault is one line: FILE:LINE:COLUMN: "
                       "error or warning, what it is, what was found, what is accepted."),
        QStringLiteral("An error: the driver does something else than the file says, or nothing "
                       "at all. A warning: it works as written, but may not be what is meant.")};
    command.arguments = {{QStringLiteral("FILE..."), QStringLiteral("The descriptions.")}};
    command.options = {listFormatOption()};
    command.examples = {{QStringLiteral("digitizer lint mine.xml"),
                         QStringLiteral("Checks a description before it is installed.")}};
    command.exitStatusNotes = QStringList{
        QStringLiteral("'lint' ends with 0 when there are no errors, warnings or not.")};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
