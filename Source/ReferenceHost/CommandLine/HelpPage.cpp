// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/CommandLine/HelpPage.h"

namespace ReferenceHost {

namespace {

constexpr int lineWidth = 80;
constexpr int termWidth = 28;

QString termOf(const QCommandLineOption& option)
{
    QStringList names;
    for (const QString& name : option.names())
        names << QLatin1String(name.size() > 1 ? "--" : "-") + name;
    const QString term = names.join(QStringLiteral(", "));
    return option.valueName().isEmpty() ? term : term + QLatin1Char(' ') + option.valueName();
}

QVector<CommandArgument> entriesOf(const Command& command)
{
    QVector<CommandArgument> entries = command.arguments;
    for (const QCommandLineOption& option : command.options) {
        if (!(option.flags() & QCommandLineOption::HiddenFromHelp))
            entries.append({termOf(option), option.description()});
    }
    entries.append({QStringLiteral("-h, --help"), QStringLiteral("Show this help.")});
    return entries;
}

QString usageOf(const Program& program, const Command& command)
{
    QString usage = callNameOf(program, command) + QStringLiteral(" [OPTIONS]");
    for (const CommandArgument& argument : command.arguments)
        usage += QLatin1Char(' ') + argument.name;
    return usage;
}

HelpSection exitStatusSection(const QStringList& notes)
{
    HelpSection section;
    section.title = QStringLiteral("Exit status");
    section.paragraphs = notes;
    section.entries = {
        {QStringLiteral("0"), QStringLiteral("Success.")},
        {QStringLiteral("1"), QStringLiteral("Failure; a message on standard error says why.")},
        {QStringLiteral("2"), QStringLiteral("Wrong command line.")}};
    return section;
}

HelpSection examplesSection(const QVector<CommandExample>& examples)
{
    HelpSection section;
    section.title = QStringLiteral("Examples");
    for (const CommandExample& example : examples)
        section.entries.append({example.commandLine, example.explanation});
    return section;
}

QString wrapped(const QString& text, int indentation)
{
    const QString margin(indentation, QLatin1Char(' '));
    QString lines;
    QString line;
    for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (!line.isEmpty() && indentation + line.size() + 1 + word.size() > lineWidth) {
            lines += margin + line + QLatin1Char('\n');
            line.clear();
        }
        line += line.isEmpty() ? word : QLatin1Char(' ') + word;
    }
    return lines + margin + line + QLatin1Char('\n');
}

QString entryText(const CommandArgument& entry)
{
    const QString term = QStringLiteral("  ") + entry.name;
    if (term.size() + 2 > termWidth)
        return term + QLatin1Char('\n') + wrapped(entry.explanation, termWidth);
    return term.leftJustified(termWidth) + wrapped(entry.explanation, termWidth).mid(termWidth);
}

// A leading dot or apostrophe would be a request, and a hyphen would be printed as a dash.
QString escaped(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\e"));
    text.replace(QLatin1Char('-'), QLatin1String("\\-"));
    if (text.startsWith(QLatin1Char('.')) || text.startsWith(QLatin1Char('\'')))
        text.prepend(QLatin1String("\\&"));
    return text;
}

QString roffOf(const HelpSection& section)
{
    const bool isMain = section.level == HelpSection::Main;
    QString text = QLatin1String(isMain ? ".SH " : ".SS ") +
                   escaped(isMain ? section.title.toUpper() : section.title) + QLatin1Char('\n');
    for (const QString& paragraph : section.paragraphs)
        text += QStringLiteral(".PP\n%1\n").arg(escaped(paragraph));
    for (const CommandArgument& entry : section.entries)
        text += QStringLiteral(".TP\n\\fB%1\\fP\n%2\n")
                    .arg(escaped(entry.name), escaped(entry.explanation));
    return text;
}

HelpPage commandSections(const Program& program)
{
    HelpPage page = {{QStringLiteral("Commands"), {}, {}}};
    for (const Command& command : program.commands)
        page.append(
            {usageOf(program, command), command.description, entriesOf(command), HelpSection::Sub});
    return page;
}

HelpPage manualSections(const Program& program)
{
    QVector<CommandExample> examples;
    QStringList notes;
    for (const Command& command : program.commands) {
        examples += command.examples;
        notes += command.exitStatusNotes;
    }
    const Command& first = program.commands.constFirst();
    HelpPage page = {{QStringLiteral("Description"), program.description, {}}};
    if (isSingle(program))
        page.append({QStringLiteral("Options"), {}, entriesOf(first)});
    else
        page += commandSections(program);
    page << exitStatusSection(notes);
    if (!program.files.isEmpty())
        page.append({QStringLiteral("Files"), {}, program.files});
    if (!examples.isEmpty())
        page << examplesSection(examples);
    return page;
}

QString synopsisOf(const Program& program)
{
    return isSingle(program) ? usageOf(program, program.commands.constFirst())
                             : program.name + QStringLiteral(" COMMAND [OPTIONS]");
}

} // namespace

bool isSingle(const Program& program)
{
    return program.commands.size() == 1 && program.commands.constFirst().name.isEmpty();
}

QString callNameOf(const Program& program, const Command& command)
{
    return isSingle(program) ? program.name : program.name + QLatin1Char(' ') + command.name;
}

HelpPage programPage(const Program& program)
{
    HelpSection commands;
    commands.title = QStringLiteral("Commands");
    for (const Command& command : program.commands)
        commands.entries.append({command.name, command.summary});
    const QString more =
        QStringLiteral("'%1 COMMAND --help' shows the help of a command.").arg(program.name);
    return {{QStringLiteral("Usage"), {synopsisOf(program)}, {}},
            {QString(), program.description, {}},
            commands,
            {QString(), {more}, {}}};
}

HelpPage commandPage(const Program& program, const Command& command)
{
    HelpPage page = {{QStringLiteral("Usage"), {usageOf(program, command)}, {}},
                     {QString(), isSingle(program) ? program.description : command.description, {}},
                     {QStringLiteral("Options"), {}, entriesOf(command)}};
    if (!command.exitStatusNotes.isEmpty())
        page << exitStatusSection(command.exitStatusNotes);
    if (!command.examples.isEmpty())
        page << examplesSection(command.examples);
    return page;
}

QString textOf(const HelpPage& page)
{
    QString text;
    for (const HelpSection& section : page) {
        if (!text.isEmpty())
            text += QLatin1Char('\n');
        if (!section.title.isEmpty())
            text += section.title + QStringLiteral(":\n");
        const int indentation = section.title.isEmpty() ? 0 : 2;
        QStringList paragraphs;
        for (const QString& paragraph : section.paragraphs)
            paragraphs << wrapped(paragraph, indentation);
        text += paragraphs.join(QLatin1Char('\n'));
        for (const CommandArgument& entry : section.entries)
            text += entryText(entry);
    }
    return text;
}

QString manualPageOf(const Program& program)
{
    QString text = QStringLiteral(".TH %1 1 \"\" \"%2 %3\" \"User Commands\"\n")
                       .arg(program.name.toUpper(), program.name, program.version);
    text += QStringLiteral(".SH NAME\n%1 \\- %2\n.SH SYNOPSIS\n.B %3\n")
                .arg(escaped(program.name), escaped(program.summary), escaped(synopsisOf(program)));
    for (const HelpSection& section : manualSections(program))
        text += roffOf(section);
    return text;
}

} // namespace ReferenceHost
