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

/// Runs bin/digitizer to its end, with its data and settings below "home" of \a host.
inline ProgramRun runDigitizer(const TestHost& host, const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), host.path(QStringLiteral("home")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), host.path(QStringLiteral("home")));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(PROGRAM_DIRECTORY "/digitizer"), arguments);
    if (!process.waitForFinished(20000))
        return {-1, {}, process.errorString()};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}
