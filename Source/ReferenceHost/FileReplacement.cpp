// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/FileReplacement.h"

#include <QSaveFile>

QString replaceFile(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    // commit() notices neither a write that found room for a part only nor a flush that found none.
    const bool replaced = file.open(QIODevice::WriteOnly) &&
                          file.write(content) == content.size() && file.flush() && file.commit();
    return replaced ? QString() : file.errorString();
}
