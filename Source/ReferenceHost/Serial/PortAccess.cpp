// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Serial/PortAccess.h"

#include "DigitizerGeneric/Digitizer/PortRights.h"
#include "ReferenceHost/Serial/PortHolders.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace ReferenceHost {

using namespace MavSystem;

namespace {

const QString portsHint = QStringLiteral(" ('digitizer ports' lists the ports)");

// Opens without waiting for a carrier and without making the port the program's terminal.
QString problemOfOpening(const QString& path)
{
    const int port = open(QFile::encodeName(path).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (port < 0)
        return errno == EBUSY ? QStringLiteral("another program has %1 open: %2")
                                    .arg(path, holdersText(portHolders(path)))
                              : QStringLiteral("cannot open %1: %2")
                                    .arg(path, QString::fromLocal8Bit(std::strerror(errno)));
    const bool isTerminal = isatty(port) != 0;
    close(port);
    return isTerminal ? QString()
                      : QStringLiteral("%1 is not a serial port%2").arg(path, portsHint);
}

} // namespace

QString portProblem(const QString& device)
{
    const QString path = portPath(device);
    const QString problem = rightsProblem(device);
    if (problem.isEmpty())
        return problemOfOpening(path);
    const QFileInfo port(path);
    const bool isPort = port.exists() && !port.isFile() && !port.isDir();
    return isPort ? problem : problem + portsHint;
}

} // namespace ReferenceHost
