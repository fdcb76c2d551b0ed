// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Serial/PortList.h"

#include "DigitizerGeneric/Digitizer/PortRights.h"

#include <QJsonArray>
#include <QSerialPortInfo>

namespace ReferenceHost {

namespace {

QString hexadecimal(quint16 number)
{
    return QStringLiteral("%1").arg(number, 4, 16, QLatin1Char('0'));
}

PortEntry entryOf(const QSerialPortInfo& info)
{
    PortEntry port;
    port.path = info.systemLocation();
    port.description = info.description();
    port.maker = info.manufacturer();
    if (info.hasVendorIdentifier() && info.hasProductIdentifier())
        port.identifier = hexadecimal(info.vendorIdentifier()) + QLatin1Char(':') +
                          hexadecimal(info.productIdentifier());
    port.rightsProblem = MavSystem::rightsProblem(port.path);
    port.holders = portHolders(port.path);
    return port;
}

QString orNotKnown(const QString& text)
{
    return text.isEmpty() ? QStringLiteral("unknown") : text;
}

} // namespace

QVector<PortEntry> serialPorts()
{
    QVector<PortEntry> ports;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        ports.append(entryOf(info));
    return ports;
}

QString textOf(const PortEntry& port)
{
    const QString identifier =
        port.identifier.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(port.identifier);
    const QString rights =
        port.rightsProblem.isEmpty() ? QStringLiteral("you may use it") : port.rightsProblem;
    return QStringLiteral("%1\n"
                          "  description  %2\n"
                          "  maker        %3\n"
                          "  permission %4\n"
                          "  in use by    %5\n")
        .arg(port.path, orNotKnown(port.description), orNotKnown(port.maker) + identifier, rights,
             holdersText(port.holders));
}

QJsonObject jsonOf(const PortEntry& port)
{
    return {{QStringLiteral("port"), port.path},
            {QStringLiteral("description"), port.description},
            {QStringLiteral("maker"), port.maker},
            {QStringLiteral("identifier"), port.identifier},
            {QStringLiteral("usable"), port.rightsProblem.isEmpty()},
            {QStringLiteral("problem"), port.rightsProblem},
            {QStringLiteral("holders"), QJsonArray::fromStringList(port.holders.programs)},
            {QStringLiteral("holdersComplete"), port.holders.complete}};
}

} // namespace ReferenceHost
