// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QString>

#include <cerrno>
#include <cstring>

#include <sys/mount.h>

/// A file system of \a kilobytes in memory at a directory, which is made. Mounting takes rights
/// that an ordinary user and many a container do not have; problem() then says so, and a test is
/// skipped.
class SmallDisk
{
public:
    SmallDisk(const QString& path, int kilobytes) : m_path(QFile::encodeName(path))
    {
        const QByteArray options = "size=" + QByteArray::number(kilobytes) + "k,mode=0755";
        if (!QDir().mkpath(path) ||
            mount("tmpfs", m_path.constData(), "tmpfs", MS_NOSUID, options.constData()) != 0)
            m_problem = QStringLiteral("cannot mount a small file system at %1 (root can): %2")
                            .arg(path, QString::fromLocal8Bit(std::strerror(errno)));
    }

    ~SmallDisk()
    {
        if (m_problem.isEmpty())
            umount2(m_path.constData(), MNT_DETACH);
    }

    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    QString problem() const { return m_problem; }

private:
    QByteArray m_path;
    QString m_problem;
};
