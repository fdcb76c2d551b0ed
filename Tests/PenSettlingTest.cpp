// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/PenFileSettling.h"
#include "support/PenRoad.h"

#include <QtTest>

using namespace MavSystem;

/// Pen files that are still being written.
class PenSettlingTest : public QObject
{
    Q_OBJECT

private slots:
    void looks_data();
    void looks();
    void theTimeIsNotSaved();
    void onlyWhatStoodStillIsImportedByTheQuestion();
    void aGrowingFileIsImportedWhole();
    void aDirectoryMayGoAndComeBack();
    void aFileThatKeepsItsNameIsImportedOncePerChange();
};

void PenSettlingTest::looks_data()
{
    QTest::addColumn<QString>("script");
    // "time or begin-end name:size.modified ... > settled names / number waiting"; a ! says that
    // all which settled is imported and keeps its name, a ? that it is forgotten. The settle time
    // is 100.
    const auto row = [](const char* name, const char* script) {
        QTest::newRow(name) << QString::fromLatin1(script);
    };
    row("stands still", "0 a:5.1 > / 1; 99 a:5.1 > / 1; 100 a:5.1 > a / 1; 120 a:5.1 > a / 1");
    row("grows", "0 a:5.1 > / 1; 60 a:6.1 > / 1; 120 a:6.1 > / 1; 160 a:6.1 > a / 1");
    row("long looks", "0-80 a:5.1 > / 1; 170-250 a:5.1 > / 1; 251-331 a:5.1 > a / 1");
    row("grows by 4 GiB", "0 a:5.1 > / 1; 100 a:4294967301.1 > / 1; 200 a:4294967301.1 > a / 1");
    row("shrinks", "0 a:5.1 > / 1; 100 a:0.1 > / 1; 200 a:0.1 > a / 1");
    row("is written over", "0 a:5.1 > / 1; 100 a:5.2 > / 1; 200 a:5.2 > a / 1");
    row("has a clock that goes back", "0 a:5.9 > / 1; 100 a:5.-9 > / 1; 200 a:5.-9 > a / 1");
    row("each by itself", "0 b:1.1 > / 1; 60 a:1.1 b:1.1 > / 2; 100 a:1.1 b:1.1 > b / 2; "
                          "160 a:1.1 b:1.1 > a b / 2");
    row("goes and comes", "0 a:5.1 > / 1; 50 > / 0; 100 a:5.1 > / 1; 200 a:5.1 > a / 1");
    row("keeps its name", "0 a:5.1 > / 1; 100 a:5.1 ! > a / 0; 200 a:5.1 > / 0; 300 a:6.1 > / 1; "
                          "400 a:6.1 > a / 1");
    row("is forgotten", "0 a:5.1 > / 1; 100 a:5.1 ? > a / 0; 200 a:5.1 > / 1; 300 a:5.1 > a / 1");
}

void PenSettlingTest::looks()
{
    QFETCH(QString, script);
    PenFileSettling settling;
    settling.setSettleTime(100);
    for (const QString& step : script.split(QStringLiteral("; "))) {
        const QString before = step.section(QLatin1String(" >"), 0, 0);
        const QString times = before.section(QLatin1Char(' '), 0, 0);
        QVector<PenFileSettling::File> found;
        for (const QString& file : before.split(QLatin1Char(' ')).filter(QLatin1String(":"))) {
            const QString values = file.section(QLatin1Char(':'), 1);
            PenFileStamp stamp;
            stamp.size = values.section(QLatin1Char('.'), 0, 0).toLongLong();
            stamp.modified = values.section(QLatin1Char('.'), 1).toLongLong();
            found.push_back({file.section(QLatin1Char(':'), 0, 0), stamp});
        }
        QString result = QStringLiteral(" >");
        for (const auto& file :
             settling.look(found, times.section(QLatin1Char('-'), 0, 0).toLongLong(),
                           times.section(QLatin1Char('-'), -1).toLongLong())) {
            result += QLatin1Char(' ') + file.name;
            if (before.endsWith(QLatin1Char('!')))
                settling.setImported(file);
            if (before.endsWith(QLatin1Char('?')))
                settling.forget(file.name);
        }
        QCOMPARE(before + result + QStringLiteral(" / %1").arg(settling.waiting()), step);
    }
}

void PenSettlingTest::theTimeIsNotSaved()
{
    PenRoad road;
    QCOMPARE(Digitizer().penFileSettleTime(), 0);
    road.digitizer->setPenFileSettleTime(70);
    QCOMPARE(road.digitizer->penFileSettleTime(), 70);
    road.digitizer->saveConfig();
    QCOMPARE(Digitizer().penFileSettleTime(), 0);
    road.digitizer->setPenFileSettleTime(-1);
    QCOMPARE(road.digitizer->penFileSettleTime(), 0);
}

