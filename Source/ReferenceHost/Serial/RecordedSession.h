// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QFile>
#include <QString>
#include <QVector>

#include <tl/expected.hpp>

namespace ReferenceHost {

/// A session recorded at a serial port: where it comes from, and every chunk with its time.
///
/// The file is text: a first line "# digitizer session 1", header lines "# KEY: VALUE", then a line
/// for each chunk: the time in milliseconds since the start, a blank, and the bytes in double
/// quotes with the escapes \r \n \t \\ \" and \xHH. Other lines that begin with "#" are comments.
/// The times never decrease.
struct RecordedSession
{
    struct Chunk
    {
        qint64 milliseconds; ///< since the start of the recording
        QByteArray bytes;
    };

    QString tablet;   ///< free text
    QString driver;   ///< the driver in use; may be empty
    QString settings; ///< the serial settings, such as "9600 8 None 1 none"
    QDateTime date;
    QVector<Chunk> chunks;
};

/// Returns the session whose file holds \a content. The error, "line 7: ...", says what was found
/// and what is accepted.
tl::expected<RecordedSession, QString> readSession(const QByteArray& content);

/// Returns \a bytes in double quotes, with escapes for bytes that are not printable.
QByteArray quotedBytes(const QByteArray& bytes);

/// Writes a session while it is recorded. Each chunk is written to the file immediately.
class SessionWriter
{
public:
    /// Creates \a path and writes the header and the chunks of \a session. Fails if the file
    /// exists. errorString() is empty if that worked.
    SessionWriter(const QString& path, const RecordedSession& session);

    /// Appends a chunk and returns whether it was written.
    bool append(const RecordedSession::Chunk& chunk);

    QString errorString() const { return m_error; }

private:
    bool write(const QByteArray& text);

    QFile m_file;
    QString m_error;
};

} // namespace ReferenceHost
