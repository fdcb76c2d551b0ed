// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/CommandLine/Console.h"

#include <QCoreApplication>

#include <cstdio>

namespace ReferenceHost {

bool printOutput(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    return std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout) ==
               size_t(bytes.size()) &&
           std::fflush(stdout) == 0;
}

void printError(const QString& text)
{
    const QString line =
        QStringLiteral("%1: %2\n").arg(QCoreApplication::applicationName(), text.simplified());
    std::fputs(line.toUtf8().constData(), stderr);
}

} // namespace ReferenceHost
