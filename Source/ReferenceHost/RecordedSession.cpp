// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/RecordedSession.h"

#include <cctype>

#include <utility>

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
    const auto code = static_cast<unsigned char>(byte);
    if (code >= 0x20 && code < 0x7f)
        return QByteArray(1, byte);
    return "\\x" + QByteArray(1, byte).toHex();
}

// Takes one character or escape off the front of \a text; false when it is malformed.
bool takeByte(QByteArray& text, QByteArray& bytes)
{
    if (text.at(0) != '\\') {
        bytes += text.at(0);
        text.remove(0, 1);
        return true;
    }
    if (text.startsWith("\\x")) {
        bool isNumber = false;
        bytes += char(text.mid(2, 2).toInt(&isNumber, 16));
        const bool complete =
            isNumber && text.size() >= 4 && std::isxdigit(static_cast<unsigned char>(text.at(2)));
        text.remove(0, 4);
        return complete;
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
        if (text.at(0) == '"' || !takeByte(text, bytes))
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

void takeHeader(const QByteArray& line, RecordedSession& session)
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
}

QByteArray headerOf(const RecordedSession& session)
{
    const QString header =
        QStringLiteral("%1\n# tablet: %2\n# driver: %3\n# settings: %4\n# date: %5\n")
            .arg(QLatin1String(firstLine), session.tablet, session.driver, session.settings,
                 session.date.toString(Qt::ISODate));
    return header.toUtf8();
}

QByteArray lineOf(const RecordedSession::Chunk& chunk)
{
    return QByteArray::number(chunk.milliseconds) + ' ' + quotedBytes(chunk.bytes) + '\n';
}

QString errorAt(int line, const QString& problem)
{
    return QStringLiteral("line %1: %2").arg(line).arg(problem);
}

} // namespace

QByteArray quotedBytes(const QByteArray& bytes)
{
    QByteArray text;
    for (const char byte : bytes)
        text += escaped(byte);
    return '"' + text + '"';
}

ReadSession readSession(const QByteArray& content)
{
    ReadSession result;
    const QList<QByteArray> lines = content.split('\n');
    if (lines.at(0).trimmed() != firstLine) {
        result.error = errorAt(
            1,
            QStringLiteral("a recorded session begins with \"%1\"").arg(QLatin1String(firstLine)));
        return result;
    }
    for (int index = 1; index < lines.size(); ++index) {
        const QByteArray line = lines.at(index).trimmed();
        RecordedSession::Chunk chunk;
        if (line.startsWith('#')) {
            takeHeader(line, result.session);
        } else if (!line.isEmpty()) {
            if (!parseChunk(line, chunk)) {
                result.error = errorAt(
                    index + 1, QStringLiteral("'%1' is not a time in milliseconds, a blank and "
                                              "bytes in double quotes, such as 120 \"0512\\r\"")
                                   .arg(QString::fromUtf8(line.left(60))));
                return result;
            }
            result.session.chunks.append(chunk);
        }
    }
    return result;
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
