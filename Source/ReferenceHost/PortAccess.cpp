// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/PortAccess.h"

#include "ReferenceHost/PortHolders.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QString userName(uid_t user)
{
    const passwd* const entry = getpwuid(user);
    return entry ? QString::fromLocal8Bit(entry->pw_name) : QString::number(user);
}

QString groupName(gid_t group)
{
    const ::group* const entry = getgrgid(group);
    return entry ? QString::fromLocal8Bit(entry->gr_name) : QString::number(group);
}

// Opened without waiting for a carrier and without becoming the program's terminal.
QString openProblem(const QString& path)
{
    const int port = open(QFile::encodeName(path).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (port < 0)
        return errno == EBUSY ? QStringLiteral("another program has %1 open: %2")
                                    .arg(path, holdersText(portHolders(path)))
                              : QStringLiteral("%1 does not open: %2")
                                    .arg(path, QString::fromLocal8Bit(std::strerror(errno)));
    const bool isTerminal = isatty(port) != 0;
    close(port);
    return isTerminal ? QString() : QStringLiteral("%1 is not a serial port").arg(path);
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
    const QString path = portPath(device);
    struct stat status;
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        return QStringLiteral("there is no port %1 ('digitizer ports' lists the ports)").arg(path);
    if (!S_ISCHR(status.st_mode))
        return QStringLiteral("%1 is not a serial port").arg(path);
    if (access(QFile::encodeName(path).constData(), R_OK | W_OK) == 0)
        return {};
    return rightsAdvice(
        {path, userName(status.st_uid), groupName(status.st_gid), status.st_mode & 0777U},
        userName(geteuid()));
}

QString portProblem(const QString& device)
{
    const QString problem = rightsProblem(device);
    return problem.isEmpty() ? openProblem(portPath(device)) : problem;
}

QString rightsAdvice(const PortRights& rights, const QString& user)
{
    constexpr unsigned groupMayUse = S_IRGRP | S_IWGRP;
    const QString start = QStringLiteral("%1 may not use %2").arg(user, rights.path);
    if ((rights.mode & groupMayUse) == groupMayUse && rights.group != QLatin1String("root"))
        return QStringLiteral("%1: it belongs to the group %2; join it with "
                              "'sudo usermod -aG %2 %3' and log in again")
            .arg(start, rights.group, user);
    return QStringLiteral("%1: only its owner %2 may (rights %3); let an administrator give it to "
                          "a group, such as dialout, with read and write rights")
        .arg(start, rights.owner,
             QString::number(rights.mode, 8).rightJustified(4, QLatin1Char('0')));
}
