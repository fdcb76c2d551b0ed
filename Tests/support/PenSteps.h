// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/PenInput.h"
#include "support/RecordedMessages.h"
#include "support/TextRows.h"

#include <cstdlib>

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
    if (expected.isEmpty())
        return;
    QCOMPARE(yesOrNo(opened), expected);
    QVERIFY(pen.digitizer->active() || !opened);
}

inline void close(PenInput& pen, const QByteArray& /*argument*/)
{
    QVERIFY(!pen.digitizer->close());
    QVERIFY(!pen.digitizer->active());
}

/// A watcher of the test's own tells when the system has announced the change.
inline void putAndWait(PenInput& pen, const QByteArray& entries)
{
    QFileSystemWatcher watcher({pen.folder});
    QSignalSpy announced(&watcher, &QFileSystemWatcher::directoryChanged);
    pen.put(entries);
    QVERIFY(announced.wait());
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

/// In the folder that the pen directory is in.
inline void runInShell(PenInput& pen, const QByteArray& command)
{
    const QByteArray folder = QFile::encodeName(pen.host.path(""));
    QCOMPARE(std::system(("cd '" + folder + "' && " + command).constData()), 0);
}

/// What somebody does. Relative paths are those of the folder that the pen directory is in.
inline const QMap<QByteArray, Action> actions = {
    {"", [](PenInput&, const QByteArray&) {}},
    {"announced", putAndWait},
    {"answer", [](PenInput& pen, const QByteArray& n) { pen.host.answer = n.toInt(); }},
    {"close", close},
    {"directory",
     [](PenInput& pen, const QByteArray& path) { pen.setDirectory(pen.host.path(path)); }},
    {"extended",
     [](PenInput& pen, const QByteArray&) { pen.digitizer->setExtended4Buttons(true); }},
    {"folder",
     [](PenInput& pen, const QByteArray& path) { pen.folder = pen.host.path("") + '/' + path; }},
    {"loop", [](PenInput&, const QByteArray& milliseconds) { QTest::qWait(milliseconds.toInt()); }},
    {"mode",
     [](PenInput& pen, const QByteArray& mode) { pen.digitizer->m_host_mode = mode.toInt(); }},
    {"open", open},
    {"put", [](PenInput& pen, const QByteArray& entries) { pen.put(expanded(entries)); }},
    {"quiet", beQuiet},
    {"relatively",
     [](PenInput& pen, const QByteArray& path) {
         QDir::setCurrent(pen.host.path(""));
         pen.setDirectory(path);
     }},
    {"select",
     [](PenInput& pen, const QByteArray& driverAndDevice) {
         pen.digitizer->selectDevice(driverAndDevice.left(1), driverAndDevice.mid(2));
     }},
    {"settle", [](PenInput& pen,
                  const QByteArray& time) { pen.digitizer->setPenFileSettleTime(time.toInt()); }},
    {"sh", runInShell},
    {"throw", raise},
    {"told",
     [](PenInput&, const QByteArray& part) {
         QTRY_VERIFY2(RecordedMessages::hold(part),
                      qPrintable(RecordedMessages::texts().join('\n')));
     }},
    {"untold",
     [](PenInput&, const QByteArray& part) {
         QVERIFY2(!RecordedMessages::hold(part), qPrintable(RecordedMessages::texts().join('\n')));
     }},
    {"unregister",
     [](PenInput&, const QByteArray&) { MavSystem::DigitalReport::unregisterHandle(); }},
    {"unset", [](PenInput&, const QByteArray&) { QSettings().remove("digitizer_file_directory"); }},
    {"user", [](PenInput&, const QByteArray& id) { QCOMPARE(::seteuid(id.toUInt()), 0); }},
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
    const QByteArray word = step.split(' ').first();
    const QByteArray argument = step.mid(word.size() + 1);
    QVERIFY2(values.contains(word) || actions.contains(word), "no such step: " + step);
    if (actions.contains(word))
        return actions[word](pen, argument);
    QByteArray value;
    const bool became = QTest::qWaitFor([&] { return (value = values[word](pen)) == argument; });
    QVERIFY2(became, step + "\nbut: " + value.left(200));
}

/// Does \a steps, separated by " & ", until one fails.
inline void runAll(PenInput& pen, QByteArray steps)
{
    for (const QByteArray& step : steps.replace(" & ", "\xff").split('\xff')) {
        if (!QTest::currentTestFailed())
            run(pen, step);
    }
}

} // namespace PenSteps
