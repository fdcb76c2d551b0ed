// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace MavSystem {

/// Opens \a file, whose name is set, for reading, if that name is a regular file or a link to one.
/// Returns an empty text, or why it is not open.
///
/// Never waits: the writer of a pipe that a link leads to may never come. To be used for every file
/// that somebody else has put where it is. \a mode is added to QIODevice::ReadOnly.
QString openRegularFile(QFile& file, QIODevice::OpenMode mode = QIODevice::NotOpen);

/// Copies the content and the rights of the file \a source, opened as above, to a new file
/// \a target: whole or not at all, even if the process is killed meanwhile. Returns whether it did.
/// An existing target is left alone.
bool copyRegularFile(const QString& source, const QString& target);

/// Makes \a content the content of the file \a path, which need not exist: whole, or the file stays
/// as it was. Returns an empty text, or why it stays.
QString replaceFile(const QString& path, const QByteArray& content);

} // namespace MavSystem
