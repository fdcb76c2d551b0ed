// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <stdexcept>

namespace ReferenceHost {

/// What a program tells its caller when it ends.
enum ExitStatus {
    ExitSuccess = 0,
    ExitFailure = 1, ///< what was asked for could not be done
    ExitUsage = 2,   ///< it was asked for in a wrong way
};

/// Ends a command with one line on the error stream; the program's name is put in front of it.
/// To be thrown from Command::run only, never through an event loop.
class CommandError : public std::runtime_error
{
public:
    explicit CommandError(const QString& text, ExitStatus status = ExitFailure)
        : std::runtime_error(text.toStdString()), m_status(status)
    {}

    ExitStatus status() const { return m_status; }

private:
    ExitStatus m_status;
};

/// A positional argument; "[FILE]" may be left out, "FILE..." may be repeated, "[FILE...]" both.
struct CommandArgument
{
    QString name;
    QString explanation;
};

struct CommandExample
{
    QString commandLine;
    QString explanation;
};

/// A command of a program: what the command line accepts, what the help says, and what is run.
struct Command
{
    QString name;
    QString summary;         ///< one line, no full stop
    QStringList description; ///< paragraphs
    QVector<CommandArgument> arguments;
    QList<QCommandLineOption> options; ///< "--help" comes by itself
    QVector<CommandExample> examples;
    QStringList exitStatusNotes; ///< paragraphs on what this command means by 0 and 1
    /// Returns the exit status. The parser has accepted the options and the number of arguments.
    std::function<int(const QCommandLineParser&)> run;
};

/// A program: several commands, of which the first word of the command line names one; or a single
/// command without name, summary and description of its own, which takes the whole command line.
struct Program
{
    QString name;
    QString version;
    QString summary;         ///< one line, no full stop
    QStringList description; ///< paragraphs
    QVector<Command> commands;
    QVector<CommandArgument> files; ///< paths and their meaning, for the manual page
};

} // namespace ReferenceHost
