// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/PortsCommand.h"

#include "ReferenceHost/CommandLine/Console.h"
#include "ReferenceHost/CommandLine/OptionValues.h"
#include "ReferenceHost/Serial/PortList.h"

#include <QJsonDocument>

namespace ReferenceHost {

namespace {

QString lineOf(const PortEntry& port)
{
    return QString::fromUtf8(QJsonDocument(jsonOf(port)).toJson(QJsonDocument::Compact)) +
           QLatin1Char('\n');
}

int run(const QCommandLineParser& parser)
{
    const bool json = wantsJson(parser);
    QStringList entries;
    for (const PortEntry& port : serialPorts())
        entries << (json ? lineOf(port) : textOf(port));
    if (entries.isEmpty())
        throw CommandError(QStringLiteral("this machine has no serial port; plug the adapter in, "
                                          "or give a program that needs none its path"));
    return printOutput(entries.join(QLatin1String(json ? "" : "\n"))) ? ExitSuccess : ExitFailure;
}

} // namespace

Command portsCommand()
{
    Command command;
    command.name = QStringLiteral("ports");
    command.summary = QStringLiteral("list the serial ports and who may use them");
    command.description = QStringList{
        QStringLiteral("Lists the serial ports of this machine: what the adapter is, whether this "
                       "user may use it and otherwise what to do, and which programs have it open. "
                       "No port is opened for it. A program of another user is seen by root "
                       "only.")};
    command.options = {listFormatOption()};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
