// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace MavSystem {

/// Opens \a file, whose name is set, for reading if it is a regular file or a link to one. Returns
/// an empty text, or why it is not open.
///
/// Never blocks, as opening a link to a pipe without a writer would. To be used for every file from
/// outside. \a mode is added to QIODevice::ReadOnly.
QString openRegularFile(QFile& file, QIODevice::OpenMode mode = QIODevice::NotOpen);

/// Copies the content and the permissions of the file \a source, opened as above, to a new file \a
/// target: completely or not at all, even if the process is killed meanwhile. Returns whether it
/// did. An existing target is not changed.
bool copyRegularFile(const QString& source, const QString& target);

/// Replaces the content of the file \a path, which need not exist, by \a content: completely or not
/// at all. Returns an empty text, or why the file was not changed.
QString replaceFile(const QString& path, const QByteArray& content);

} // namespace MavSystem
