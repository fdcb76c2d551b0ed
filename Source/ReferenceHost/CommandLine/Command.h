// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

#include <tl/expected.hpp>

#include <functional>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace ReferenceHost {

/// The exit status of a program.
enum ExitStatus {
    ExitSuccess = 0,
    ExitFailure = 1, ///< the command failed
    ExitUsage = 2,   ///< the command line is wrong
};

/// Ends a command with one line on standard error, which begins with the program's name. To be
/// thrown from Command::run only, never through an event loop.
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

/// Returns the value of \a result, or throws a CommandError with its error.
template <typename Value>
Value valueOrThrow(tl::expected<Value, QString> result, ExitStatus status = ExitFailure)
{
    if (!result)
        throw CommandError(result.error(), status);
    if constexpr (!std::is_void_v<Value>)
        return *std::move(result);
}

/// A positional argument. "[FILE]" is optional, "FILE..." may be repeated, "[FILE...]" is both.
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

/// A command of a program: its arguments and options, its help, and the function that runs it.
struct Command
{
    QString name;
    QString summary;         ///< one line, no full stop
    QStringList description; ///< paragraphs
    QVector<CommandArgument> arguments;
    QList<QCommandLineOption> options; ///< "--help" is added to them
    QVector<CommandExample> examples;
    QStringList exitStatusNotes; ///< paragraphs on when this command exits with 0 or 1
    /// Returns the exit status. The parser has accepted the options and the number of arguments.
    std::function<int(const QCommandLineParser&)> run;
};

/// A program. It has several commands, and the first word of the command line names one of them. Or
/// it has a single command, without name, summary and description, that takes the whole command
/// line.
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
