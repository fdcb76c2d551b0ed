// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/TestHost.h"

#include <QProcess>

/// What a program of this project did.
struct ProgramRun
{
    int exitStatus;
    QString output;
    QString errors;
};

/// The program bin/digitizer, with its data and settings below "home" of \a host.
class DigitizerProcess : public QProcess
{
public:
    explicit DigitizerProcess(const TestHost& host)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), host.path(QStringLiteral("home")));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), host.path(QStringLiteral("home")));
        setProcessEnvironment(environment);
        setProgram(QStringLiteral(PROGRAM_DIRECTORY "/digitizer"));
    }

    /// Runs it to its end.
    ProgramRun run(const QStringList& arguments)
    {
        setArguments(arguments);
        start();
        return end();
    }

    /// Waits for the end of the running program.
    ProgramRun end()
    {
        if (!waitForFinished(20000))
            return {-1, {}, errorString()};
        return {exitCode(), QString::fromUtf8(readAllStandardOutput()),
                QString::fromUtf8(readAllStandardError())};
    }
};

/// Runs the program to its end.
inline ProgramRun runDigitizer(const TestHost& host, const QStringList& arguments)
{
    return DigitizerProcess(host).run(arguments);
}
