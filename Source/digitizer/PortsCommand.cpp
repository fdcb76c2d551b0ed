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
        throw CommandError(
            QStringLiteral("no serial port was found; plug in the adapter (pseudo-terminals are "
                           "not listed, but --device takes their paths)"));
    return printOutput(entries.join(QLatin1String(json ? "" : "\n"))) ? ExitSuccess : ExitFailure;
}

} // namespace

Command portsCommand()
{
    Command command;
    command.name = QStringLiteral("ports");
    command.summary = QStringLiteral("list the serial ports and who may use them");
    command.description = QStringList{
        QStringLiteral("Lists the serial ports of this machine: what the adapter is, whether you "
                       "may use the port and what to do if not, and which programs have it open. "
                       "No port is opened. Only root sees the programs of other users.")};
    command.options = {listFormatOption()};
    command.run = run;
    return command;
}

} // namespace ReferenceHost
