// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/RenameWithoutReplacing.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#endif

namespace MavSystem {

namespace {

int renameAfterLook(const QByteArray& from, const QByteArray& to)
{
    const QFileInfo target(QFile::decodeName(to));
    if (target.exists() || target.isSymLink())
        return EEXIST;
    return std::rename(from.constData(), to.constData()) == 0 ? 0 : errno;
}

// Not QFile::rename(): where the system refuses, that copies and removes, which changes a watched
// directory again and again, and it writes through a link that leads nowhere.
int renameOrErrno(const QByteArray& from, const QByteArray& to)
{
#ifdef RENAME_NOREPLACE
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    const int error = errno;
    if (error != EINVAL && error != ENOSYS && error != EOPNOTSUPP)
        return error;
#endif
    return renameAfterLook(from, to);
}

} // namespace

QString renameWithoutReplacing(const QString& from, const QString& to)
{
    const int error = renameOrErrno(QFile::encodeName(from), QFile::encodeName(to));
    return error == 0 ? QString() : qt_error_string(error);
}

} // namespace MavSystem
