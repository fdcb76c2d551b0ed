// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/PenInput.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/// The steps of Rows/pen-*.txt, by their first words.
namespace PenSteps {

using Value = QByteArray (*)(const PenInput& pen);
using Action = void (*)(PenInput& pen, const QByteArray& argument);

inline QByteArray yesOrNo(bool value)
{
    return value ? "yes" : "no";
}

/// What there must be sooner or later.
inline const QMap<QByteArray, Value> values = {
    {"active", [](const PenInput& pen) { return yesOrNo(pen.digitizer->active()); }},
    {"errors", [](const PenInput& pen) { return pen.host.errors.join('|').toUtf8(); }},
    {"names", [](const PenInput& pen) { return pen.names(); }},
    {"questions",
     [](const PenInput& pen) { return QByteArray::number(pen.host.questions.size()); }},
    {"reports", [](const PenInput& pen) { return pen.delivered(); }},
    {"waiting",
     [](const PenInput& pen) { return QByteArray::number(pen.digitizer->unsettledPenFiles()); }},
};

inline void open(PenInput& pen, const QByteArray& expected)
{
    const bool opened = pen.digitizer->open();
    QVERIFY2(expected.isEmpty() || expected == yesOrNo(opened), "opened: " + yesOrNo(opened));
}

inline void setDirectory(PenInput& pen, const QByteArray& path)
{
    pen.setDirectory(QString::fromUtf8(path));
    if (path.startsWith("absent"))
        QSettings().remove("digitizer_file_directory");
}

/// A watcher of the test's own tells when the system has announced the change.
inline void putAndWait(PenInput& pen, const QByteArray& entries)
{
    QFileSystemWatcher watcher({pen.folder});
    QSignalSpy announced(&watcher, &QFileSystemWatcher::directoryChanged);
    pen.put(entries);
    QVERIFY(announced.wait());
}

inline void append(PenInput& pen, const QByteArray& entry)
{
    const int end = entry.indexOf('=');
    QFile file(pen.pathOf(QString::fromUtf8(entry.left(end))));
    QVERIFY(file.open(QIODevice::Append) && file.write(entry.mid(end + 1)) > 0);
}

/// Nothing may come; a change would take far less.
inline void beQuiet(PenInput& pen, const QByteArray& /*argument*/)
{
    const int before = pen.reports.size();
    QVERIFY2(!QTest::qWaitFor([&] { return pen.reports.size() != before; }, 150),
             pen.delivered().left(80));
}

inline void raise(PenInput& /*pen*/, const QByteArray& text)
{
    if (text.isEmpty())
        throw 1; // not of the standard family
    throw std::runtime_error(text.toStdString());
}

/// Lets everybody reach the pen directory and read the settings, and gives the directory rights.
inline void setRights(PenInput& pen, const QByteArray& octal)
{
    QSettings settings;
    settings.sync();
    for (const QString& path : {pen.host.path(QString()), settings.fileName(),
                                QFileInfo(settings.fileName()).path(), pen.host.path("settings")})
        QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0755), 0);
    QCOMPARE(::chmod(pen.encodedPathOf("."), mode_t(octal.toUInt(nullptr, 8))), 0);
}

inline void fillDisk(PenInput& pen, const QByteArray& /*argument*/)
{
    QFile filler(pen.pathOf("filler"));
    QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(512, ' ')) > 0) {
    }
}

inline void makeUndecodable(PenInput& pen, const QByteArray& /*argument*/)
{
    QVERIFY(::close(::open(pen.encodedPathOf("\xff.dat"), O_CREAT | O_WRONLY, 0644)) == 0);
}

inline void reachThroughLink(PenInput& pen, const QByteArray& /*argument*/)
{
    QVERIFY(QDir().mkpath(pen.host.path("other/deep")));
    QVERIFY(QDir().rename(pen.folder, pen.host.path("other/pens")));
    QVERIFY(QFile::link("other/deep", pen.host.path("link")));
    QVERIFY(QDir().mkpath(pen.host.path("pens")));
    pen.setDirectory(pen.host.path("link/../pens"));
    pen.folder = pen.host.path("other/pens");
}

/// Gives the directory the name \a setting, and reaches it from the folder that it is in.
inline void reachRelatively(PenInput& pen, const QByteArray& setting)
{
    const QString path = pen.host.path(QString()) + '/' + QString::fromUtf8(setting);
    QVERIFY(path.endsWith("/pen/") || QDir().rename(pen.folder, path));
    pen.folder = path;
    QDir::setCurrent(pen.host.path(QString()));
    pen.setDirectory(QString::fromUtf8(setting));
}

