// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Serial/RecordedSession.h"

#include "DigitizerGeneric/Digitizer/PrintableCharacter.h"

#include <utility>

namespace ReferenceHost {

using MavSystem::isPrintable;

namespace {

const char firstLine[] = "# digitizer session 1";

constexpr std::pair<char, char> escapes[] = {
    {'r', '\r'}, {'n', '\n'}, {'t', '\t'}, {'\\', '\\'}, {'"', '"'}};

QByteArray escaped(char byte)
{
    for (const auto& [letter, meaning] : escapes) {
        if (byte == meaning)
            return QByteArray("\\") + letter;
    }
    return isPrintable(byte) ? QByteArray(1, byte) : "\\x" + QByteArray(1, byte).toHex();
}

// Takes one character or escape off the front of \a text; false when it is malformed.
bool takeByte(QByteArray& text, QByteArray& bytes)
{
    const char first = text.at(0);
    if (first != '\\') {
        bytes += first;
        text.remove(0, 1);
        // A character that an editor has re-encoded is no longer what the tablet sent.
        return isPrintable(first) && first != '"';
    }
    if (text.startsWith("\\x")) {
        const QByteArray digits = text.mid(2, 2);
        const QByteArray byte = QByteArray::fromHex(digits);
        bytes += byte;
        text.remove(0, 4);
        return byte.toHex() == digits.toLower() && byte.size() == 1;
    }
    for (const auto& [letter, meaning] : escapes) {
        if (text.size() > 1 && text.at(1) == letter) {
            bytes += meaning;
            text.remove(0, 2);
            return true;
        }
    }
    return false;
}

bool parseQuoted(QByteArray text, QByteArray& bytes)
{
    if (text.size() < 2 || !text.startsWith('"') || !text.endsWith('"'))
        return false;
    text = text.mid(1, text.size() - 2);
    while (!text.isEmpty()) {
        if (!takeByte(text, bytes))
            return false;
    }
    return true;
}

bool parseChunk(const QByteArray& line, RecordedSession::Chunk& chunk)
{
    const int blank = line.indexOf(' ');
    bool isTime = false;
    chunk.milliseconds = line.left(blank).toLongLong(&isTime);
    return blank > 0 && isTime && chunk.milliseconds >= 0 &&
           parseQuoted(line.mid(blank + 1).trimmed(), chunk.bytes);
}

// Both return what is wrong with the line, or an empty text.

QString takeHeader(const QByteArray& line, RecordedSession& session)
{
    const QString text = QString::fromUtf8(line.mid(1)).trimmed();
    const QString value = text.section(QStringLiteral(": "), 1);
    const QString key = text.section(QStringLiteral(": "), 0, 0);
    if (key == QLatin1String("tablet"))
        session.tablet = value;
    else if (key == QLatin1String("driver"))
        session.driver = value;
    else if (key == QLatin1String("settings"))
        session.settings = value;
    else if (key == QLatin1String("date"))
        session.date = QDateTime::fromString(value, Qt::ISODate);
    if (key != QLatin1String("date") || session.date.isValid())
        return {};
    return QStringLiteral("the date '%1' does not have the form 2026-03-01T14:02:11Z").arg(value);
}

QString takeChunk(const QByteArray& line, RecordedSession& session)
{
    RecordedSession::Chunk chunk;
    if (!parseChunk(line, chunk))
        return QStringLiteral("'%1' is not a time in milliseconds, a blank and bytes in double "
                              "quotes, such as 120 \"0512\\r\"")
            .arg(QString::fromUtf8(line.left(60)));
    if (!session.chunks.isEmpty() && chunk.milliseconds < session.chunks.constLast().milliseconds)
        return QStringLiteral("the time %1 is earlier than that of the previous chunk")
            .arg(chunk.milliseconds);
    session.chunks.append(chunk);
    return {};
}

QString takeLine(const QByteArray& line, RecordedSession& session)
{
    if (line.startsWith('#'))
        return takeHeader(line, session);
    return line.isEmpty() ? QString() : takeChunk(line, session);
}

QByteArray headerOf(const RecordedSession& session)
{
    const QString header =
        QStringLiteral("%1\n# tablet: %2\n# driver: %3\n# settings: %4\n# date: %5\n")
            .arg(QLatin1String(firstLine), session.tablet.simplified(), session.driver.simplified(),
                 session.settings.simplified(), session.date.toString(Qt::ISODate));
    return header.toUtf8();
}

QByteArray lineOf(const RecordedSession::Chunk& chunk)
{
    return QByteArray::number(chunk.milliseconds) + ' ' + quotedBytes(chunk.bytes) + '\n';
}

tl::unexpected<QString> errorAt(int line, const QString& problem)
{
    return tl::unexpected(QStringLiteral("line %1: %2").arg(line).arg(problem));
}

} // namespace

QByteArray quotedBytes(const QByteArray& bytes)
{
    QByteArray text;
    for (const char byte : bytes)
        text += escaped(byte);
    return '"' + text + '"';
}

tl::expected<RecordedSession, QString> readSession(const QByteArray& content)
{
    const QList<QByteArray> lines = content.split('\n');
    if (lines.at(0).trimmed() != firstLine)
        return errorAt(1, QStringLiteral("a recorded session must begin with \"%1\"")
                              .arg(QLatin1String(firstLine)));
    RecordedSession session;
    for (int index = 1; index < lines.size(); ++index) {
        const QString problem = takeLine(lines.at(index).trimmed(), session);
        if (!problem.isEmpty())
            return errorAt(index + 1, problem);
    }
    return session;
}

SessionWriter::SessionWriter(const QString& path, const RecordedSession& session) : m_file(path)
{
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        m_error = m_file.errorString();
        return;
    }
    write(headerOf(session));
    for (const RecordedSession::Chunk& chunk : session.chunks)
        append(chunk);
}

bool SessionWriter::append(const RecordedSession::Chunk& chunk)
{
    return write(lineOf(chunk));
}

bool SessionWriter::write(const QByteArray& text)
{
    if (m_file.write(text) == text.size() && m_file.flush())
        return true;
    m_error = m_file.errorString();
    return false;
}

} // namespace ReferenceHost
