// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/PortRights.h"

#include "QextSerialPort/PortErrors.h"

#include <QFileInfo>

namespace MavSystem {

namespace {

// Qt has four bits for each of the user, the owner, the group and the others, the user's on top.
unsigned modeOf(QFile::Permissions permissions)
{
    const auto bits = unsigned(permissions);
    return (bits >> 12 & 7U) << 6 | (bits >> 4 & 7U) << 3 | (bits & 7U);
}

} // namespace

QString portPath(const QString& device)
{
    // The port layer looks for a relative path below /dev.
    return device.contains(QLatin1Char('/')) ? QFileInfo(device).absoluteFilePath()
                                             : QStringLiteral("/dev/") + device;
}

QString rightsProblem(const QString& device)
{
    const QFileInfo port(portPath(device));
    if (!port.exists())
        return QStringLiteral(
                   "there is no port %1; check the name, and whether the cable is plugged in")
            .arg(port.filePath());
    if (port.isFile() || port.isDir())
        return QStringLiteral("%1 is not a serial port").arg(port.filePath());
    if (port.isReadable() && port.isWritable())
        return {};
    return rightsAdvice({port.filePath(), port.owner(), port.group(), modeOf(port.permissions())});
}

QString openProblem(const QString& device, const QString& answer)
{
    // The permissions are sufficient, so another program has the port.
    const bool isTaken =
        answer == QLatin1String(PortErrors::locked) || answer == QLatin1String(PortErrors::denied);
    return isTaken
               ? QStringLiteral("another program has %1 open; close that program first").arg(device)
               : QStringLiteral("cannot open %1: %2").arg(portPath(device), answer);
}

QString rightsAdvice(const PortRights& rights)
{
    constexpr unsigned groupMayUse = 060;
    const QString start = QStringLiteral("you may not use %1").arg(rights.path);
    if ((rights.mode & groupMayUse) == groupMayUse && rights.group != QLatin1String("root"))
        return QStringLiteral("%1: it belongs to the group %2; join it with "
                              "'sudo usermod -aG %2 $USER' and log in again")
            .arg(start, rights.group);
    return QStringLiteral("%1: only its owner %2 may (permissions %3); ask an administrator to "
                          "give a group, such as dialout, read and write permission")
        .arg(start, rights.owner,
             QString::number(rights.mode, 8).rightJustified(4, QLatin1Char('0')));
}

} // namespace MavSystem
