// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/TestHost.h"

#include <QProcess>
#include <QtTest>

/// A program of this build, with its data and settings below "home" of \a host.
class DigitizerProcess : public QProcess
{
public:
    DigitizerProcess(const TestHost& host, const QString& program, const QStringList& arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* folder : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
            environment.insert(QLatin1String(folder), host.path(QStringLiteral("home")));
        setProcessEnvironment(environment);
        setWorkingDirectory(host.path(QString()));
        start(QStringLiteral(PROGRAM_DIRECTORY "/") + program, arguments);
    }

    ~DigitizerProcess() override
    {
        kill();
        waitForFinished();
    }

    /// What it has printed so far.
    QString output() { return m_output += QString::fromUtf8(readAllStandardOutput()); }
    QString errors() { return m_errors += QString::fromUtf8(readAllStandardError()); }

    /// Waits until it has printed \a text \a times.
    bool prints(const QString& text, int times = 1)
    {
        return QTest::qWaitFor([&] { return (output() + errors()).count(text) >= times; }, 20000);
    }

    /// Waits for its end and returns the exit status; -1 if it does not end by itself.
    int end()
    {
        const bool ended = QTest::qWaitFor([&] { return state() == NotRunning; }, 20000);
        return ended && exitStatus() == NormalExit ? exitCode() : -1;
    }

private:
    QString m_output;
    QString m_errors;
};
