// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/PenFileStamp.h"

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#else
#include <QDateTime>
#include <QFileInfo>
#endif

namespace MavSystem {

#ifdef Q_OS_UNIX

namespace {

PenFileStamp stampOf(int failure, const struct stat& status)
{
    if (failure != 0)
        return {};
    return {qint64(status.st_size),
            qint64(status.st_mtim.tv_sec) * 1000000000 + qint64(status.st_mtim.tv_nsec),
            quint64(status.st_dev), quint64(status.st_ino)};
}

} // namespace

PenFileStamp PenFileStamp::of(const QString& path)
{
    struct stat status = {};
    const int failure = ::stat(QFile::encodeName(path).constData(), &status);
    return stampOf(failure, status);
}

PenFileStamp PenFileStamp::of(const QFile& file)
{
    struct stat status = {};
    const int failure = ::fstat(file.handle(), &status);
    return stampOf(failure, status);
}

#else

PenFileStamp PenFileStamp::of(const QString& path)
{
    const QFileInfo file(path);
    if (!file.exists())
        return {};
    return {file.size(), file.lastModified().toMSecsSinceEpoch() * 1000000, 0, 0};
}

PenFileStamp PenFileStamp::of(const QFile& file)
{
    return of(file.fileName());
}

#endif

} // namespace MavSystem
