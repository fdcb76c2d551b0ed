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
    const QVector<LintedFile> files = lintFiles(parser.positionalArguments());
    for (const LintedFile& file : files) {
        for (const LintFinding& finding : file.findings)
            lines += lineOf(file.path, finding) + QLatin1Char('\n');
        if (file.unreadable)
            printError(QStringLiteral("cannot read %1: %2").arg(file.path, *file.unreadable));
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
        QStringLiteral(
            "Finds faults that the library does not report: XML that is not well-formed, unknown "
            "elements and attributes, values and numbers that are not accepted, a template that "
            "does not fit \"length\", button codes that are equal or that no report can match, and "
            "a name that another installed file has. Each fault is one line that begins with "
            "FILE:LINE:COLUMN: and \"error\" or \"warning\"."),
        QStringLiteral("An error means that the library does not do what the file says. A warning "
                       "means that the file works as written, but may not be what you meant.")};
    command.arguments = {
        {QStringLiteral("FILE..."), QStringLiteral("The description files to check.")}};
    command.options = {listFormatOption()};
    command.examples = {{QStringLiteral("digitizer lint mine.xml"),
                         QStringLiteral("Check a description before installing it.")}};
    command.exitStatusNotes = QStringList{
        QStringLiteral("'lint' exits with 0 if there are no errors, even if there are warnings.")};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
