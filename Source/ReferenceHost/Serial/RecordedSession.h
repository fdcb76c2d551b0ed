// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QFile>
#include <QString>
#include <QVector>

namespace ReferenceHost {

/// A session recorded on a serial line: where it comes from, and every chunk with its time.
///
/// The file is text: a first line "# digitizer session 1", header lines "# KEY: VALUE", then a line
/// for each chunk: the time in milliseconds since the start, a blank, and the bytes in double
/// quotes with the escapes \r \n \t \\ \" and \xHH. Other lines that begin with "#" are comments.
/// The times do not go back.
struct RecordedSession
{
    struct Chunk
    {
        qint64 milliseconds; ///< since the start of the recording
        QByteArray bytes;
    };

    QString tablet;   ///< free text
    QString driver;   ///< name of the description in use; may be empty
    QString settings; ///< of the line, such as "9600 8 None 1 none"
    QDateTime date;
    QVector<Chunk> chunks;
};

/// What reading a session yields; the session is usable when \a error is empty.
struct ReadSession
{
    RecordedSession session;
    QString error; ///< "line 7: ...", what was found and what is accepted
};

/// Returns the session whose file holds \a content.
ReadSession readSession(const QByteArray& content);

/// Returns \a bytes in double quotes, with escapes for what does not print.
QByteArray quotedBytes(const QByteArray& bytes);

/// Writes a session while it is recorded; each chunk reaches the file at once.
class SessionWriter
{
public:
    /// Creates \a path with the header of \a session, whose chunks are written too; an existing
    /// file is refused. errorString() is empty when that worked.
    SessionWriter(const QString& path, const RecordedSession& session);

    /// Appends a chunk; returns whether it was written.
    bool append(const RecordedSession::Chunk& chunk);

    QString errorString() const { return m_error; }

private:
    bool write(const QByteArray& text);

    QFile m_file;
    QString m_error;
};

} // namespace ReferenceHost
