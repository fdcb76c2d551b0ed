// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "Fuzzing/FuzzTarget.h"
#include "ReferenceHost/Serial/RecordedSession.h"

#include <QRegularExpression>
#include <QTemporaryDir>

using namespace ReferenceHost;

namespace {

// The session as it is after a way through a file.
RecordedSession writtenAndRead(const RecordedSession& session)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath("session");
    QFile file(path);
    file.remove();
    require(SessionWriter(path, session).errorString().isEmpty(), "written");
    require(file.open(QIODevice::ReadOnly), "opened");
    const auto read = readSession(file.readAll());
    require(bool(read), read ? "" : qPrintable(read.error()));
    return *read;
}

void requireEqual(const RecordedSession& one, const RecordedSession& other)
{
    // A header is one line without blanks around it.
    require(one.tablet.simplified() == other.tablet, "the tablet");
    require(one.driver.simplified() == other.driver, "the driver");
    require(one.settings.simplified() == other.settings, "the settings");
    require(one.date.toString(Qt::ISODate) == other.date.toString(Qt::ISODate), "the date");
    require(one.chunks.size() == other.chunks.size(), "the number of chunks");
    for (int index = 0; index < one.chunks.size(); ++index)
        require(one.chunks.at(index).milliseconds == other.chunks.at(index).milliseconds &&
                    one.chunks.at(index).bytes == other.chunks.at(index).bytes,
                "a chunk");
}

void requireLine(const QString& error, int lines)
{
    const auto match = QRegularExpression("^line ([1-9][0-9]*): .").match(error);
    require(match.hasMatch() && match.captured(1).toInt() <= lines, qPrintable(error));
}

} // namespace

// A recorded session: what is read, written and read again is the same; so is a chunk of any bytes.
void fuzz(const QByteArray& input)
{
    const auto read = readSession(input);
    if (read)
        requireEqual(*read, writtenAndRead(*read));
    else
        requireLine(read.error(), input.count('\n') + 1);
    RecordedSession session;
    session.tablet = QString::fromUtf8(input);
    session.chunks = {{0, input}, {input.size(), input.left(7)}};
    requireEqual(session, writtenAndRead(session));
}