/// Puts another file in the place of a.dat that differs in nothing but its content.
inline void replaceByTwin(PenInput& pen, const QByteArray& content)
{
    const QByteArray path = pen.encodedPathOf("a.dat");
    struct stat status = {};
    QCOMPARE(::stat(path, &status), 0);
    const QByteArray twin =
        QFile::encodeName(pen.host.write("twin", content.leftJustified(int(status.st_size), '\n')));
    const timespec times[] = {status.st_atim, status.st_mtim};
    QCOMPARE(::utimensat(AT_FDCWD, twin, times, 0), 0);
    QCOMPARE(std::rename(twin, path), 0);
}

/// What somebody does.
inline const QMap<QByteArray, Action> actions = {
    {"", [](PenInput&, const QByteArray&) {}},
    {"announced", putAndWait},
    {"answer", [](PenInput& pen, const QByteArray& n) { pen.host.answer = n.toInt(); }},
    {"append", append},
    {"close", [](PenInput& pen, const QByteArray&) { QVERIFY(!pen.digitizer->close()); }},
    {"directory", setDirectory},
    {"fill", fillDisk},
    {"forbid",
     [](PenInput& pen, const QByteArray& name) {
         QVERIFY(::chmod(pen.encodedPathOf(name), 0200) == 0);
     }},
    {"link", reachThroughLink},
    {"loop", [](PenInput&, const QByteArray& milliseconds) { QTest::qWait(milliseconds.toInt()); }},
    {"make", [](PenInput& pen, const QByteArray&) { QVERIFY(QDir().mkpath(pen.folder)); }},
    {"open", open},
    {"pipe", [](PenInput& pen,
                const QByteArray& name) { QVERIFY(::mkfifo(pen.encodedPathOf(name), 0666) == 0); }},
    {"put", [](PenInput& pen, const QByteArray& entries) { pen.put(entries); }},
    {"quiet", beQuiet},
    {"relatively", reachRelatively},
    {"remove", [](PenInput& pen,
                  const QByteArray& name) { QVERIFY(::unlink(pen.encodedPathOf(name)) == 0); }},
    {"rename",
     [](PenInput& pen, const QByteArray& name) {
         QVERIFY(QDir().rename(pen.folder, pen.host.path(QString::fromUtf8(name))));
     }},
    {"rights", setRights},
    {"select",
     [](PenInput& pen, const QByteArray& driverAndDevice) {
         pen.digitizer->selectDevice(QString::fromUtf8(driverAndDevice.left(1)),
                                     QString::fromUtf8(driverAndDevice.mid(2)));
     }},
    {"settle", [](PenInput& pen,
                  const QByteArray& time) { pen.digitizer->setPenFileSettleTime(time.toInt()); }},
    {"throw", raise},
    {"truncate",
     [](PenInput& pen, const QByteArray& name) { ::truncate(pen.encodedPathOf(name), 0); }},
    {"twin", replaceByTwin},
    {"undecodable", makeUndecodable},
    {"unregister",
     [](PenInput&, const QByteArray&) { MavSystem::DigitalReport::unregisterHandle(); }},
};

/// Does one step, or keeps it for its event: "report 2: STEP".
inline void run(PenInput& pen, const QByteArray& step)
{
    static const QRegularExpression event("^((?:report|question|error) \\d+): ");
    const auto match = event.match(QString::fromLatin1(step));
    if (match.hasMatch()) {
        const QByteArray rest = step.mid(match.capturedEnd());
        pen.hooks[match.captured(1).toLatin1()] << [&pen, rest] { run(pen, rest); };
        return;
    }
    const int blank = step.indexOf(' ');
    const QByteArray word = step.split(' ').first();
    const QByteArray argument = blank < 0 ? QByteArray() : step.mid(blank + 1);
    QVERIFY2(values.contains(word) || actions.contains(word), "no such step: " + step);
    if (actions.contains(word))
        return actions[word](pen, argument);
    QByteArray value;
    const bool became = QTest::qWaitFor([&] { return (value = values[word](pen)) == argument; });
    QVERIFY2(became, step + "\nbut: " + value.left(200));
}

/// Does \a steps until one fails.
inline void run(PenInput& pen, const QByteArrayList& steps)
{
    for (const QByteArray& step : steps) {
        if (!QTest::currentTestFailed())
            run(pen, step);
    }
}

} // namespace PenSteps
