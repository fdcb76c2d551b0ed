// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/CommandLine/CommandLine.h"

#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/HelpPage.h"
#include "ReferenceHost/CommandLine/NearestNames.h"

namespace ReferenceHost {

namespace {

CommandError usageError(const QString& text, const QString& helpCommand)
{
    return CommandError(QStringLiteral("%1 (see '%2 --help')").arg(text, helpCommand), ExitUsage);
}

QString optionsMeant(const QString& unknown, const QList<QCommandLineOption>& options)
{
    QStringList names = {QStringLiteral("--help")};
    for (const QCommandLineOption& option : options)
        names << QStringLiteral("--") + option.names().constLast();
    return suggestion(unknown, names);
}

// The parser's own text, except that an unknown option comes with the nearest known ones.
QString parsingProblem(const QCommandLineParser& parser, const Command& command)
{
    const QStringList unknown = parser.unknownOptionNames();
    if (unknown.isEmpty()) {
        const QString text = parser.errorText();
        return text.left(1).toLower() + text.mid(1, text.size() - 2);
    }
    const QString& name = unknown.constFirst();
    return QStringLiteral("unknown option %1%2%3")
        .arg(QLatin1String(name.size() > 1 ? "--" : "-"), name,
             optionsMeant(name, command.options));
}

QString argumentsProblem(const QStringList& given, const Command& command)
{
    int required = 0;
    bool repeatable = false;
    for (const CommandArgument& argument : command.arguments) {
        required += argument.name.startsWith(QLatin1Char('[')) ? 0 : 1;
        repeatable = repeatable || argument.name.contains(QLatin1String("..."));
    }
    if (given.size() < required)
        return QStringLiteral("%1 is missing")
            .arg(QString(command.arguments.at(given.size()).name).remove(QLatin1String("...")));
    if (given.size() > command.arguments.size() && !repeatable)
        return QStringLiteral("unexpected argument '%1'").arg(given.at(command.arguments.size()));
    return {};
}

int runCommand(const Program& program, const Command& command, QStringList arguments)
{
    const QString callName = callNameOf(program, command);
    QCommandLineParser parser;
    parser.addOptions(command.options);
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    parser.addOption(help);
    arguments.prepend(callName);
    const bool accepted = parser.parse(arguments);
    if (parser.isSet(help)) {
        printOutput(textOf(commandPage(program, command)));
        return ExitSuccess;
    }
    const QString problem = accepted ? argumentsProblem(parser.positionalArguments(), command)
                                     : parsingProblem(parser, command);
    if (!problem.isEmpty())
        throw usageError(problem, callName);
    return command.run(parser);
}

int runNamedCommand(const Program& program, const QStringList& arguments)
{
    QStringList names;
    for (const Command& command : program.commands) {
        if (!arguments.isEmpty() && command.name == arguments.constFirst())
            return runCommand(program, command, arguments.mid(1));
        names << command.name;
    }
    if (arguments.isEmpty())
        throw usageError(QStringLiteral("a command is missing"), program.name);
    const QString& given = arguments.constFirst();
    const bool isOption = given.startsWith(QLatin1Char('-'));
    throw usageError(QStringLiteral("%1 '%2'%3")
                         .arg(QLatin1String(isOption ? "unknown option" : "unknown command"), given,
                              isOption ? QString() : suggestion(given, names)),
                     program.name);
}

int run(const Program& program, const QStringList& arguments)
{
    const QString first = arguments.value(0);
    if (first == QLatin1String("--version") || first == QLatin1String("-v")) {
        printOutput(QStringLiteral("%1 %2\n").arg(program.name, program.version));
        return ExitSuccess;
    }
    if (first == QLatin1String("--manual-page")) {
        printOutput(manualPageOf(program));
        return ExitSuccess;
    }
    if (isSingle(program))
        return runCommand(program, program.commands.constFirst(), arguments);
    if (first == QLatin1String("--help") || first == QLatin1String("-h")) {
        printOutput(textOf(programPage(program)));
        return ExitSuccess;
    }
    return runNamedCommand(program, arguments);
}

} // namespace

int runProgram(const Program& program, const QStringList& arguments)
{
    try {
        return run(program, arguments.mid(1));
    } catch (const CommandError& error) {
        printError(QString::fromUtf8(error.what()));
        return error.status();
    }
}

} // namespace ReferenceHost
