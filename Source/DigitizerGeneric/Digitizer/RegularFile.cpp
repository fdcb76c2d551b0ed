// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/RegularFile.h"

#include <QSaveFile>
#include <QTemporaryFile>
#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace MavSystem {

namespace {

// To the device, so that a full disk is noticed here.
bool transfer(QFile& from, QFile& to)
{
    for (;;) {
        const QByteArray block = from.read(65536);
        if (block.isEmpty())
            return from.error() == QFileDevice::NoError && to.flush();
        if (to.write(block) != block.size())
            return false;
    }
}

} // namespace

#ifdef Q_OS_UNIX

namespace {

QString reasonOf(int error)
{
    return error == 0 ? QStringLiteral("not a regular file") : qt_error_string(error);
}

// Looked at before the open, since opening a device can act on it, and again behind it, since the
// name may have become another's meanwhile.
int descriptorOf(const QByteArray& name, int& error)
{
    error = 0;
    struct stat status = {};
    if (::stat(name.constData(), &status) != 0) {
        error = errno;
        return -1;
    }
    if (!S_ISREG(status.st_mode))
        return -1;
    const int descriptor = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) {
        error = errno;
        return -1;
    }
    if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode))
        return descriptor;
    ::close(descriptor);
    return -1;
}

} // namespace

QString openRegularFile(QFile& file, QIODevice::OpenMode mode)
{
    int error = 0;
    const int descriptor = descriptorOf(QFile::encodeName(file.fileName()), error);
    if (descriptor < 0)
        return reasonOf(error);
    return file.open(descriptor, QIODevice::ReadOnly | mode, QFileDevice::AutoCloseHandle)
               ? QString()
               : file.errorString();
}

#else

QString openRegularFile(QFile& file, QIODevice::OpenMode mode)
{
    return file.open(QIODevice::ReadOnly | mode) ? QString() : file.errorString();
}

#endif

bool copyRegularFile(const QString& source, const QString& target)
{
    QFile original(source);
    QTemporaryFile copy(target + QLatin1String(".XXXXXX")); // has no name until the rename
    if (!openRegularFile(original).isEmpty() || !copy.open() || !transfer(original, copy) ||
        !copy.setPermissions(original.permissions()) || !copy.rename(target))
        return false;
    copy.setAutoRemove(false);
    return true;
}

QString replaceFile(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    // commit() notices neither a write that found room for a part only nor a flush that found none.
    const bool replaced = file.open(QIODevice::WriteOnly) &&
                          file.write(content) == content.size() && file.flush() && file.commit();
    return replaced ? QString() : file.errorString();
}

} // namespace MavSystem
