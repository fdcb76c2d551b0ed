// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/TestHost.h"

#include <QProcess>

/// A shell of somebody who follows a page in the folder of the sources: the home of \a host, the
/// programs of this build first in the path, no terminal. It goes on where the last one with that
/// home ended, in its folder and with its variables, as a terminal does.
class PageShell : public QProcess
{
public:
    explicit PageShell(const TestHost& host)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* folder : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
            environment.remove(QLatin1String(folder));
        environment.insert(QStringLiteral("HOME"), host.path(QStringLiteral("home")));
        environment.insert(QStringLiteral("PATH"),
                           QStringLiteral(PROGRAM_DIRECTORY ":") + qEnvironmentVariable("PATH"));
        setProcessEnvironment(environment);
        setProcessChannelMode(QProcess::MergedChannels);
        setWorkingDirectory(QStringLiteral(SOURCE_DIRECTORY));
        QDir().mkpath(host.path(QStringLiteral("home")));
    }

    void run(const QString& commands)
    {
        const QString goOn = QStringLiteral(
            "[ ! -f ~/.terminal ] || . ~/.terminal\n"
            "trap '{ export -p; printf \"cd %q\\n\" \"$PWD\"; } >~/.terminal' EXIT\n");
        start(QStringLiteral("bash"), {QStringLiteral("-ec"), goOn + commands},
              QIODevice::ReadOnly);
    }
};