void PenSettlingTest::onlyWhatStoodStillIsImportedByTheQuestion()
{
    PenRoad road;
    road.put(QStringLiteral("a.dat=A- 4|X:1:1|"));
    road.put(QStringLiteral("b.dat=A- 4|X:2:2|"));
    road.put(QStringLiteral("c.txt="));
    road.put(QStringLiteral("c.dat=A- 4|X:3:3|"));
    road.digitizer->setPenFileSettleTime(60);
    road.host.duringDialog = [&] {
        QTest::qWait(60);
        QFile file(road.pathOf(QStringLiteral("b.dat")));
        QVERIFY(file.open(QIODevice::Append) && file.write("A- 4\nX:9:9\n") > 0);
        road.put(QStringLiteral("d.dat=A- 4|X:4:4|"));
    };
    QVERIFY(road.digitizer->open());
    QCOMPARE(road.delivered(), QStringLiteral("4:1,1 4:3,3"));
    QCOMPARE(road.digitizer->unsettledPenFiles(), 2);
    QTRY_COMPARE(road.digitizer->unsettledPenFiles(), 0);
    QCOMPARE(road.delivered(), QStringLiteral("4:1,1 4:3,3 4:2,2 4:9,9 4:4,4"));
    QCOMPARE(road.names(), QStringLiteral("a.txt b.txt c.dat c.txt d.txt"));
    // Nothing waits for a road that is not open.
    road.host.duringDialog = [] {};
    road.digitizer->setPenFileSettleTime(60000);
    QVERIFY(road.digitizer->open());
    QCOMPARE(road.digitizer->unsettledPenFiles(), 1);
    road.digitizer->close();
    QCOMPARE(road.digitizer->unsettledPenFiles(), 0);
    road.host.answer = 2;
    QVERIFY(!road.digitizer->open());
    QCOMPARE(road.digitizer->unsettledPenFiles(), 0);
}

// The writer's timer always comes between two looks, however slow the machine.
void PenSettlingTest::aGrowingFileIsImportedWhole()
{
    PenRoad road;
    road.digitizer->setPenFileSettleTime(200);
    QVERIFY(road.digitizer->open());
    QFile file(road.pathOf(QStringLiteral("a.dat")));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    QStringList expected;
    QTimer writer;
    connect(&writer, &QTimer::timeout, this, [&] {
        file.write("A- 4\nX:1:1\n");
        expected << QStringLiteral("4:1,1");
        if (expected.size() == 40)
            writer.stop();
    });
    writer.start(20);
    QTRY_COMPARE(road.digitizer->unsettledPenFiles(), 1);
    QTRY_COMPARE(road.names(), QStringLiteral("a.txt"));
    QCOMPARE(expected.size(), 40);
    QCOMPARE(road.reports, expected);
}

void PenSettlingTest::aDirectoryMayGoAndComeBack()
{
    PenRoad road;
    road.digitizer->setPenFileSettleTime(1);
    QVERIFY(road.digitizer->open());
    for (int round = 1; round <= 2; ++round) {
        QVERIFY(QDir().rename(road.folder, road.folder + QString::number(round)));
        QTest::qWait(round * 60); // at least one look finds nothing
        QVERIFY(QDir().mkpath(road.folder));
        road.put(QStringLiteral("a.dat=A- 4|X:%1:1|").arg(round));
        QTRY_COMPARE(road.names(), QStringLiteral("a.txt"));
    }
    QCOMPARE(road.delivered(), QStringLiteral("4:1,1 4:2,1"));
    QVERIFY(road.digitizer->active());
    road.digitizer->close();
    QVERIFY(!road.digitizer->active());
    road.put(QStringLiteral("b.dat=X:9:9|"));
    QVERIFY(!QTest::qWaitFor([&] { return road.reports.size() > 2; }, 150));
}

void PenSettlingTest::aFileThatKeepsItsNameIsImportedOncePerChange()
{
    PenRoad road;
    road.put(QStringLiteral("a.txt="));
    road.digitizer->setPenFileSettleTime(50);
    QVERIFY(road.digitizer->open());
    road.put(QStringLiteral("a.dat=A- 4|X:1:1|"));
    QTRY_COMPARE(road.delivered(), QStringLiteral("4:1,1"));
    // Another file's arrival changes the directory, not this file.
    road.put(QStringLiteral("b.dat=A- 4|X:2:2|"));
    QTRY_COMPARE(road.delivered(), QStringLiteral("4:1,1 4:2,2"));
    QFile file(road.pathOf(QStringLiteral("a.dat")));
    QVERIFY(file.open(QIODevice::Append) && file.write("A- 4\nX:3:3\n") > 0);
    file.close();
    QTRY_COMPARE(road.delivered(), QStringLiteral("4:1,1 4:2,2 4:1,1 4:3,3"));
    QCOMPARE(road.digitizer->unsettledPenFiles(), 0);
}

QTEST_GUILESS_MAIN(PenSettlingTest)
#include "PenSettlingTest.moc"
